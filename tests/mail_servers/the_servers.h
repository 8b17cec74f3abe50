// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "mail_servers/mail_servers.h"

/// Those of this test program. They start before its first test; where they can't, it fails.
MailServers& TheServers();

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "post/mail_world.h"
#include "post/mail_account.h"

/// The account of `address` on the running servers, at its best.
post::MailAccount ServerAccount(const std::string& address);

/// An IMAP and SMTP account on the running servers.
std::unique_ptr<MailWorld> MakeImapWorld();

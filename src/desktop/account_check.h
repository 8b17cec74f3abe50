// SPDX-License-Identifier: GPL-3.0-or-later
// Whether an account works, told in plain words to somebody who isn't at home in mail servers.
#pragma once

#include <string>

#include "desktop/mail_account.h"

namespace desktop {

/// Signs on at both ends without changing anything there, and says in one sentence what is wrong
/// and what to do about it; blank where all is well. Takes its time: not for the window's thread.
std::string WhatIsWrongWith(const MailAccount& account, const std::string& password);

}  // namespace desktop

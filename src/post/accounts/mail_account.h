// SPDX-License-Identifier: GPL-3.0-or-later
// Reading and writing the mail account's settings.
#pragma once

#include <string>

#include "platform/mail_account.h"
#include "post/accounts/passwords.h"

namespace post {

using platform::AccountAnswer;
using platform::MailAccount;

/// What is stored, defaults standing in for what isn't. Without a stored account MyAddress is
/// blank. Raises platform::SettingsError where the settings can't be read.
MailAccount LoadMailAccount();

/// What is wrong where nobody has chosen an account yet, with the way out; else empty. Raises as
/// LoadMailAccount does.
std::string WhyNoAccount();

/// `account` with a name and an address where they are blank: the login name, and that name at this
/// machine.
MailAccount WithLoginName(MailAccount account);

/// False where the settings can't be written.
bool SaveMailAccount(const MailAccount& account);

/// Whether mail can be sent from the account's address.
bool HasUsableAddress(const MailAccount& account);

/// `account` with its post folder as seen from the program folder.
MailAccount WithAbsolutePostFolder(MailAccount account);

/// Whether the account's service wants a password, or what a sign-in leaves in its place.
bool NeedsPassword(const MailAccount& account);

/// Where the account's password is kept.
std::string PasswordKey(const MailAccount& account);

/// Tells the user what is wrong with his account.
void ReportAccountTrouble(const std::string& text);

/// What an account wants is kept with the passwords.
enum class Secret { Password, SignIn };

/// Tells the user that it stands in memory only.
void ReportUnkept(Secret secret);

/// `answered` for the question `asked`, where something else is stored by now, as after a sign-in
/// at the console: what the user left as it was stays as it is stored. All is as answered where he
/// has changed the mailbox itself, to which the other's changes don't belong.
MailAccount WithLaterChanges(MailAccount answered, const MailAccount& asked,
                             const MailAccount& stored);

/// Stores the account, and the password where one was given, and forgets that of the account before
/// where it is another's. What can't be done is told. False where the account can't be stored.
/// Raises as LoadMailAccount does.
bool SaveAccountAnswer(const AccountAnswer& answer, Passwords& passwords);

}  // namespace post

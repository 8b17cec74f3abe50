// SPDX-License-Identifier: GPL-3.0-or-later
// The servers of the common mail providers, so that most people need to know their address only.
// They stand in "providers.ini" beside the program, where anybody can mend them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "desktop/ini_text.h"
#include "post/accounts/mail_account.h"

namespace post {

/// What the file says; nothing where it is missing or damaged.
desktop::IniText KnownProviders();

bool IsKnownProvider(std::string_view address);

/// `account` with the servers, ports, securities and user name that its address suggests: a known
/// provider's, else names made of the address's domain. What the address says nothing about stays.
MailAccount WithGuessedServers(MailAccount account);

/// `account` with the servers of the known provider on whose host the mail of its domain arrives;
/// nothing where that host is nobody's.
std::optional<MailAccount> WithServersBehind(std::string_view mailHost, MailAccount account);

/// Whether nobody has chosen the account's servers yet: they are blank, or what its address
/// suggests.
bool HasGuessedServers(const MailAccount& account);

/// A sentence for somebody whose right password was refused: that this provider wants a password of
/// its own for programs, or IMAP switched on first, and where. Goes by the account's server; one
/// without a name is that of a provider who lets no program in. Blank where nothing is known.
std::string PasswordAdvice(const MailAccount& account);

/// What the provider at the account's server calls its sign-in in the browser; blank where it has
/// none, or isn't known.
std::string SignInOf(const MailAccount& account);

}  // namespace post

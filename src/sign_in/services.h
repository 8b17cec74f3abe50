// SPDX-License-Identifier: GPL-3.0-or-later
// Providers that let mail programs in by a sign-in (OAuth 2). What there is to know of the common
// ones stands in "providers.ini", in sections named "SignIn Google" and so on. By which identifier
// a provider knows the program is for the packager or the user to say, in files "OAuth
// clients.ini":
//
//   [Google]                          as the sign-in is called in providers.ini
//   ClientId=...
//   ClientSecret=...                  where the provider gives one; it is no secret of the user's
//
//   [example.org]                     of another provider: the domain of the address
//   Issuer=https://login.example.org  tells the rest by itself (RFC 8414), or else
//   Authorize=, Token=, Device=       the addresses themselves
//   Scope=...                         what is asked for, where the provider wants to hear it
//   ClientId=...
//
// What such a section says counts more than what providers.ini says.
#pragma once

#include <string>
#include <vector>

#include "post/accounts/mail_account.h"
#include "post/servers/mail_failures.h"
#include "post/servers/patience.h"

namespace sign_in {

struct Service {
  std::string name;       ///< "Google", or a domain
  std::string issuer;     ///< where its metadata lie; blank where that isn't needed
  std::string authorize;  ///< the page for the browser
  std::string token;      ///< where tokens are given
  std::string device;     ///< where a sign-in without a browser begins; blank where it can't
  std::string scope;
  std::string redirectHost;  ///< what the provider wants this machine to be called
  std::string clientId;
  std::string clientSecret;
};

/// Of several files that know a provider the first counts.
using ClientFiles = std::vector<std::string>;

/// Beside the settings, with what came with the program, and below /etc.
ClientFiles UsualClientFiles(const std::string& settingsFile);

/// What the account's provider calls its sign-in; blank where it has none, or nobody knows of it.
/// Not blank where a file can't be read that may know of it.
std::string ServiceNameFor(const post::MailAccount& account, const ClientFiles& files);

/// Without what its issuer tells. Raises MailError with a sentence on what is missing, or what is
/// wrong with a file.
Service ServiceNamed(const std::string& name, const ClientFiles& files);

/// With what its issuer tells about it, who is asked only where the address of the tokens isn't
/// known, or `page`, which the errand begins at. May wait. Raises MailError; that a service has no
/// such page is for the errand to say.
Service WithMetadata(Service service, std::string Service::*page, const post::Patience& patience);

/// A sentence where a file of the user's own with a secret in it can be read by others; else blank.
std::string RemarkOn(const ClientFiles& files);

}  // namespace sign_in

// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/accounts/known_providers.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "desktop/folders.h"
#include "desktop/ini_text.h"
#include "desktop/posix_files.h"
#include "platform/ascii.h"
#include "platform/conversions.h"
#include "post/accounts/domain_names.h"

namespace post {
namespace {

using desktop::IniText;

using Fit = bool (*)(std::string_view name, std::string_view pattern);

bool Fits(std::string_view domain, std::string_view pattern) {
  if (!pattern.ends_with(".*")) return domain == pattern;
  constexpr std::size_t longestCountry = std::string_view("com.br").size();
  const std::string_view start = pattern.substr(0, pattern.size() - 1);
  return domain.starts_with(start) && domain.size() > start.size() &&
         domain.size() <= start.size() + longestCountry;
}

bool IsOneOf(std::string_view name, std::string_view patterns, Fit fits) {
  while (!patterns.empty()) {
    const std::string_view pattern = patterns.substr(0, patterns.find(' '));
    if (fits(name, pattern)) return true;
    patterns.remove_prefix(std::min(patterns.size(), pattern.size() + 1));
  }
  return false;
}

/// The domains of the provider that has this one among his; blank where nobody has.
std::string ProviderOf(const IniText& providers, std::string_view domain) {
  for (const std::string& domains : providers.Groups()) {
    if (IsOneOf(domain, domains, Fits)) return domains;
  }
  return {};
}

/// A program on this machine that stands for the provider has no certificate that others trust.
const char* SecurityOf(std::string_view host, int port) {
  if (host == "127.0.0.1") return "None";
  return port == 993 || port == 465 ? "Tls" : "StartTls";
}

/// Host, port and security of "imap.example.org:993".
std::tuple<std::string, int, std::string> ServerAt(const std::string& place) {
  const std::size_t end = std::min(place.rfind(':'), place.size());
  const int port = platform::ToInteger16(place.substr(std::min(end + 1, place.size()))).value_or(0);
  const std::string host = place.substr(0, end);
  return {host, port, SecurityOf(host, port)};
}

/// A provider's servers, or those that the domain's name suggests.
MailAccount WithServersOf(const IniText& providers, const std::string& provider,
                          MailAccount account) {
  const std::string domain = DomainOf(account.MyAddress);
  const auto server = [&](const char* name, const std::string& guessed) {
    return ServerAt(providers.Value(provider, name).value_or(guessed));
  };
  std::tie(account.ImapHost, account.ImapPort, account.ImapSecurity) =
      server("Imap", "imap." + domain + ":993");
  std::tie(account.SmtpHost, account.SmtpPort, account.SmtpSecurity) =
      server("Smtp", "smtp." + domain + ":465");
  const bool isWhole = providers.Value(provider, "UserName") != "LocalPart";
  account.UserName =
      account.MyAddress.substr(0, isWhole ? std::string::npos : account.MyAddress.rfind('@'));
  return account;
}

/// What the file says of the provider at the account's server.
std::string OfProviderAt(const MailAccount& account, const char* name) {
  const IniText providers = KnownProviders();
  const std::string place = account.ImapHost + ':' + std::to_string(account.ImapPort);
  for (const std::string& provider : providers.Groups()) {
    if (!platform::SameWithoutCase(place, providers.Value(provider, "Imap").value_or(""))) continue;
    return providers.Value(provider, name).value_or("");
  }
  return {};
}

}  // namespace

IniText KnownProviders() {
  try {
    return IniText::Read(desktop::PosixFiles().Read(desktop::SharedFolder() + "providers.ini"))
        .value_or(IniText());
  } catch (const platform::FileError&) {
    return {};
  }
}

bool IsKnownProvider(std::string_view address) {
  return !ProviderOf(KnownProviders(), DomainOf(address)).empty();
}

MailAccount WithGuessedServers(MailAccount account) {
  const std::string domain = DomainOf(account.MyAddress);
  if (domain.empty()) return account;
  const IniText providers = KnownProviders();
  return WithServersOf(providers, ProviderOf(providers, domain), std::move(account));
}

std::optional<MailAccount> WithServersBehind(std::string_view mailHost, MailAccount account) {
  const IniText providers = KnownProviders();
  for (const std::string& provider : providers.Groups()) {
    if (!IsOneOf(mailHost, providers.Value(provider, "MailHosts").value_or(""), IsWithin)) continue;
    return WithServersOf(providers, provider, std::move(account));
  }
  return std::nullopt;
}

bool HasGuessedServers(const MailAccount& account) {
  if (account.ImapHost.empty() && account.SmtpHost.empty()) return true;
  return !DomainOf(account.MyAddress).empty() && WithGuessedServers(account) == account;
}

std::string PasswordAdvice(const MailAccount& account) { return OfProviderAt(account, "Advice"); }

std::string SignInOf(const MailAccount& account) { return OfProviderAt(account, "SignIn"); }

}  // namespace post

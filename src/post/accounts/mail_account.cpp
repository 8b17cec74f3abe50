// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/accounts/mail_account.h"

#include <pwd.h>
#include <unistd.h>

#include <filesystem>
#include <tuple>

#include "desktop/folders.h"
#include "letters/mail_text.h"
#include "platform/conversions.h"
#include "platform/messages.h"
#include "platform/process_state.h"
#include "platform/registry.h"
#include "post/accounts/local_address.h"

namespace post {
namespace {

struct TextField {
  const char* name;
  std::string MailAccount::*member;
  bool network;  ///< means nothing to the local post office
};

constexpr TextField textFields[] = {
    {"MailKind", &MailAccount::MailKind, false},
    {"MyName", &MailAccount::MyName, false},
    {"MyAddress", &MailAccount::MyAddress, false},
    {"PostFolder", &MailAccount::PostFolder, false},
    {"ImapHost", &MailAccount::ImapHost, true},
    {"ImapSecurity", &MailAccount::ImapSecurity, true},
    {"SmtpHost", &MailAccount::SmtpHost, true},
    {"SmtpSecurity", &MailAccount::SmtpSecurity, true},
    {"UserName", &MailAccount::UserName, true},
    {"TokenCommand", &MailAccount::TokenCommand, true},
    {"SignIn", &MailAccount::SignIn, true},
};

struct PortField {
  const char* name;
  int MailAccount::*member;
};

constexpr PortField portFields[] = {
    {"ImapPort", &MailAccount::ImapPort},
    {"SmtpPort", &MailAccount::SmtpPort},
};

constexpr const char* sendPage = "SendPage";

platform::StoredValue Stored(const char* name) {
  return platform::ReadRegistryOrRaise(platform::mailSection, name);
}

Secret SecretOf(const MailAccount& account) {
  return account.SignIn.empty() ? Secret::Password : Secret::SignIn;
}

const char* NameOf(Secret secret) { return secret == Secret::SignIn ? "sign-in" : "password"; }

std::string LoginName() {
  const passwd* user = ::getpwuid(::getuid());
  return user && user->pw_name && *user->pw_name ? user->pw_name : "player";
}

bool IsSameMailbox(const MailAccount& one, const MailAccount& other) {
  const auto named = [](const MailAccount& account) {
    return std::tie(account.MailKind, account.MyAddress, account.UserName, account.ImapHost);
  };
  return named(one) == named(other);
}

bool HasSameServers(const MailAccount& one, const MailAccount& other) {
  const auto servers = [](const MailAccount& account) {
    return std::tie(account.ImapPort, account.ImapSecurity, account.SmtpHost, account.SmtpPort,
                    account.SmtpSecurity);
  };
  return servers(one) == servers(other);
}

bool IsBlank(const std::string& text) { return text.find_first_not_of(' ') == std::string::npos; }

}  // namespace

MailAccount LoadMailAccount() {
  MailAccount account;
  account.PostFolder = desktop::DefaultPostFolder();
  for (const auto& [name, member, network] : textFields) {
    account.*member = platform::ReturnValue(Stored(name), account.*member);
  }
  for (const auto& [name, member] : portFields) {
    const auto stored = Stored(name);
    const auto port = stored ? platform::ToInteger32(*stored) : std::nullopt;
    if (port && *port > 0 && *port < 65536) account.*member = *port;
  }
  if (const auto stored = Stored(sendPage)) {
    account.SendPage = platform::ToBoolean(*stored).value_or(true);
  }
  if (!account.PostFolder.ends_with('/')) account.PostFolder += '/';
  return account;
}

std::string WhyNoAccount() {
  if (!platform::IsEmptyValue(Stored("MailKind"))) return {};
  return "There is no mail account yet: \"tarvolenix-cli account set MailKind=KIND MyName=NAME "
         "MyAddress=ADDRESS\" sets one up, with Post, Imap or System as KIND.";
}

MailAccount WithLoginName(MailAccount account) {
  if (IsBlank(account.MyName)) account.MyName = LoginName();
  if (IsBlank(account.MyAddress)) account.MyAddress = LoginName() + "@localhost";
  return account;
}

bool SaveMailAccount(const MailAccount& account) {
  const bool post = account.MailKind == "Post";
  platform::SettingsStore::Values values;
  for (const auto& [name, member, network] : textFields) {
    if (!post || !network) values.emplace_back(name, account.*member);
  }
  for (const auto& [name, member] : portFields) {
    if (!post) values.emplace_back(name, std::to_string(account.*member));
  }
  values.emplace_back(sendPage, platform::BooleanText(account.SendPage));
  return platform::WriteRegistry(platform::mailSection, values);
}

bool HasUsableAddress(const MailAccount& account) {
  const std::string& address = account.MyAddress;
  if (account.MailKind != "Post") return letters::IsMailAddress(address);
  return !IsBlank(address) && letters::IsMailAddress(LocalAddress(address));
}

MailAccount WithAbsolutePostFolder(MailAccount account) {
  const std::filesystem::path user = platform::Process().UserFolder;
  account.PostFolder = (user / account.PostFolder).string();
  return account;
}

bool NeedsPassword(const MailAccount& account) {
  return account.MailKind == "Imap" && account.TokenCommand.empty();
}

std::string PasswordKey(const MailAccount& account) {
  const std::string key = account.UserName + '@' + account.ImapHost;
  return account.SignIn.empty() ? key : "sign-in " + account.SignIn + ' ' + key;
}

void ReportAccountTrouble(const std::string& text) {
  if (platform::Process().Stopping) return;  // he has ended the program over the keyring's question
  platform::ShowMessage(platform::ErrorIcon, "Mail account", text, "Ok", {}, false,
                        platform::FailureSound);
}

void ReportUnkept(Secret secret) {
  ReportAccountTrouble(std::string("Your ") + NameOf(secret) +
                       " could not be kept: Tarvolenix will ask for it again at the next start.");
}

MailAccount WithLaterChanges(MailAccount answered, const MailAccount& asked,
                             const MailAccount& stored) {
  if (!IsSameMailbox(answered, asked) || answered.TokenCommand != asked.TokenCommand ||
      answered.SignIn != asked.SignIn) {
    return answered;
  }
  // What he says of servers is of those that he was shown.
  if (!IsSameMailbox(stored, asked) && !HasSameServers(answered, asked)) return answered;
  const auto follow = [&](auto member) {
    if (answered.*member == asked.*member) answered.*member = stored.*member;
  };
  for (const TextField& field : textFields) follow(field.member);
  for (const PortField& field : portFields) follow(field.member);
  follow(&MailAccount::SendPage);
  return answered;
}

bool SaveAccountAnswer(const AccountAnswer& answer, Passwords& passwords) {
  const MailAccount& account = answer.account;
  const MailAccount before = LoadMailAccount();
  if (!SaveMailAccount(account)) {
    ReportAccountTrouble("Your mail account can't be stored.");
    return false;
  }
  const bool given = answer.password && NeedsPassword(account);
  if (given && !passwords.Write(PasswordKey(account), *answer.password)) {
    ReportUnkept(SecretOf(account));
  }
  // The plain password may have waited for the sign-in.
  if (given && !account.SignIn.empty()) passwords.Forget(account.UserName + '@' + account.ImapHost);
  // A password is good until the sign-in that is to stand for it has taken place.
  const bool isPending =
      !account.SignIn.empty() && !given && before.SignIn.empty() && IsSameMailbox(account, before);
  const bool another =
      !isPending && (!NeedsPassword(account) || PasswordKey(account) != PasswordKey(before));
  if (NeedsPassword(before) && another && !passwords.Forget(PasswordKey(before))) {
    ReportAccountTrouble(std::string("The ") + NameOf(SecretOf(before)) +
                         " of your earlier mail account could not be removed.");
  }
  return true;
}

}  // namespace post

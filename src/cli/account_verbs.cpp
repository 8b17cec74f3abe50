// SPDX-License-Identifier: GPL-3.0-or-later
// The verbs of the mail account.
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <iostream>
#include <optional>
#include <thread>

#include "cli/verbs.h"
#include "letters/mail_text.h"
#include "mail/character_count.h"
#include "platform/files.h"
#include "platform/mail_address.h"
#include "platform/utf8.h"
#include "post/account_check.h"
#include "post/accounts/known_providers.h"
#include "post/accounts/mail_account.h"
#include "post/outbox.h"
#include "sign_in/device_sign_in.h"

namespace cli {
namespace {

using post::MailAccount;
using Text = std::string MailAccount::*;
using Port = int MailAccount::*;
using Switch = bool MailAccount::*;

/// Nothing that would damage a mail, a setting or a game.
std::string CheckLine(const std::string& value) {
  if (!platform::IsUtf8(value)) return "is no UTF-8";
  return letters::WithoutReserved(value) == value ? "" : "holds a \"|\" or a control character";
}

std::string CheckFilled(const std::string& value) {
  return value.find_first_not_of(' ') == std::string::npos ? "is blank" : CheckLine(value);
}

std::string CheckName(const std::string& value) {
  return mail::CharacterCount(value) > 50 ? "is longer than 50 characters" : CheckFilled(value);
}

/// The shell's own "|" may stand here, because this goes nowhere else.
std::string CheckCommand(const std::string& value) {
  std::string withoutPipes = value;
  std::replace(withoutPipes.begin(), withoutPipes.end(), '|', ' ');
  return CheckLine(withoutPipes);
}

std::string CheckKind(const std::string& value) {
  const bool known = value == "Post" || value == "Imap" || value == "System";
  return known ? "" : "is none of Post, Imap and System";
}

std::string CheckSecurity(const std::string& value) {
  const bool known = value == "Tls" || value == "StartTls" || value == "None";
  return known ? "" : "is none of Tls, StartTls and None";
}

/// A setting under its stored name: a text with its check, a port, or a switch.
struct Setting {
  const char* name;
  Text text;
  std::string (*check)(const std::string& value);  ///< what is wrong with it, blank where nothing
  Port port = nullptr;
  bool ofServers = true;  ///< what an address may suggest
  Switch isOn = nullptr;
};

constexpr Setting settings[] = {
    {"MailKind", &MailAccount::MailKind, CheckKind, nullptr, false},
    {"MyName", &MailAccount::MyName, CheckName, nullptr, false},
    {"MyAddress", &MailAccount::MyAddress, CheckFilled, nullptr, false},
    {"PostFolder", &MailAccount::PostFolder, CheckFilled, nullptr, false},
    {"ImapHost", &MailAccount::ImapHost, CheckLine},
    {"ImapPort", nullptr, nullptr, &MailAccount::ImapPort},
    {"ImapSecurity", &MailAccount::ImapSecurity, CheckSecurity},
    {"SmtpHost", &MailAccount::SmtpHost, CheckLine},
    {"SmtpPort", nullptr, nullptr, &MailAccount::SmtpPort},
    {"SmtpSecurity", &MailAccount::SmtpSecurity, CheckSecurity},
    {"UserName", &MailAccount::UserName, CheckLine},
    {"TokenCommand", &MailAccount::TokenCommand, CheckCommand, nullptr, false},
    {"SendPage", nullptr, nullptr, nullptr, false, &MailAccount::SendPage},
    {"SignIn", &MailAccount::SignIn, CheckLine, nullptr, false},
};

struct Change {
  const Setting* setting;
  std::string value;
};

/// Takes KEY=VALUE apart. What stands in a wrong argument isn't repeated: it may be a password.
Change ReadChange(const std::string& argument) {
  const auto equals = argument.find('=');
  if (equals == std::string::npos) throw UsageError("A setting is given as KEY=VALUE.");
  const std::string key = argument.substr(0, equals);
  if (key == "Password" || key == "password") {
    throw UsageError(
        "A password isn't taken from the command line, where others can see it: use --password "
        "and give it on standard input.");
  }
  for (const Setting& setting : settings) {
    if (key == setting.name) return {&setting, argument.substr(equals + 1)};
  }
  throw UsageError("There is no setting of that name; \"account show\" lists them all.");
}

int PortOf(const Change& change) {
  const std::string& text = change.value;
  int port = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), port);
  if (error != std::errc{} || end != text.data() + text.size() || port < 1 || port > 65535) {
    throw Refusal(std::string("The value of ") + change.setting->name +
                  " is no number from 1 to 65535.");
  }
  return port;
}

bool IsOn(const Change& change) {
  if (change.value == "true") return true;
  if (change.value == "false") return false;
  throw Refusal(std::string("The value of ") + change.setting->name +
                " is neither true nor false.");
}

void Apply(const Change& change, MailAccount& account) {
  const Setting& setting = *change.setting;
  if (setting.isOn) {
    account.*setting.isOn = IsOn(change);
    return;
  }
  if (setting.port) {
    account.*setting.port = PortOf(change);
    return;
  }
  const std::string wrong = setting.check(change.value);
  if (!wrong.empty()) {
    throw Refusal(std::string("The value of ") + setting.name + " " + wrong + ".");
  }
  account.*setting.text = change.value;
}

/// The servers follow the address unless somebody has chosen them, now or before.
void ApplyAll(const std::vector<Change>& changes, MailAccount& account) {
  const bool follow = post::HasGuessedServers(account);
  for (const bool ofServers : {false, true}) {
    for (const Change& change : changes) {
      if (change.setting->ofServers == ofServers) Apply(change, account);
    }
    if (!ofServers && follow && account.MailKind == "Imap") {
      account = post::WithGuessedServers(account);
    }
  }
  if (!account.PostFolder.ends_with('/')) account.PostFolder += '/';
}

/// A sign-in is good at one provider only, and makes way for a command.
void DropForeignSignIn(const std::vector<Change>& changes, const sign_in::ClientFiles& files,
                       MailAccount& account) {
  const bool isGiven = std::any_of(changes.begin(), changes.end(), [](const Change& change) {
    return change.setting->text == &MailAccount::SignIn;
  });
  if (isGiven || account.SignIn.empty() || account.MailKind != "Imap") return;
  const bool isForeign = account.SignIn != sign_in::ServiceNameFor(account, files);
  if (isForeign || !account.TokenCommand.empty()) account.SignIn.clear();
}

/// Refuses what couldn't work whatever the servers say.
void CheckAccount(const MailAccount& account) {
  // Of the post office a logon takes the user's login name where there is no address yet.
  const bool unknownYet = account.MailKind == "Post" && account.MyAddress.empty();
  if (!unknownYet && !post::HasUsableAddress(account)) {
    throw Refusal("The value of MyAddress is no mail address.");
  }
  if (account.MailKind == "Imap" &&
      (account.ImapHost.empty() || account.SmtpHost.empty() || account.UserName.empty())) {
    throw Refusal("A mail account of the kind Imap wants ImapHost, SmtpHost and UserName.");
  }
}

/// A terminal that doesn't show what is typed, for its lifetime.
class BlindTerminal {
 public:
  BlindTerminal() : isTerminal_(::tcgetattr(STDIN_FILENO, &before_) == 0) {
    if (!isTerminal_) return;
    termios blind = before_;
    blind.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &blind);
  }
  ~BlindTerminal() {
    if (isTerminal_) ::tcsetattr(STDIN_FILENO, TCSANOW, &before_);
  }
  BlindTerminal(const BlindTerminal&) = delete;
  BlindTerminal& operator=(const BlindTerminal&) = delete;

 private:
  termios before_{};
  bool isTerminal_;
};

std::string ReadPassword() {
  const BlindTerminal blind;
  std::string password;
  std::getline(std::cin, password);
  if (password.ends_with('\r')) password.pop_back();
  if (password.empty()) throw Refusal("There is no password in the first line of standard input.");
  if (!platform::IsUtf8(password)) throw Refusal("The password is no UTF-8.");
  return password;
}

std::optional<std::string> KeptPassword(const MailAccount& account, post::Passwords& passwords) {
  if (!post::NeedsPassword(account)) return std::nullopt;
  return passwords.Read(post::PasswordKey(account));
}

void PrintAccount(const MailAccount& account, post::Passwords& passwords) {
  JsonObject answer;
  for (const Setting& setting : settings) {
    if (setting.port) {
      answer.Add(setting.name, account.*setting.port);
    } else if (setting.isOn) {
      answer.Add(setting.name, account.*setting.isOn);
    } else {
      answer.Add(setting.name, account.*setting.text);
    }
  }
  answer.Add("PasswordKept", KeptPassword(account, passwords).has_value()).Print();
}

}  // namespace

bool ShowAccount(const Call& call) {
  const std::string reason = post::WhyNoAccount();
  MailAccount account = post::LoadMailAccount();
  if (!reason.empty()) account.MailKind.clear();
  PrintAccount(account, call.passwords);
  if (!reason.empty()) throw Refusal(reason);
  return true;
}

/// Nobody looks into the outbox of an address that isn't the user's any more.
void SettleWaitingMails(const std::string& oldAddress, const std::string& address,
                        const std::string& choice) {
  if (oldAddress.empty() || platform::SameAddress(oldAddress, address)) return;
  post::Outbox old(post::OutboxFolder(oldAddress)), next(post::OutboxFolder(address));
  if (old.Mails().empty()) return;
  try {
    if (choice == "send") return old.MoveTo(next);
    if (choice == "drop") return old.Drop();
  } catch (const platform::FileError& error) {
    throw Refusal(std::string("The mails that wait can't be taken over: ") + error.what() + ".");
  }
  throw Refusal("Mails wait to be sent from " + oldAddress +
                ": say --waiting send, to send them from the new address, or --waiting drop.");
}

bool SetAccount(const Call& call) {
  std::vector<Change> changes;
  for (const std::string& argument : call.arguments.Others()) {
    changes.push_back(ReadChange(argument));
  }
  const bool withPassword = call.arguments.Has("--password");
  if (changes.empty() && !withPassword) throw UsageError("There is nothing to set.");
  post::AccountAnswer answer{post::LoadMailAccount(), {}};
  ApplyAll(changes, answer.account);
  CheckAccount(answer.account);
  DropForeignSignIn(changes, call.tokens.Files(), answer.account);
  if (withPassword) {
    if (!post::NeedsPassword(answer.account)) {
      throw Refusal("A mail account of this kind, or with a token command, has no password.");
    }
    answer.password = ReadPassword();
    answer.account.SignIn.clear();
  }
  SettleWaitingMails(post::LoadMailAccount().MyAddress, answer.account.MyAddress,
                     call.arguments.Value("--waiting"));
  const bool stored = post::SaveAccountAnswer(answer, call.passwords);
  if (!stored || !call.messages.Empty()) throw Refusal(call.messages.TakeSentence({}));
  PrintAccount(answer.account, call.passwords);
  return true;
}

std::string SayNothingIsKept(const MailAccount& account) {
  return account.SignIn.empty()
             ? "No password is kept for this mail account."
             : "No sign-in is kept for this mail account: \"account sign-in\" makes one.";
}

bool TestAccount(const Call& call) {
  const MailAccount account =
      post::WithAbsolutePostFolder(post::WithLoginName(post::LoadMailAccount()));
  const auto password = KeptPassword(account, call.passwords);
  std::string reason = post::WhyNoAccount();
  if (reason.empty()) {
    reason = post::NeedsPassword(account) && !password
                 ? SayNothingIsKept(account)
                 : post::WhatIsWrongWith(account, password.value_or(""), &call.tokens);
  }
  JsonObject answer;
  answer.Add("ok", reason.empty());
  if (!reason.empty()) answer.Add("reason", reason);
  answer.Print();
  if (!reason.empty()) throw Refusal(reason);
  if (!call.messages.Empty()) throw Refusal(call.messages.TakeSentence({}));
  return true;
}

/// A sign-in takes its time, and another program may have the account changed meanwhile: all but
/// what the sign-in changes stays.
void KeepSignIn(const Call& call, const MailAccount& begunFor, const std::string& name,
                const std::string& secret) {
  post::AccountAnswer answer{post::LoadMailAccount(), secret};
  MailAccount& account = answer.account;
  for (const Text mailbox : {&MailAccount::MailKind, &MailAccount::MyAddress,
                             &MailAccount::UserName, &MailAccount::ImapHost}) {
    if (account.*mailbox == begunFor.*mailbox) continue;
    throw Refusal("The mail account was changed meanwhile: please sign in again.");
  }
  account.SignIn = name;
  account.TokenCommand.clear();
  const bool stored = post::SaveAccountAnswer(answer, call.passwords);
  if (!stored || !call.messages.Empty()) throw Refusal(call.messages.TakeSentence({}));
}

bool SignIn(const Call& call) {
  const std::string none = post::WhyNoAccount();
  if (!none.empty()) throw Refusal(none);
  const MailAccount account = post::LoadMailAccount();
  const auto& files = call.tokens.Files();
  const std::string name = sign_in::ServiceNameFor(account, files);
  if (account.MailKind != "Imap" || name.empty()) {
    throw Refusal("Nothing is known of a sign-in at this account's mail provider.");
  }
  const post::Patience patience(std::chrono::seconds(30));
  const auto service = sign_in::WithMetadata(sign_in::ServiceNamed(name, files),
                                             &sign_in::Service::device, patience);
  const auto code = sign_in::BeginDeviceSignIn(service, patience);
  JsonObject begun;
  begun.Add("address", code.address).Add("code", code.userCode);
  const std::string remark = sign_in::RemarkOn(files);
  if (!remark.empty()) begun.Add("remark", remark);
  begun.Print();
  std::cout.flush();
  const auto pause = [](std::chrono::seconds time) { std::this_thread::sleep_for(time); };
  KeepSignIn(call, account, name,
             sign_in::AwaitDeviceSignIn(service, code, pause, patience).refresh);
  JsonObject().Add("ok", true).Print();
  return true;
}

}  // namespace cli

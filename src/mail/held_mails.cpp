// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/held_mails.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>
#include <utility>

#include "platform/conversions.h"
#include "platform/fingerprint.h"
#include "platform/mail_address.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "platform/whole_file.h"

namespace mail {
namespace {

/// More than anybody answers, and few enough for the disk: of all, and of one sender, so that one
/// who writes very many hides nobody else.
constexpr std::ptrdiff_t mostWaiting = 200;
constexpr std::ptrdiff_t mostOfSender = 5;

constexpr std::array<std::string_view, 6> objectionNames = {"",      "address", "history",
                                                            "ended", "flood",   "form"};
constexpr std::array<std::string_view, 4> stateEndings = {".new", ".asked", ".refused", ".taken"};

std::string Folder() { return platform::Process().DataPath + "Held/"; }

std::string_view EndingOf(HeldState state) { return stateEndings[static_cast<std::size_t>(state)]; }

std::string PathOf(const HeldMail& mail) {
  return Folder().append(mail.id).append(EndingOf(mail.state));
}

Objection ObjectionNamed(std::string_view name) {
  const auto found = std::find(objectionNames.begin(), objectionNames.end(), name);
  return found == objectionNames.end() ? Objection::None
                                       : static_cast<Objection>(found - objectionNames.begin());
}

std::string Content(const HeldMail& held) {
  const auto line = [](std::string_view key, std::string_view value) {
    return std::string(key).append(": ").append(value).append("\n");
  };
  return line("Why", NameOf(held.why)) +
         line("Game", held.gameID ? std::to_string(*held.gameID) : "") +
         line("Since", std::to_string(held.since)) + line("File", held.mail.isFile ? "yes" : "no") +
         line("Name", held.mail.name) + line("Address", held.mail.address) +
         line("Subject", held.mail.subject) + "\n" + held.mail.text;
}

void TakeHeader(std::string_view key, std::string_view value, HeldMail& held) {
  if (key == "Why") held.why = ObjectionNamed(value);
  if (key == "Game") held.gameID = platform::ToInteger32(value);
  if (key == "Since") std::from_chars(value.data(), value.data() + value.size(), held.since);
  if (key == "File") held.mail.isFile = value == "yes";
  if (key == "Name") held.mail.name = value;
  if (key == "Address") held.mail.address = value;
  if (key == "Subject") held.mail.subject = value;
}

/// False for a file that is none of these, or was cut off.
bool ReadContent(std::string_view content, HeldMail& held) {
  while (!content.starts_with('\n')) {
    const auto end = content.find('\n');
    const auto colon = content.find(": ");
    if (end == std::string_view::npos || colon >= end) return false;
    TakeHeader(content.substr(0, colon), content.substr(colon + 2, end - colon - 2), held);
    content.remove_prefix(end + 1);
  }
  held.mail.text = content.substr(1);
  return held.why != Objection::None;
}

/// A name of the folder as a mail without its content; nothing where it is none.
std::optional<HeldMail> Named(std::string_view name) {
  for (const HeldState state :
       {HeldState::New, HeldState::Asked, HeldState::Refused, HeldState::Taken}) {
    if (!name.ends_with(EndingOf(state))) continue;
    HeldMail held;
    held.id = name.substr(0, name.size() - EndingOf(state).size());
    held.state = state;
    return held;
  }
  return std::nullopt;
}

std::vector<HeldMail> AllNamed() {
  std::vector<HeldMail> mails;
  if (!platform::TheFiles().Exists(Folder())) return mails;
  for (const std::string& name : platform::TheFiles().List(Folder())) {
    if (auto mail = Named(name)) mails.push_back(std::move(*mail));
  }
  return mails;
}

bool CanBeRead(HeldMail& mail) {
  try {
    return ReadContent(platform::TheFiles().Read(PathOf(mail)), mail);
  } catch (const platform::FileError&) {
    return false;
  }
}

template <typename Wanted>
std::vector<HeldMail> MailsThat(const Wanted& isWanted) {
  std::vector<HeldMail> mails;
  for (HeldMail& mail : AllNamed()) {
    if (isWanted(mail.state) && CanBeRead(mail)) mails.push_back(std::move(mail));
  }
  std::stable_sort(mails.begin(), mails.end(),
                   [](const HeldMail& a, const HeldMail& b) { return a.since < b.since; });
  return mails;
}

void Write(const HeldMail& mail) {
  platform::TheFiles().MakeFolder(Folder());
  platform::ReplaceFile(PathOf(mail), Content(mail), Folder() + "unfinished");
}

}  // namespace

std::string_view NameOf(Objection objection) {
  return objectionNames[static_cast<std::size_t>(objection)];
}

std::string IdentifierOf(const ReceivedMail& mail) {
  return platform::Fingerprint(platform::ComparableAddress(mail.address) + '\n' + mail.text);
}

std::optional<HeldMail> FindHeldMail(const std::string& id) {
  for (HeldMail& mail : AllNamed()) {
    if (mail.id == id && ReadContent(platform::TheFiles().Read(PathOf(mail)), mail))
      return std::move(mail);
  }
  return std::nullopt;
}

std::optional<HeldMail> Hold(HeldMail mail) {
  mail.id = IdentifierOf(mail.mail);
  if (auto known = FindHeldMail(mail.id)) return known;
  const auto waiting = WaitingMails();
  const auto ofSender = std::count_if(waiting.begin(), waiting.end(), [&mail](const auto& other) {
    return platform::SameAddress(other.mail.address, mail.mail.address);
  });
  if (std::ssize(waiting) >= mostWaiting || ofSender >= mostOfSender) return std::nullopt;
  mail.since = platform::TheSeams().clock->Seconds();
  Write(mail);
  return mail;
}

std::vector<HeldMail> WaitingMails() {
  return MailsThat(
      [](HeldState state) { return state == HeldState::New || state == HeldState::Asked; });
}

std::vector<HeldMail> RefusedMails() {
  return MailsThat([](HeldState state) { return state == HeldState::Refused; });
}

void SetState(HeldMail& mail, HeldState state) {
  if (mail.state == state) return;
  const std::string before = PathOf(mail);
  mail.state = state;
  platform::TheFiles().Rename(before, PathOf(mail));
}

void HoldFor(HeldMail& mail, Objection why) {
  mail.why = why;
  SetState(mail, HeldState::New);
  Write(mail);
}

}  // namespace mail

// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/outbox.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <random>
#include <utility>

#include "platform/conversions.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "platform/whole_file.h"
#include "post/accounts/local_address.h"

namespace post {
namespace {

constexpr std::string_view firstLine = "Tarvolenix mail on its way 1\n";
constexpr std::string_view nameEnd = ".mail";
constexpr int numberLength = 9;

constexpr std::pair<QueueState, std::string_view> stateNames[] = {
    {QueueState::Waiting, "waiting"},
    {QueueState::Perhaps, "perhaps"},
    {QueueState::Failed, "failed"},
    {QueueState::FailedAndTold, "told"},
};

std::string NameOf(QueueState state) {
  return std::string(stateNames[static_cast<std::size_t>(state)].second);
}

void Write(std::string& text, std::string_view name, std::string_view value) {
  text.append(name).append(" ").append(std::to_string(value.size())).append("\n");
  text.append(value).append("\n");
}

std::string Written(const QueuedMail& queued) {
  std::string text(firstLine);
  const letters::OutgoingMail& mail = queued.mail;
  for (const letters::Mailbox& recipient : mail.to) {
    Write(text, "ToName", recipient.name);
    Write(text, "ToAddress", recipient.address);
  }
  Write(text, "Thread", mail.thread);
  Write(text, "MessageID", mail.messageID);
  Write(text, "Subject", mail.subject);
  Write(text, "Text", mail.text);
  Write(text, "Page", mail.page.html);
  Write(text, "Picture", mail.page.picture);
  Write(text, "Queued", std::to_string(queued.queued));
  Write(text, "NextTry", std::to_string(queued.nextTry));
  Write(text, "Tries", std::to_string(queued.tries));
  Write(text, "State", NameOf(queued.state));
  Write(text, "Reason", queued.reason);
  Write(text, "End", {});
  return text;
}

template <typename Number>
bool TakeNumber(std::string_view text, Number& number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc{} && end == text.data() + text.size() && number >= 0;
}

/// Takes the next name and value from the front; nothing where they aren't whole.
std::optional<std::pair<std::string_view, std::string_view>> TakeField(std::string_view& text) {
  const auto lineEnd = text.find('\n');
  const auto blank = text.substr(0, lineEnd).find(' ');
  if (lineEnd == std::string_view::npos || blank == std::string_view::npos) return std::nullopt;
  std::size_t length = 0;
  if (!TakeNumber(text.substr(blank + 1, lineEnd - blank - 1), length)) return std::nullopt;
  const std::string_view name = text.substr(0, blank);
  text.remove_prefix(lineEnd + 1);
  if (text.size() <= length || text[length] != '\n') return std::nullopt;
  const std::string_view value = text.substr(0, length);
  text.remove_prefix(length + 1);
  return std::pair(name, value);
}

bool TakeState(std::string_view value, QueueState& state) {
  for (const auto& [known, name] : stateNames) {
    if (name != value) continue;
    state = known;
    return true;
  }
  return false;
}

/// False where the value can't be. What a later version adds is passed over.
bool Take(std::string_view name, std::string_view value, QueuedMail& queued) {
  letters::OutgoingMail& mail = queued.mail;
  const std::pair<std::string_view, std::string*> texts[] = {
      {"Thread", &mail.thread},  {"MessageID", &mail.messageID}, {"Subject", &mail.subject},
      {"Text", &mail.text},      {"Page", &mail.page.html},      {"Picture", &mail.page.picture},
      {"Reason", &queued.reason}};
  for (const auto& [known, text] : texts) {
    if (name == known) *text = value;
  }
  if (name == "ToName") mail.to.push_back({std::string(value), {}});
  if (name == "ToAddress" && !mail.to.empty()) mail.to.back().address = value;
  if (name == "Queued") return TakeNumber(value, queued.queued);
  if (name == "NextTry") return TakeNumber(value, queued.nextTry);
  if (name == "Tries") return TakeNumber(value, queued.tries);
  if (name == "State") return TakeState(value, queued.state);
  return true;
}

std::optional<QueuedMail> ReadMail(std::string_view text) {
  if (!text.starts_with(firstLine)) return std::nullopt;
  text.remove_prefix(firstLine.size());
  QueuedMail queued;
  while (const auto field = TakeField(text)) {
    const auto& [name, value] = *field;
    if (name == "End") return queued.mail.to.empty() ? std::nullopt : std::optional(queued);
    if (!Take(name, value, queued)) return std::nullopt;
  }
  return std::nullopt;
}

int NumberOf(std::string_view name) {
  int number = 0;
  return TakeNumber(name.substr(0, name.find('-')), number) ? number : 0;
}

/// Two processes may take the same number, but never the same name.
std::string NewName(const std::vector<std::string>& names) {
  int number = 0;
  for (const std::string& name : names) number = std::max(number, NumberOf(name));
  std::random_device random;
  return platform::ZeroFilled(number + 1, numberLength) + '-' + std::to_string(random()) +
         std::string(nameEnd);
}

bool IsSameThread(const QueuedMail& one, const QueuedMail& other) {
  return !one.mail.thread.empty() && one.mail.thread == other.mail.thread;
}

}  // namespace

std::string OutboxFolder(std::string_view address) {
  return platform::Process().DataPath + "Outbox/" + BoxName(address) + '/';
}

std::vector<std::string> Outbox::Names() {
  std::vector<std::string> names;
  if (!platform::TheFiles().Exists(folder_)) return names;
  for (std::string& name : platform::TheFiles().List(folder_)) {
    if (name.ends_with(nameEnd)) names.push_back(std::move(name));
  }
  std::sort(names.begin(), names.end());
  return names;
}

/// Nothing for what is no mail, or is gone. What can't be read just now is as it was.
std::optional<QueuedMail> Outbox::ReadFile(const std::string& name) {
  try {
    auto mail = ReadMail(platform::TheFiles().Read(folder_ + name));
    if (!mail) return std::nullopt;
    mail->file = name;
    known_[name] = *mail;
    return mail;
  } catch (const platform::FileError&) {
    const auto known = known_.find(name);
    if (known == known_.end() || !platform::TheFiles().Exists(folder_ + name)) return std::nullopt;
    return known->second;
  }
}

/// Without those that a newer one has replaced.
std::vector<QueuedMail> Outbox::Read(const std::vector<std::string>& names) {
  std::vector<QueuedMail> mails;
  for (const std::string& name : names) {
    auto mail = ReadFile(name);
    if (!mail) continue;
    std::erase_if(mails, [&mail](const auto& older) { return IsSameThread(older, *mail); });
    mails.push_back(std::move(*mail));
  }
  return mails;
}

std::vector<QueuedMail> Outbox::Mails() {
  const std::lock_guard lock(mutex_);
  return Read(Names());
}

void Outbox::MakeFolder() {
  const auto above = folder_.rfind('/', folder_.size() - 2);
  platform::TheFiles().MakeFolder(folder_.substr(0, above + 1));
  platform::TheFiles().MakeFolder(folder_);
}

QueuedMail Outbox::Add(const letters::OutgoingMail& mail, std::int64_t now) {
  const std::lock_guard lock(mutex_);
  MakeFolder();
  const std::vector<std::string> names = Names();
  QueuedMail queued{NewName(names), mail, now, 0, 0, QueueState::Waiting, {}};
  platform::ReplaceFile(folder_ + queued.file, Written(queued));
  known_[queued.file] = queued;
  for (const QueuedMail& older : Read(names)) {
    if (!IsSameThread(older, queued)) continue;
    try {
      platform::TheFiles().Remove(folder_ + older.file);
    } catch (const platform::FileError&) {
      // sent meanwhile; else it counts for nothing from now on
    }
  }
  return queued;
}

bool Outbox::IsThere(const QueuedMail& mail) {
  const std::lock_guard lock(mutex_);
  return platform::TheFiles().Exists(folder_ + mail.file);
}

bool Outbox::Update(const QueuedMail& mail) {
  const std::lock_guard lock(mutex_);
  if (!platform::TheFiles().Exists(folder_ + mail.file)) return false;
  platform::ReplaceFile(folder_ + mail.file, Written(mail));
  return true;
}

/// First those whose place it has taken, if they are still there: they would count again.
void Outbox::Remove(const QueuedMail& mail) {
  const std::lock_guard lock(mutex_);
  const auto behind = known_.upper_bound(mail.file);
  for (auto known = known_.begin(); known != behind;) {
    const auto& [file, queued] = *known;
    const bool goes = file == mail.file || IsSameThread(queued, mail);
    if (goes && platform::TheFiles().Exists(folder_ + file))
      platform::TheFiles().Remove(folder_ + file);
    known = goes ? known_.erase(known) : std::next(known);
  }
}

std::unique_ptr<platform::HeldLock> Outbox::TryToDeliver() {
  const std::lock_guard lock(mutex_);
  MakeFolder();
  return platform::TheFiles().TryLock(folder_ + "deliver.lock");
}

std::unique_ptr<platform::HeldLock> Outbox::LockOrRaise() {
  auto lock = TryToDeliver();
  if (!lock) throw platform::FileError("another program sends them just now");
  return lock;
}

void Outbox::Drop() {
  const auto lock = LockOrRaise();
  for (const QueuedMail& mail : Mails()) Remove(mail);
}

void Outbox::MoveTo(Outbox& other) {
  const auto lock = LockOrRaise();
  for (QueuedMail& mail : Mails()) {
    other.Add(mail.mail, mail.queued);
    Remove(mail);
  }
}

}  // namespace post

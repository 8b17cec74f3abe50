// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/memory_mail.h"

#include <utility>

namespace fakes {

using platform::MailError;

MemoryMail::MemoryMail() : session(*this), messages(*this) {}

void MemoryMail::Called(const std::string& member) {
  calls.push_back(member);
  if (failing.contains(member)) throw MailError(member + " fails");
}

void MemoryMail::AnswerLook() {
  const auto answer = std::move(ready_.front());
  ready_.pop_front();
  answer();
}

void MemoryMail::Session::SignOn() {
  if (mail_.log) mail_.log->emplace_back("sign on");
  mail_.Called("SignOn");
  id_ = 1;
}

void MemoryMail::Session::SignOff() {
  if (mail_.log) mail_.log->emplace_back("sign off");
  mail_.Called("SignOff");
  id_ = 0;
}

long MemoryMail::Messages::SessionID() {
  if (mail_.failing.contains("SessionID")) throw MailError("SessionID fails");
  return sessionID_;
}

void MemoryMail::Messages::FetchUnreadOnly(bool unreadOnly) {
  mail_.Called("FetchUnreadOnly");
  unreadOnly_ = unreadOnly;
}

void MemoryMail::Messages::Prefetch(std::function<void()> ready) {
  mail_.Called("Prefetch");
  mail_.ready_.push_back([this, ready = std::move(ready)] {
    mail_.prefetched = !mail_.answersStale;
    ready();
  });
  if (!mail_.answersLater) mail_.AnswerLook();
}

void MemoryMail::Messages::Fetch() {
  mail_.prefetched = false;
  mail_.Called("Fetch");
  set_.clear();
  moreToCome_ = false;
  for (std::size_t i = 0; i < mail_.inbox.size(); ++i) {
    InboxMail& mail = mail_.inbox[i];
    if (mail.brought || (unreadOnly_ && mail.read)) continue;
    moreToCome_ = set_.size() == mail_.perLook;
    if (moreToCome_) break;
    mail.brought = true;
    set_.push_back(i);
  }
  for (InboxMail& mail : mail_.inbox) mail.brought = mail.brought && moreToCome_;
}

void MemoryMail::Messages::Flush() {
  mail_.Called("Flush");
  CarryOutMarks();
}

void MemoryMail::Messages::FlushLater() {
  mail_.calls.emplace_back("FlushLater");
  CarryOutMarks();
}

void MemoryMail::Messages::CarryOutMarks() {
  for (InboxMail& mail : mail_.inbox) mail.read = mail.read || std::exchange(mail.marked, false);
}

InboxMail& MemoryMail::Messages::Current() {
  if (index_ < 0 || index_ >= MsgCount()) throw MailError("no such message");
  return mail_.inbox.at(set_.at(static_cast<std::size_t>(index_)));
}

std::string MemoryMail::Messages::MsgSubject() {
  mail_.Called("MsgSubject");
  return Current().subject;
}

std::string MemoryMail::Messages::MsgNoteText() {
  mail_.Called("MsgNoteText");
  Current().marked = true;
  return Current().text;
}

std::string MemoryMail::Messages::MsgOrigDisplayName() {
  mail_.Called("MsgOrigDisplayName");
  return Current().senderName;
}

std::string MemoryMail::Messages::MsgOrigAddress() {
  mail_.Called("MsgOrigAddress");
  return Current().senderAddress;
}

void MemoryMail::Messages::RecipIndex(int index) { recipient_ = static_cast<std::size_t>(index); }

SentMail& MemoryMail::Messages::CurrentRecipient() {
  if (recipient_ >= recipients_.size()) {
    recipient_ = recipients_.size();
    recipients_.emplace_back();
  }
  return recipients_[recipient_];
}

void MemoryMail::Messages::RecipAddress(const std::string& address) {
  CurrentRecipient().recipientAddress = address;
}

void MemoryMail::Messages::RecipDisplayName(const std::string& name) {
  CurrentRecipient().recipientName = name;
}

void MemoryMail::Messages::Delete() {
  mail_.Called("Delete");
  Current();
  const auto position = set_.begin() + index_;
  const std::size_t deleted = *position;
  set_.erase(position);
  mail_.inbox.erase(mail_.inbox.begin() + static_cast<std::ptrdiff_t>(deleted));
  for (std::size_t& index : set_) {
    if (index > deleted) --index;
  }
}

void MemoryMail::Messages::DeleteRecipient() {
  recipients_.erase(recipients_.begin() + static_cast<std::ptrdiff_t>(recipient_));
}

void MemoryMail::Messages::Send() {
  mail_.Called("Send");
  for (const SentMail& recipient : recipients_) {
    mail_.sent.push_back(
        {outgoing_.subject, outgoing_.text, recipient.recipientName, recipient.recipientAddress});
  }
}

void MemoryMail::Messages::Show(bool details) {
  mail_.Called(details ? "Show details" : "Show");
  recipients_.clear();
  for (const auto& [name, address] : mail_.picked) recipients_.push_back({{}, {}, name, address});
  recipient_ = 0;
}

void MemoryMail::Messages::ResolveName() {
  mail_.Called("ResolveName");
  SentMail& typed = CurrentRecipient();
  std::vector<platform::Recipient> meant;
  for (const platform::Recipient& person : mail_.people) {
    if (person.name.starts_with(typed.recipientName)) meant.push_back(person);
  }
  if (meant.empty()) throw MailError("nobody is meant");
  if (meant.size() > 1 && !addressResolveUI_) throw MailError("several are meant");
  typed.recipientName = meant[0].name;
  typed.recipientAddress = meant[0].address;
}

}  // namespace fakes

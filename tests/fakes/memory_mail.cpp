// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/memory_mail.h"

#include <utility>

namespace fakes {

using platform::MailError;
using platform::Recipient;

void MemoryMail::Called(const std::string& member) {
  calls.push_back(member);
  if (failing.contains(member)) throw MailError(member + " fails");
}

void MemoryMail::AnswerLook() {
  const auto ready = std::move(ready_.front());
  ready_.pop_front();
  prefetched_ = !answersStale;
  ready();
}

void MemoryMail::SignOn() {
  if (log) log->emplace_back("sign on");
  Called("SignOn");
  session_ = 1;
}

void MemoryMail::SignOff() {
  if (log) log->emplace_back("sign off");
  Called("SignOff");
  session_ = 0;
}

void MemoryMail::Prefetch(std::function<void()> ready) {
  Called("Prefetch");
  ready_.push_back(std::move(ready));
  if (!answersLater) AnswerLook();
}

void MemoryMail::Fetch() {
  prefetched_ = false;
  Called("Fetch");
  set_.clear();
  moreToCome_ = false;
  for (std::size_t i = 0; i < inbox.size() && !moreToCome_; ++i) {
    if (inbox[i].brought || (unreadOnly_ && inbox[i].read)) continue;
    moreToCome_ = set_.size() == perLook;
    if (!moreToCome_) set_.push_back(i);
  }
  for (const std::size_t i : set_) inbox[i].brought = true;
  for (InboxMail& mail : inbox) mail.brought = mail.brought && moreToCome_;
}

std::string MemoryMail::MsgNoteText() {
  Called("MsgNoteText");
  Current().marked = true;
  return Current().text;
}

std::string MemoryMail::MsgOrigAddress() {
  Called("MsgOrigAddress");
  return Current().senderAddress;
}

void MemoryMail::Delete() {
  Called("Delete");
  const std::size_t deleted = set_.at(static_cast<std::size_t>(index_));
  inbox.erase(inbox.begin() + static_cast<std::ptrdiff_t>(deleted));
  set_.erase(set_.begin() + index_);
  for (std::size_t& index : set_) index -= index > deleted ? 1 : 0;
}

void MemoryMail::Flush() {
  Called("Flush");
  CarryOutMarks();
}

void MemoryMail::FlushLater() {
  calls.emplace_back("FlushLater");
  CarryOutMarks();
}

void MemoryMail::CarryOutMarks() {
  for (InboxMail& mail : inbox) mail.read = mail.read || std::exchange(mail.marked, false);
}

Recipient& MemoryMail::CurrentRecipient() {
  if (recipient_ >= recipients_.size()) {
    recipient_ = recipients_.size();
    recipients_.emplace_back();
  }
  return recipients_[recipient_];
}

void MemoryMail::DeleteRecipient() {
  recipients_.erase(recipients_.begin() + static_cast<std::ptrdiff_t>(recipient_));
}

void MemoryMail::Send() {
  Called("Send");
  for (const auto& [name, address] : recipients_) {
    sent.push_back({subject_, text_, name, address, page_});
  }
}

void MemoryMail::Show(bool) {
  Called("Show");
  recipients_ = picked;
  recipient_ = 0;
}

void MemoryMail::ResolveName() {
  Called("ResolveName");
  Recipient& typed = CurrentRecipient();
  std::vector<Recipient> meant;
  for (const Recipient& person : people) {
    if (person.name.starts_with(typed.name)) meant.push_back(person);
  }
  if (meant.empty()) throw MailError("nobody is meant");
  if (meant.size() > 1 && !mayAsk_) throw MailError("several are meant");
  typed = meant[0];
}

}  // namespace fakes

// SPDX-License-Identifier: GPL-3.0-or-later
#include "letters/message_ids.h"

#include <algorithm>
#include <random>

#include "letters/mail_text.h"
#include "platform/fingerprint.h"

namespace letters {
namespace {

constexpr std::string_view start = "<tarvolenix.";

bool IsOfThread(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '-';
}

/// Whatever the thread is called, it can't end the header's field.
std::string Named(std::string_view thread) {
  std::string name(thread);
  std::replace_if(
      name.begin(), name.end(), [](char c) { return !IsOfThread(c); }, '-');
  return std::string(start) + name;
}

}  // namespace

std::string NewMessageID(const OutgoingMail& mail) {
  std::random_device random;
  const std::string sender = EnvelopeAddress(mail.from.address);
  const std::string left = mail.thread.empty() ? std::string(start) : Named(mail.thread) + '.';
  return left + std::to_string(random()) + '.' + std::to_string(random()) +
         sender.substr(sender.rfind('@')) + '>';
}

std::string RootIDOf(std::string_view thread) { return Named(thread) + "@tarvolenix.invalid>"; }

std::string ContentIDOf(std::string_view content) {
  return platform::Fingerprint(content) + "@tarvolenix.invalid";
}

std::string ThreadOfID(std::string_view messageID) {
  if (!messageID.starts_with(start)) return {};
  messageID.remove_prefix(start.size());
  const auto end = std::find_if_not(messageID.begin(), messageID.end(), IsOfThread);
  const auto size = static_cast<std::size_t>(end - messageID.begin());
  return messageID.substr(size).starts_with('.') ? std::string(messageID.substr(0, size))
                                                 : std::string{};
}

}  // namespace letters

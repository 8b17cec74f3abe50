// SPDX-License-Identifier: GPL-3.0-or-later
#include "letters/mail_text.h"

#include <algorithm>

#include "letters/delivery_report.h"
#include "letters/mail_library.h"
#include "letters/mime_text.h"
#include "platform/ascii.h"
#include "platform/move_subject.h"

namespace letters {
namespace {

using platform::MailError;

std::string HeaderSubject(const vmime::header& header) {
  const auto value = FieldValue<vmime::text>(header, vmime::fields::SUBJECT);
  return value ? ToUtf8(*value) : std::string{};
}

bool IsField(std::string_view line, std::string_view name) {
  return platform::SameWithoutCase(line.substr(0, line.find_first_of(": \t")), name);
}

/// The first field of that name as it stands in a header; empty where there is none.
std::string_view RawField(std::string_view header, std::string_view name) {
  for (std::size_t at = 0, end = 0; at < header.size(); at = end) {
    do {
      end = std::min(header.find('\n', end), header.size() - 1) + 1;
    } while (end < header.size() && (header[end] == ' ' || header[end] == '\t'));
    if (IsField(header.substr(at), name)) return header.substr(at, end - at);
  }
  return {};
}

/// The library makes up what an address lacks, from this machine's name even: only what stands in
/// the field counts, and only what can be answered.
std::string AddressIn(const std::string& rawField, const vmime::emailAddress& found) {
  const vmime::word& local = found.getLocalName();
  const vmime::word& domain = found.getDomainName();
  const std::string address = ToUtf8(local.getBuffer(), local.getCharset()) + "@" +
                              ToUtf8(domain.getBuffer(), domain.getCharset());
  const bool stands = rawField.find(address) != std::string::npos ||
                      rawField.find(found.generate()) != std::string::npos;
  return stands && IsMailAddress(address) ? address : std::string{};
}

Mailbox HeaderSender(const vmime::header& header, std::string_view bytes) {
  const auto value = FieldValue<vmime::mailbox>(header, vmime::fields::FROM);
  if (!value) return {};
  return {ToUtf8(value->getName()),
          AddressIn(ToUtf8(std::string(RawField(bytes, "from")), utf8), value->getEmail())};
}

/// Whether a program wrote the mail by itself, such as the notice that ours couldn't be delivered
/// or that its reader is away. It may contain our own mail, which must not come back as the
/// opponent's.
bool IsMachinesAnswer(const MimePart& mail) {
  const auto type = FieldValue<vmime::mediaType>(mail.header, vmime::fields::CONTENT_TYPE);
  if (type && *type == vmime::mediaType("multipart/report")) return true;
  const std::string_view field = RawField(mail.headerBytes, "auto-submitted");
  return platform::Lowered(field).find("auto-replied") != std::string::npos;
}

/// How many bytes the reserved character takes with which `text` begins; 0 for any other character.
std::size_t ReservedLength(std::string_view text) {
  const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  if (byte(0) < 32 || byte(0) == 127 || byte(0) == '|') return 1;
  if (byte(0) == 0xC2 && text.size() > 1 && byte(1) >= 0x80 && byte(1) < 0xA0) return 2;
  return text.starts_with("\u2028") || text.starts_with("\u2029") ? 3 : 0;
}

}  // namespace

std::string WithoutReserved(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const std::size_t reserved = ReservedLength(text);
    result += reserved > 0 ? ' ' : text.front();
    text.remove_prefix(std::max<std::size_t>(reserved, 1));
  }
  return result;
}

std::string WithFullStop(std::string text) {
  const bool isOpen =
      !text.empty() && std::string_view(".!?").find(text.back()) == std::string_view::npos;
  return isOpen ? text + '.' : text;
}

bool IsMailAddress(std::string_view text) {
  const auto at = text.rfind('@');
  if (at == std::string_view::npos || at == 0 || at + 1 == text.size()) return false;
  if (WithoutReserved(text) != text) return false;
  return std::none_of(text.begin(), text.end(), [](char c) {
    return std::string_view(" <>()[]{},;:\\\"").find(c) != std::string_view::npos;
  });
}

std::string SubjectOf(std::string_view bytes) {
  return RaisingMailErrors([bytes] {
    vmime::header header;
    header.parse(std::string(bytes));
    return HeaderSubject(header);
  });
}

bool CanBeOurs(std::string_view header) {
  try {
    if (platform::IsMoveSubject(SubjectOf(header))) return true;
    return RaisingMailErrors([header] { return CanBeReport(MimePart(header)); });
  } catch (const MailError&) {
    return false;  // what can't be read as a mail isn't one
  }
}

FetchedMail ParseMail(const std::string& bytes) {
  return RaisingMailErrors([&bytes] {
    const MimePart whole(bytes);
    const Mailbox sender = HeaderSender(whole.header, whole.headerBytes);
    FetchedMail mail;
    mail.subject = HeaderSubject(whole.header);
    mail.name = sender.name;
    mail.address = sender.address;
    if (CanBeReport(whole)) mail.undelivered = ReadReport(whole);
    if (mail.undelivered) return mail;
    if (IsMachinesAnswer(whole)) throw MailError("a machine's answer");
    if (!mail.address.empty()) mail.text = TextOf(whole);
    return mail;
  });
}

}  // namespace letters

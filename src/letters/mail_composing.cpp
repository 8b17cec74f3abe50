// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>

#include "letters/mail_library.h"
#include "letters/mail_parts.h"
#include "letters/mail_text.h"
#include "letters/message_ids.h"
#include "platform/ascii.h"
#include "platform/move_subject.h"

namespace letters {
namespace {

using platform::MailError;
using platform::subjectPrefix;

/// What fits into one line of a header beside the field's name.
constexpr std::size_t longestPlainValue = 66;

/// Bytes of a mail beyond which it goes without the page beside its text.
constexpr std::size_t greatestWithPage = 40'000;

/// Bytes of one encoded word, which with its frame then fits there too.
constexpr std::size_t longestEncoded = 39;

bool IsLetterOrDigit(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

std::string Trimmed(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return std::string(text);
}

/// A header's text as encoded words, each on a line of its own and none ending within a character.
std::string EncodedWords(std::string_view text) {
  std::string words;
  while (!text.empty()) {
    std::size_t size = std::min(text.size(), longestEncoded);
    while (size > 1 && size < text.size() && (text[size] & 0xC0) == 0x80) --size;
    const std::string word =
        Encoded(std::string(text.substr(0, size)), vmime::encoding(vmime::encodingTypes::BASE64));
    words.append(words.empty() ? "" : "\r\n ").append("=?utf-8?B?").append(word).append("?=");
    text.remove_prefix(size);
  }
  return words;
}

/// A text with its lines broken at single blanks, as a reader joins them again; blank where a line
/// would still be too long.
std::string Folded(std::string_view text) {
  std::string lines;
  while (text.size() > longestPlainValue) {
    std::size_t at = text.rfind(' ', longestPlainValue);
    while (at != text.npos && at > 0 && (text[at - 1] == ' ' || text[at + 1] == ' ')) {
      at = text.rfind(' ', at - 1);
    }
    if (at == text.npos || at == 0) return {};
    lines.append(text.substr(0, at)).append("\r\n");
    text.remove_prefix(at);
  }
  return lines.append(text);
}

/// The prefix stays readable in any case: servers that look for it in subjects may not decode them.
std::string SubjectValue(const std::string& subject) {
  std::string clean = WithoutReserved(subject);
  const bool plain =
      platform::IsAscii(clean) && clean.find("=?") == std::string::npos && Trimmed(clean) == clean;
  std::string folded = plain ? Folded(clean) : std::string{};
  if (!folded.empty()) return folded;
  const std::size_t ahead = subjectPrefix.size() + 1;
  const bool ours = clean.size() > ahead && clean.starts_with(std::string(subjectPrefix) + ' ');
  if (!ours) return EncodedWords(clean);
  return std::string(subjectPrefix) + "\r\n " + EncodedWords(clean.substr(ahead));
}

/// An address as the library writes it into a header, where all is ASCII.
std::string AddressValue(std::string_view local, std::string_view domain) {
  return vmime::emailAddress(vmime::word(std::string(local), utf8),
                             vmime::word(std::string(domain), utf8))
      .generate();
}

std::string MailboxValue(const Mailbox& mailbox) {
  const std::string envelope = EnvelopeAddress(mailbox.address);
  const auto at = envelope.rfind('@');
  std::string address = '<' + AddressValue(envelope.substr(0, at), envelope.substr(at + 1)) + '>';
  const std::string name = WithoutReserved(mailbox.name);
  if (name.empty()) return address;
  const bool plain = name.size() <= longestPlainValue && Trimmed(name) == name &&
                     std::all_of(name.begin(), name.end(),
                                 [](char c) { return IsLetterOrDigit(c) || c == ' '; }) &&
                     name.find("  ") == std::string::npos;
  const bool fits = plain && name.size() + address.size() < longestPlainValue;
  return (plain ? name : EncodedWords(name)) + (fits ? " " : "\r\n ") + address;
}

std::string RecipientsValue(const std::vector<Mailbox>& recipients) {
  std::string value;
  for (const Mailbox& recipient : recipients) {
    // Kept free for what reaches nobody, as a game has that came as a file. A server would take the
    // mail and say so only later.
    if (Trimmed(recipient.address).ends_with(".invalid")) {
      throw MailError("nobody has the address " + recipient.address);
    }
    value.append(value.empty() ? "" : ",\r\n ").append(MailboxValue(recipient));
  }
  return value;
}

/// What the mail belongs to, in each mail client's eyes.
std::string ThreadFields(const std::string& thread) {
  if (thread.empty()) return {};
  const std::string root = RootIDOf(thread);
  return "In-Reply-To: " + root + "\r\nReferences: " + root + "\r\n";
}

/// All fields but those that describe the content.
std::string HeaderOf(const OutgoingMail& mail) {
  const std::pair<const char*, std::string> fields[] = {
      {"From", MailboxValue(mail.from)},
      {"To", RecipientsValue(mail.to)},
      {"Subject", SubjectValue(mail.subject)},
      {"Date", vmime::datetime::now().generate()},
      {"Message-ID", WithoutReserved(mail.messageID.empty() ? NewMessageID(mail) : mail.messageID)},
      {"MIME-Version", "1.0"},
  };
  std::string header;
  for (const auto& [name, value] : fields) {
    header.append(name).append(": ").append(value).append("\r\n");
  }
  return header + ThreadFields(mail.thread);
}

}  // namespace

std::string EnvelopeAddress(std::string_view address) {
  const std::string trimmed = Trimmed(address);
  if (!IsMailAddress(trimmed)) throw MailError("no mail address: " + trimmed);
  const auto at = trimmed.rfind('@');
  return RaisingMailErrors([&] {
    const std::string value = AddressValue("x", trimmed.substr(at + 1));
    return trimmed.substr(0, at) + value.substr(value.find('@'));
  });
}

std::string ComposeMail(const OutgoingMail& mail, Lines lines) {
  return RaisingMailErrors([&mail, lines] {
    const std::string header = HeaderOf(mail);
    const std::string text = TextPart("plain", mail.text, lines);
    const std::string dressed = WithPage(text, mail.page, lines);
    return header + (header.size() + dressed.size() > greatestWithPage ? text : dressed);
  });
}

}  // namespace letters

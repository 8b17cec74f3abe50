// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/mail_text.h"

#include <vmime/platforms/posix/posixHandler.hpp>
#include <vmime/vmime.hpp>

#include <algorithm>
#include <mutex>

#include "desktop/html_text.h"
#include "platform/mail_client.h"
#include "platform/text_fields.h"

namespace desktop {
namespace {

using platform::MailError;

/// The library must know its platform before anything else is asked of it.
void PrepareLibrary() {
  static std::once_flag prepared;
  std::call_once(prepared,
                 [] { vmime::platform::setHandler<vmime::platforms::posix::posixHandler>(); });
}

const vmime::charset utf8(vmime::charsets::UTF_8);

std::string Trimmed(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return std::string(text);
}

bool IsValidUtf8(std::string_view bytes) {
  std::size_t i = 0;
  while (i < bytes.size()) {
    const auto lead = static_cast<unsigned char>(bytes[i++]);
    const int following = lead < 0x80   ? 0
                          : lead < 0xC2 ? -1
                          : lead < 0xE0 ? 1
                          : lead < 0xF0 ? 2
                          : lead < 0xF5 ? 3
                                        : -1;
    if (following < 0 || bytes.size() - i < static_cast<std::size_t>(following)) return false;
    for (const std::size_t end = i + following; i < end; ++i) {
      if ((static_cast<unsigned char>(bytes[i]) & 0xC0) != 0x80) return false;
    }
  }
  return true;
}

std::string Converted(const std::string& bytes, const vmime::charset& from) {
  std::string text;
  vmime::charset::convert(bytes, text, from, utf8);
  return text;
}

/// Many programs send other bytes than they say, or say nothing: what claims to be ASCII may well
/// be UTF-8, and what is no UTF-8 is taken for Latin-1, in which everything has a meaning.
std::string ToUtf8(const std::string& bytes, const vmime::charset& declared) {
  const vmime::charset ascii(vmime::charsets::US_ASCII);
  std::string text = bytes;
  if (declared != ascii && declared != utf8) {
    try {
      text = Converted(bytes, declared);
    } catch (const vmime::exception&) {
      // a charset that nobody knows
    }
  }
  return IsValidUtf8(text) ? text : Converted(text, vmime::charset(vmime::charsets::ISO8859_1));
}

std::string ToUtf8(const vmime::text& text) {
  std::string result;
  for (const auto& word : text.getWordList()) {
    result += ToUtf8(word->getBuffer(), word->getCharset());
  }
  return result;
}

/// One word, because the library drops blanks between several.
vmime::text HeaderText(const std::string& text) {
  return vmime::text(vmime::word(WithoutReserved(text), utf8));
}

vmime::mailbox HeaderMailbox(const Mailbox& mailbox) {
  const std::string address = Trimmed(mailbox.address);
  if (!IsMailAddress(address)) throw MailError("no mail address: " + address);
  const auto at = address.rfind('@');
  return {HeaderText(mailbox.name), vmime::emailAddress(vmime::word(address.substr(0, at), utf8),
                                                        vmime::word(address.substr(at + 1), utf8))};
}

/// Every line end as a mail has it.
std::string WithMailLineEnds(const std::string& text) {
  const std::string bare =
      platform::ReplaceAll(platform::ReplaceAll(text, "\r\n", "\n"), "\r", "\n");
  return platform::ReplaceAll(bare, "\n", "\r\n");
}

std::size_t CountOf(std::string_view what, std::string_view text, std::size_t limit) {
  std::size_t count = 0;
  for (auto at = text.find(what); at != std::string_view::npos && count <= limit;
       at = text.find(what, at + what.size())) {
    ++count;
  }
  return count;
}

/// The library takes each nested part as a call of its own and reads the whole rest for it.
bool IsTooNested(const std::string& bytes) {
  std::string lowered = bytes;
  std::transform(lowered.begin(), lowered.end(), lowered.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
  return CountOf("multipart/", lowered, 32) > 32 || CountOf("\n--", lowered, 1000) > 1000;
}

std::string LeafText(const vmime::body& body) {
  const vmime::mediaType type = body.getContentType();
  const bool html = type == vmime::mediaType(vmime::mediaTypes::TEXT, "html");
  const bool plain = type == vmime::mediaType(vmime::mediaTypes::TEXT, "plain");
  if (!html && !plain) return {};
  std::string bytes;
  vmime::utility::outputStreamStringAdapter stream(bytes);
  body.getContents()->extract(stream);
  const std::string text = ToUtf8(bytes, body.getCharset());
  return html ? HtmlToText(text) : text;
}

bool IsAttachment(const vmime::bodyPart& part) {
  const auto field = part.getHeader()->findField(vmime::fields::CONTENT_DISPOSITION);
  if (!field) return false;
  const auto disposition = field->getValue<vmime::contentDisposition>();
  return disposition && disposition->getName() == vmime::contentDispositionTypes::ATTACHMENT;
}

/// Alternatives stand in the order from plain to rich: the first that says something is taken. Of
/// other compounds the texts follow each other.
std::string TextOf(const vmime::bodyPart& part) {
  const auto body = part.getBody();
  if (IsAttachment(part)) return {};
  if (body->getPartCount() == 0) return LeafText(*body);
  const bool alternatives = body->getContentType().getSubType() == "alternative";
  std::string text;
  for (std::size_t i = 0; i < body->getPartCount(); ++i) {
    text += TextOf(*body->getPartAt(i));
    if (alternatives && text.find_first_not_of(" \t\r\n") != std::string::npos) break;
  }
  return text;
}

std::string HeaderSubject(const vmime::header& header) {
  const auto field = header.findField(vmime::fields::SUBJECT);
  const auto value = field ? field->getValue<vmime::text>() : nullptr;
  return value ? ToUtf8(*value) : std::string{};
}

Mailbox HeaderSender(const vmime::header& header) {
  const auto field = header.findField(vmime::fields::FROM);
  const auto value = field ? field->getValue<vmime::mailbox>() : nullptr;
  if (!value) return {};
  const vmime::word local = value->getEmail().getLocalName();
  const vmime::word domain = value->getEmail().getDomainName();
  const std::string address = ToUtf8(local.getBuffer(), local.getCharset()) + "@" +
                              ToUtf8(domain.getBuffer(), domain.getCharset());
  return {ToUtf8(value->getName()), address};
}

}  // namespace

std::string WithoutReserved(std::string_view text) {
  std::string result(text);
  std::replace_if(
      result.begin(), result.end(), [](unsigned char c) { return c < 32 || c == 127 || c == '|'; },
      ' ');
  return result;
}

bool IsMailAddress(std::string_view text) {
  const auto at = text.rfind('@');
  if (at == std::string_view::npos || at == 0 || at + 1 == text.size()) return false;
  return std::none_of(text.begin(), text.end(), [](unsigned char c) {
    return c <= 32 || c == 127 ||
           std::string_view("<>()[]{},;:\\\"|").find(static_cast<char>(c)) !=
               std::string_view::npos;
  });
}

std::string ComposeMail(const OutgoingMail& mail) {
  PrepareLibrary();
  vmime::messageBuilder builder;
  builder.setExpeditor(HeaderMailbox(mail.from));
  for (const Mailbox& recipient : mail.to) {
    builder.getRecipients().appendAddress(
        vmime::make_shared<vmime::mailbox>(HeaderMailbox(recipient)));
  }
  builder.setSubject(HeaderText(mail.subject));
  builder.getTextPart()->setCharset(utf8);
  builder.getTextPart()->setText(
      vmime::make_shared<vmime::stringContentHandler>(WithMailLineEnds(mail.text)));
  const auto message = builder.construct();
  message->getHeader()->MessageId()->setValue(vmime::messageId::generateId());
  return message->generate();
}

std::string SubjectOf(std::string_view bytes) {
  PrepareLibrary();
  vmime::header header;
  header.parse(std::string(bytes));
  return HeaderSubject(header);
}

FetchedMail ParseMail(const std::string& bytes) {
  PrepareLibrary();
  if (IsTooNested(bytes)) throw MailError("a mail of too many parts");
  vmime::message message;
  message.parse(bytes);
  const Mailbox sender = HeaderSender(*message.getHeader());
  FetchedMail mail;
  mail.subject = HeaderSubject(*message.getHeader());
  mail.name = sender.name;
  mail.address = sender.address;
  mail.text = TextOf(message);
  return mail;
}

}  // namespace desktop

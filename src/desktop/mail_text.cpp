// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/mail_text.h"

#include <vmime/contentTypeField.hpp>
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

/// A line of a mail may have 998 bytes; some programs count its end.
constexpr std::size_t longestLine = 990;

/// The library must know its platform before anything else is asked of it.
void PrepareLibrary() {
  static std::once_flag prepared;
  std::call_once(prepared,
                 [] { vmime::platform::setHandler<vmime::platforms::posix::posixHandler>(); });
}

const vmime::charset utf8(vmime::charsets::UTF_8);

char Lowered(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

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

/// What the library raises says nothing to those who don't know it.
template <typename Work>
auto RaisingMailErrors(const Work& work) {
  try {
    return work();
  } catch (const vmime::exception& error) {
    throw MailError(error.what());
  }
}

template <typename Value>
std::shared_ptr<Value> FieldValue(const vmime::header& header, const char* name) {
  const auto field = header.findField(name);
  return field ? field->getValue<Value>() : nullptr;
}

/// One part's header, read, and what stands behind it. What a header has beyond its limit counts
/// for the body.
struct Part {
  explicit Part(std::string_view bytes) : headerBytes(bytes.substr(0, greatestHeader)) {
    std::size_t end = headerBytes.size();
    header.parse(headerBytes, 0, headerBytes.size(), &end);
    headerBytes.resize(end);
    body = bytes.substr(end);
  }

  std::string headerBytes;
  vmime::header header;
  std::string_view body;
};

std::string LeafText(const Part& part) {
  const auto field = part.header.findField<vmime::contentTypeField>(vmime::fields::CONTENT_TYPE);
  const auto type = field ? *field->getValue<vmime::mediaType>() : vmime::mediaType("text/plain");
  const bool html = type == vmime::mediaType("text/html");
  if (!html && type != vmime::mediaType("text/plain")) return {};
  const auto encoding =
      FieldValue<vmime::encoding>(part.header, vmime::fields::CONTENT_TRANSFER_ENCODING);
  std::string bytes;
  vmime::utility::outputStreamStringAdapter stream(bytes);
  vmime::stringContentHandler(std::string(part.body), encoding ? *encoding : vmime::encoding())
      .extract(stream);
  const bool tells = field && field->hasCharset();
  const std::string text =
      ToUtf8(bytes, tells ? field->getCharset() : vmime::charset(vmime::charsets::US_ASCII));
  return html ? HtmlToText(text) : text;
}

bool IsAttachment(const vmime::header& header) {
  const auto disposition =
      FieldValue<vmime::contentDisposition>(header, vmime::fields::CONTENT_DISPOSITION);
  return disposition && disposition->getName() == vmime::contentDispositionTypes::ATTACHMENT;
}

enum class Line { Content, Delimiter, Close };

/// Which of them `line`, without its line end, is to the parts between `delimiter`s.
Line KindOf(std::string_view line, std::string_view delimiter) {
  if (!line.starts_with(delimiter)) return Line::Content;
  std::string_view rest = line.substr(delimiter.size());
  const bool close = rest.starts_with("--");
  if (close) rest.remove_prefix(2);
  if (rest.find_first_not_of(" \t\r") != std::string_view::npos) return Line::Content;
  return close ? Line::Close : Line::Delimiter;
}

/// The parts of a compound, at most `limit` and one: the line end ahead of a delimiter belongs to
/// it. The last part reaches to the end where nothing closes it.
std::vector<std::string_view> PartsOf(std::string_view body, const std::string& boundary,
                                      std::size_t limit) {
  std::vector<std::string_view> parts;
  const std::string delimiter = "--" + boundary;
  std::size_t start = std::string_view::npos;  // of the part that is open
  Line kind = Line::Content;
  for (std::size_t at = 0; at < body.size() && kind != Line::Close && parts.size() <= limit;) {
    const std::size_t end = std::min(body.find('\n', at), body.size());
    kind = KindOf(body.substr(at, end - at), delimiter);
    if (kind != Line::Content) {
      if (start != std::string_view::npos) {
        std::string_view part = body.substr(start, at - start);
        if (part.ends_with('\n')) part.remove_suffix(1);
        if (part.ends_with('\r')) part.remove_suffix(1);
        parts.push_back(part);
      }
      start = end + 1;
    }
    at = end + 1;
  }
  if (kind != Line::Close && start < body.size()) parts.push_back(body.substr(start));
  return parts;
}

/// Walks a mail's parts for their text. The library's own walk pays for every place where the text
/// of a boundary stands, be it a single letter; here each level looks at each line once.
class TextReader {
 public:
  std::string TextOf(const Part& part);

 private:
  static constexpr int greatestDepth = 32;
  static constexpr std::size_t greatestPartCount = 1000;

  std::string CompoundText(const vmime::contentTypeField& type, std::string_view body);

  int depth_ = 0;
  std::size_t partCount_ = 0;
};

std::string TextReader::TextOf(const Part& part) {
  if (IsAttachment(part.header)) return {};
  const auto type = part.header.findField<vmime::contentTypeField>(vmime::fields::CONTENT_TYPE);
  const bool compound =
      type && type->getValue<vmime::mediaType>()->getType() == vmime::mediaTypes::MULTIPART;
  return compound ? CompoundText(*type, part.body) : LeafText(part);
}

/// Alternatives stand in the order from plain to rich: the first that says something is taken. Of
/// other compounds the texts follow each other.
std::string TextReader::CompoundText(const vmime::contentTypeField& type, std::string_view body) {
  if (!type.hasBoundary()) return {};
  const auto parts = PartsOf(body, type.getBoundary(), greatestPartCount);
  partCount_ += parts.size();
  if (++depth_ > greatestDepth || partCount_ > greatestPartCount) {
    throw MailError("a mail of too many parts");
  }
  const bool alternatives = type.getValue<vmime::mediaType>()->getSubType() == "alternative";
  std::string text;
  for (const std::string_view part : parts) {
    text += TextOf(Part(part));
    if (alternatives && text.find_first_not_of(" \t\r\n") != std::string::npos) break;
  }
  --depth_;
  return text;
}

std::string HeaderSubject(const vmime::header& header) {
  const auto value = FieldValue<vmime::text>(header, vmime::fields::SUBJECT);
  return value ? ToUtf8(*value) : std::string{};
}

bool IsField(std::string_view line, std::string_view loweredName) {
  const std::string_view name = line.substr(0, line.find_first_of(": \t"));
  return std::equal(name.begin(), name.end(), loweredName.begin(), loweredName.end(),
                    [](char a, char b) { return Lowered(a) == b; });
}

/// The first field of that name as it stands in a header; empty where there is none.
std::string_view RawField(std::string_view header, std::string_view loweredName) {
  for (std::size_t at = 0, end = 0; at < header.size(); at = end) {
    do {
      end = std::min(header.find('\n', end), header.size() - 1) + 1;
    } while (end < header.size() && (header[end] == ' ' || header[end] == '\t'));
    if (IsField(header.substr(at), loweredName)) return header.substr(at, end - at);
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

/// Whether a text may travel as it is: short lines and no zero byte.
bool FitsMailLines(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find("\r\n", at), text.size());
    if (end - at > longestLine) return false;
    at = end + 2;
  }
  return text.find('\0') == std::string_view::npos;
}

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](unsigned char c) { return c < 128; });
}

vmime::encoding EncodingFor(std::string_view text) {
  namespace types = vmime::encodingTypes;
  if (!FitsMailLines(text)) return vmime::encoding(types::QUOTED_PRINTABLE);
  return vmime::encoding(IsAscii(text) ? types::SEVEN_BIT : types::EIGHT_BIT);
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

bool IsMailAddress(std::string_view text) {
  const auto at = text.rfind('@');
  if (at == std::string_view::npos || at == 0 || at + 1 == text.size()) return false;
  if (WithoutReserved(text) != text) return false;
  return std::none_of(text.begin(), text.end(), [](char c) {
    return std::string_view(" <>()[]{},;:\\\"").find(c) != std::string_view::npos;
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
  const std::string text = WithMailLineEnds(mail.text);
  builder.getTextPart()->setCharset(utf8);
  builder.getTextPart()->setText(vmime::make_shared<vmime::stringContentHandler>(text));
  const auto message = builder.construct();
  message->getBody()->setEncoding(EncodingFor(text));
  message->getHeader()->MessageId()->setValue(vmime::messageId::generateId());
  return message->generate();
}

std::string SubjectOf(std::string_view bytes) {
  PrepareLibrary();
  return RaisingMailErrors([bytes] {
    vmime::header header;
    header.parse(std::string(bytes));
    return HeaderSubject(header);
  });
}

FetchedMail ParseMail(const std::string& bytes) {
  PrepareLibrary();
  return RaisingMailErrors([&bytes] {
    const Part whole(bytes);
    const Mailbox sender = HeaderSender(whole.header, whole.headerBytes);
    FetchedMail mail;
    mail.subject = HeaderSubject(whole.header);
    mail.name = sender.name;
    mail.address = sender.address;
    mail.text = TextReader().TextOf(whole);
    return mail;
  });
}

}  // namespace desktop

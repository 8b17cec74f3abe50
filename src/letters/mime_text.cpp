// SPDX-License-Identifier: GPL-3.0-or-later
#include "letters/mime_text.h"

#include <vmime/contentTypeField.hpp>

#include <algorithm>
#include <vector>

#include "letters/html_text.h"
#include "letters/mail_library.h"
#include "letters/text_repair.h"
#include "platform/ascii.h"

namespace letters {
namespace {

using platform::MailError;
using vmime::contentTypeField;

std::shared_ptr<const contentTypeField> TypeField(const MimePart& part) {
  return part.header.findField<contentTypeField>(vmime::fields::CONTENT_TYPE);
}

bool IsAttachment(const vmime::header& header) {
  const auto disposition =
      FieldValue<vmime::contentDisposition>(header, vmime::fields::CONTENT_DISPOSITION);
  return disposition && disposition->getName() == vmime::contentDispositionTypes::ATTACHMENT;
}

/// The content without its transfer encoding. One that nobody knows is taken for none.
std::string Decoded(const MimePart& part) {
  const auto named =
      FieldValue<vmime::encoding>(part.header, vmime::fields::CONTENT_TRANSFER_ENCODING);
  std::string bytes;
  vmime::utility::outputStreamStringAdapter stream(bytes);
  std::string body(part.body);
  try {
    vmime::stringContentHandler(body, named ? *named : vmime::encoding()).extract(stream);
  } catch (const vmime::exceptions::no_encoder_available&) {
    return body;
  }
  return bytes;
}

bool Says(const contentTypeField& type, const char* parameter, std::string_view value) {
  const auto found = type.findParameter(parameter);
  return found && platform::SameWithoutCase(found->getValue().getBuffer(), value);
}

std::string LeafText(const MimePart& part) {
  const auto field = TypeField(part);
  const auto type = field ? *field->getValue<vmime::mediaType>() : vmime::mediaType("text/plain");
  const bool html = type == vmime::mediaType("text/html");
  if (!html && type != vmime::mediaType("text/plain")) return {};
  const bool tells = field && field->hasCharset();
  std::string text = ToUtf8(
      Decoded(part), tells ? field->getCharset() : vmime::charset(vmime::charsets::US_ASCII));
  if (html) {
    text = HtmlToText(text);
  } else if (field && Says(*field, "format", "flowed")) {
    text = JoinedLines(text, Says(*field, "delsp", "yes"));
  }
  return RepairedText(text);
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
  std::string TextOf(const MimePart& part);

 private:
  static constexpr int greatestDepth = 32;
  static constexpr std::size_t greatestPartCount = 1000;

  std::string CompoundText(const contentTypeField& type, std::string_view body);

  int depth_ = 0;
  std::size_t partCount_ = 0;
};

std::string TextReader::TextOf(const MimePart& part) {
  if (IsAttachment(part.header)) return {};
  const auto type = TypeField(part);
  const bool compound =
      type && type->getValue<vmime::mediaType>()->getType() == vmime::mediaTypes::MULTIPART;
  return compound ? CompoundText(*type, part.body) : LeafText(part);
}

/// Alternatives stand in the order from plain to rich: the first that holds the program's part is
/// taken, else the first that says something. Of other compounds the texts follow each other.
std::string TextReader::CompoundText(const contentTypeField& type, std::string_view body) {
  if (!type.hasBoundary()) return {};
  const auto parts = PartsOf(body, type.getBoundary(), greatestPartCount);
  partCount_ += parts.size();
  if (++depth_ > greatestDepth || partCount_ > greatestPartCount) {
    throw MailError("a mail of too many parts");
  }
  const bool alternatives = type.getValue<vmime::mediaType>()->getSubType() == "alternative";
  std::string text;
  for (const std::string_view bytes : parts) {
    std::string part = TextOf(MimePart(bytes));
    if (!alternatives) {
      text += part;
    } else if (HoldsStartMarker(part)) {
      text = std::move(part);
      break;
    } else if (text.find_first_not_of(" \t\r\n") == std::string::npos) {
      text = std::move(part);
    }
  }
  --depth_;
  return text;
}

}  // namespace

MimePart::MimePart(std::string_view bytes) : headerBytes(bytes.substr(0, greatestHeader)) {
  std::size_t end = headerBytes.size();
  header.parse(headerBytes, 0, headerBytes.size(), &end);
  headerBytes.resize(end);
  body = bytes.substr(end);
}

std::string TextOf(const MimePart& mail) { return TextReader().TextOf(mail); }

}  // namespace letters

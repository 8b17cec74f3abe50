// SPDX-License-Identifier: GPL-3.0-or-later
#include "letters/mail_parts.h"

#include <algorithm>
#include <initializer_list>

#include "letters/mail_library.h"
#include "letters/message_ids.h"
#include "platform/ascii.h"
#include "platform/text_fields.h"

namespace letters {
namespace {

/// A line of a mail may have 998 bytes; some programs count its end.
constexpr std::size_t longestLine = 990;

/// Every line end as a mail has it.
std::string WithMailLineEnds(const std::string& text) {
  const std::string bare =
      platform::ReplaceAll(platform::ReplaceAll(text, "\r\n", "\n"), "\r", "\n");
  return platform::ReplaceAll(bare, "\n", "\r\n");
}

/// Whoever keeps many mails in one file tells by such a line where the next one begins, and would
/// change it.
constexpr std::string_view nextMail = "From ";

/// Whether a text may travel as it is: short lines that mean nothing, and no zero byte.
bool FitsMailLines(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find("\r\n", at), text.size());
    if (end - at > longestLine || text.substr(at).starts_with(nextMail)) return false;
    at = end + 2;
  }
  return text.find('\0') == std::string_view::npos;
}

const char* EncodingFor(std::string_view text, Lines lines) {
  namespace types = vmime::encodingTypes;
  const bool ascii = platform::IsAscii(text);
  if (!FitsMailLines(text) || (lines == Lines::SevenBit && !ascii)) return types::QUOTED_PRINTABLE;
  return ascii ? types::SEVEN_BIT : types::EIGHT_BIT;
}

std::string EncodedBody(const std::string& text, const std::string& encoding) {
  std::string body = Encoded(text, vmime::encoding(encoding));
  if (encoding != vmime::encodingTypes::QUOTED_PRINTABLE) return body;
  const std::string harmless = "\r\n=46" + std::string(nextMail.substr(1));
  const std::string harmful = "\r\n" + std::string(nextMail);
  return platform::ReplaceAll("\r\n" + body, harmful, harmless).substr(2);
}

/// What stands in none of the parts.
std::string BoundaryOf(std::initializer_list<std::string_view> parts) {
  std::string boundary;
  int number = 0;
  const auto holds = [&boundary](std::string_view part) {
    return part.find(boundary) != std::string_view::npos;
  };
  do {
    boundary = "=_tarvolenix." + std::to_string(number++);
  } while (std::any_of(parts.begin(), parts.end(), holds));
  return boundary;
}

std::string Compound(std::string_view subtype, std::initializer_list<std::string_view> parts) {
  const std::string boundary = BoundaryOf(parts);
  std::string compound = "Content-Type: multipart/";
  compound.append(subtype).append("; boundary=\"").append(boundary).append("\"\r\n\r\n");
  for (const std::string_view part : parts) {
    compound.append("--").append(boundary).append("\r\n").append(part).append("\r\n");
  }
  return compound.append("--").append(boundary).append("--\r\n");
}

std::string PicturePart(const std::string& png) {
  return "Content-Type: image/png; name=\"board.png\"\r\nContent-ID: <" + ContentIDOf(png) +
         ">\r\nContent-Disposition: inline; filename=\"board.png\"\r\n"
         "Content-Transfer-Encoding: base64\r\n\r\n" +
         Encoded(png, vmime::encoding(vmime::encodingTypes::BASE64));
}

}  // namespace

std::string TextPart(std::string_view subtype, const std::string& text, Lines lines) {
  const std::string content = WithMailLineEnds(text);
  const std::string encoding = EncodingFor(content, lines);
  return "Content-Type: text/" + std::string(subtype) +
         "; charset=utf-8\r\nContent-Transfer-Encoding: " + encoding + "\r\n\r\n" +
         EncodedBody(content, encoding);
}

std::string WithPage(const std::string& textPart, const platform::MovePage& page, Lines lines) {
  if (page.html.empty()) return textPart;
  std::string shown = TextPart("html", page.html, lines);
  if (!page.picture.empty())
    shown = Compound("related; type=\"text/html\"", {shown, PicturePart(page.picture)});
  return Compound("alternative", {textPart, shown});
}

}  // namespace letters

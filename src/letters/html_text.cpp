// SPDX-License-Identifier: GPL-3.0-or-later
#include "letters/html_text.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <iterator>
#include <utility>

#include "platform/ascii.h"
#include "platform/text_fields.h"
#include "platform/utf8.h"

namespace letters {
namespace {

/// What editors make of one of two blanks, so that both count. It becomes a plain one in the end.
constexpr std::string_view noBreakSpace = "\u00A0";

constexpr std::pair<std::string_view, std::string_view> namedReferences[] = {
    {"lt", "<"},     {"gt", ">"},     {"amp", "&"},    {"quot", "\""},  {"apos", "'"},
    {"ndash", "–"},  {"mdash", "—"},  {"lsquo", "‘"},  {"rsquo", "’"},  {"sbquo", "‚"},
    {"ldquo", "“"},  {"rdquo", "”"},  {"bdquo", "„"},  {"lsaquo", "‹"}, {"rsaquo", "›"},
    {"hellip", "…"}, {"bull", "•"},   {"trade", "™"},  {"euro", "€"},   {"OElig", "Œ"},
    {"oelig", "œ"},  {"Scaron", "Š"}, {"scaron", "š"}, {"Yuml", "Ÿ"}};

/// The characters from 160 to 255, in order.
constexpr std::string_view latinReferences[] = {
    "nbsp",   "iexcl",  "cent",   "pound",  "curren", "yen",    "brvbar", "sect",   "uml",
    "copy",   "ordf",   "laquo",  "not",    "shy",    "reg",    "macr",   "deg",    "plusmn",
    "sup2",   "sup3",   "acute",  "micro",  "para",   "middot", "cedil",  "sup1",   "ordm",
    "raquo",  "frac14", "frac12", "frac34", "iquest", "Agrave", "Aacute", "Acirc",  "Atilde",
    "Auml",   "Aring",  "AElig",  "Ccedil", "Egrave", "Eacute", "Ecirc",  "Euml",   "Igrave",
    "Iacute", "Icirc",  "Iuml",   "ETH",    "Ntilde", "Ograve", "Oacute", "Ocirc",  "Otilde",
    "Ouml",   "times",  "Oslash", "Ugrave", "Uacute", "Ucirc",  "Uuml",   "Yacute", "THORN",
    "szlig",  "agrave", "aacute", "acirc",  "atilde", "auml",   "aring",  "aelig",  "ccedil",
    "egrave", "eacute", "ecirc",  "euml",   "igrave", "iacute", "icirc",  "iuml",   "eth",
    "ntilde", "ograve", "oacute", "ocirc",  "otilde", "ouml",   "divide", "oslash", "ugrave",
    "uacute", "ucirc",  "uuml",   "yacute", "thorn",  "yuml"};
static_assert(std::size(latinReferences) == 96);

constexpr std::string_view lineTags[] = {"br", "p",  "div", "tr", "li",  "h1",        "h2",
                                         "h3", "h4", "h5",  "h6", "pre", "blockquote"};

constexpr std::string_view blanks = " \t\r\n";

bool IsBlank(char c) { return blanks.find(c) != std::string_view::npos; }

std::string Utf8Of(unsigned code) {
  if (code == 0 || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) return {};
  std::string bytes;
  platform::AppendUtf8(bytes, code);
  return bytes;
}

/// The text of a reference without its "&" and ";"; empty where it is none.
std::string ReferencedText(std::string_view reference) {
  for (const auto& [name, text] : namedReferences) {
    if (reference == name) return std::string(text);
  }
  const auto latin = std::find(std::begin(latinReferences), std::end(latinReferences), reference);
  if (latin != std::end(latinReferences)) {
    return Utf8Of(160 + static_cast<unsigned>(latin - std::begin(latinReferences)));
  }
  if (!reference.starts_with('#')) return {};
  reference.remove_prefix(1);
  const bool hex = reference.starts_with('x') || reference.starts_with('X');
  if (hex) reference.remove_prefix(1);
  unsigned code = 0;
  const char* end = reference.data() + reference.size();
  const auto parsed = std::from_chars(reference.data(), end, code, hex ? 16 : 10);
  return parsed.ec == std::errc{} && parsed.ptr == end ? Utf8Of(code) : std::string{};
}

/// A cursor over the document; `text` grows as it moves on.
struct HtmlWalk {
  std::string_view rest;
  std::string lowered;  ///< the document in lower case, for the search of closing tags
  std::string text;
  bool preformatted = false;

  explicit HtmlWalk(std::string_view html) : rest(html), lowered(platform::Lowered(html)) {}

  std::string_view LoweredRest() const {
    return std::string_view(lowered).substr(lowered.size() - rest.size());
  }

  void SkipBehind(std::string_view end) {
    const auto found = LoweredRest().find(end);
    rest.remove_prefix(found == std::string_view::npos ? rest.size() : found + end.size());
  }

  void TakeTag() {
    if (rest.starts_with("<!--")) return SkipBehind("-->");
    std::string_view name = LoweredRest().substr(1);
    if (name.starts_with('/')) name.remove_prefix(1);
    name = name.substr(0, std::min(name.find_first_of(" \t\r\n/>"), name.size()));
    const bool closing = rest.starts_with("</");
    const bool hidden = !closing && (name == "script" || name == "style" || name == "title");
    if (hidden) SkipBehind("</" + std::string(name));
    SkipBehind(">");
    if (name == "pre") preformatted = !closing;
    if (std::find(std::begin(lineTags), std::end(lineTags), name) != std::end(lineTags)) {
      if (text.ends_with(' ') && !preformatted) text.pop_back();
      if (name == "br" || (!text.empty() && !text.ends_with('\n'))) text += "\r\n";
    }
  }

  void TakeReference() {
    const auto end = rest.substr(0, 12).find(';');
    const std::string meant =
        end == std::string_view::npos ? std::string{} : ReferencedText(rest.substr(1, end - 1));
    text += meant.empty() ? "&" : meant;
    rest.remove_prefix(meant.empty() ? 1 : end + 1);
  }

  void TakeBlanks() {
    const std::string_view run = rest.substr(0, rest.find_first_not_of(blanks));
    rest.remove_prefix(run.size());
    // A line break of the source is a blank, but none at the beginning of a field of ours.
    const bool endsField = text.ends_with('|') || text.ends_with(';');
    if (preformatted) {
      text += run;
    } else if (endsField && run.find('\n') != std::string_view::npos) {
      text += "\r\n";
    } else if (!text.empty() && !IsBlank(text.back())) {
      text += ' ';
    }
  }
};

/// "<" followed by anything else stands for itself, and so does "<<": a marker of ours that nobody
/// has escaped begins with it.
bool BeginsTag(std::string_view rest) {
  if (rest.size() < 2 || rest[0] != '<') return false;
  return std::isalpha(static_cast<unsigned char>(rest[1])) || rest[1] == '/' || rest[1] == '!' ||
         rest[1] == '?';
}

}  // namespace

std::string HtmlToText(std::string_view html) {
  HtmlWalk walk(html);
  while (!walk.rest.empty()) {
    const char c = walk.rest.front();
    if (walk.rest.starts_with("<<")) {
      walk.text += "<<";
      walk.rest.remove_prefix(2);
    } else if (BeginsTag(walk.rest)) {
      walk.TakeTag();
    } else if (c == '&') {
      walk.TakeReference();
    } else if (IsBlank(c)) {
      walk.TakeBlanks();
    } else {
      walk.text += c;
      walk.rest.remove_prefix(1);
    }
  }
  return platform::ReplaceAll(walk.text, noBreakSpace, " ");
}

std::string TextToHtml(std::string_view text) {
  constexpr std::string_view meaning = "&<>\"'";
  std::string html;
  while (!text.empty()) {
    const auto [code, length, isWellFormed] = platform::FirstCharacter(text);
    const bool isSecondBlank = code == ' ' && (html.empty() || IsBlank(html.back()));
    if (code == '\n') {
      html += "<br>\n";
    } else if (isSecondBlank) {
      html += "&#160;";
    } else if (code > 126 || meaning.find(text.front()) != std::string_view::npos) {
      html.append("&#").append(std::to_string(code)).append(";");
    } else if (code >= ' ') {
      html += text.front();
    }
    text.remove_prefix(length);
  }
  return html;
}

}  // namespace letters

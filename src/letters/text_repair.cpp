// SPDX-License-Identifier: GPL-3.0-or-later
#include "letters/text_repair.h"

#include <algorithm>

#include "platform/text_fields.h"

namespace letters {
namespace {

using std::string_view;

bool IsLineBreak(char c) { return c == '\r' || c == '\n'; }

/// Takes the first line off `rest`, with its end.
string_view TakeLine(string_view& rest) {
  const std::size_t size = std::min(rest.find('\n'), rest.size() - 1) + 1;
  const string_view line = rest.substr(0, size);
  rest.remove_prefix(size);
  return line;
}

string_view WithoutLineEnd(string_view line) {
  if (line.ends_with('\n')) line.remove_suffix(1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

/// Some editors put such characters in, and nobody sees them. Joiners aren't among them: they make
/// one picture of several, and some scripts need them.
std::string WithoutInvisible(string_view text) {
  constexpr string_view invisible[] = {string_view("\0", 1), "\u200B", "\u2060", "\uFEFF"};
  std::string visible(text);
  for (const string_view each : invisible) {
    visible = platform::ReplaceAll(visible, each, "");
  }
  return visible;
}

/// Takes up to `depth` marks of quotation off `line`, each with the blank behind it, and answers
/// how many there were.
int TakeQuoteMarks(string_view& line, int depth) {
  int marks = 0;
  while (marks < depth && line.starts_with('>')) {
    line.remove_prefix(line.starts_with("> ") ? 2 : 1);
    ++marks;
  }
  return marks;
}

/// Only where the marker's own line is quoted: else a ">" at the beginning of a line may belong to
/// an end marker that was broken.
std::string Unquoted(string_view text) {
  const auto marker = text.find(startMarker);
  if (marker == string_view::npos) return std::string(text);
  const auto lineStart = marker == 0 ? 0 : text.find_last_of("\r\n", marker - 1) + 1;
  string_view ahead = text.substr(lineStart, marker - lineStart);
  const int depth = TakeQuoteMarks(ahead, static_cast<int>(ahead.size()));
  if (depth == 0 || !ahead.empty()) return std::string(text);
  std::string result(text.substr(0, lineStart));
  for (text.remove_prefix(lineStart); !text.empty();) {
    string_view line = TakeLine(text);
    TakeQuoteMarks(line, depth);
    result += line;
  }
  return result;
}

/// A blank that a mail program has left at a field's end would become the next one's beginning.
std::string WithoutBlanksBehindFields(string_view text) {
  std::string result;
  while (!text.empty()) {
    const string_view line = TakeLine(text);
    const string_view content = WithoutLineEnd(line);
    const string_view field = content.substr(0, content.find_last_not_of(" \t") + 1);
    const bool ends = field.ends_with('|') || field.ends_with(';');
    result.append(ends ? field : content).append(line.substr(content.size()));
  }
  return result;
}

}  // namespace

bool HoldsStartMarker(string_view text) {
  std::string oneLine(text);
  std::erase_if(oneLine, IsLineBreak);
  return oneLine.find(startMarker) != std::string::npos;
}

std::string JoinedLines(string_view flowed, bool deletesBlanks) {
  std::string result;
  int openDepth = -1;  // of quotation, where the paragraph goes on in the next line
  while (!flowed.empty()) {
    const string_view line = TakeLine(flowed);
    const string_view content = WithoutLineEnd(line);
    const int depth = static_cast<int>(std::min(content.find_first_not_of('>'), content.size()));
    string_view words = content.substr(depth);
    if (words.starts_with(' ')) words.remove_prefix(1);  // a line may be stuffed with one blank
    const bool signature = words == "-- ";
    if (openDepth >= 0 && (openDepth != depth || signature)) {
      result += "\r\n";
      openDepth = -1;
    }
    if (openDepth < 0 && depth > 0) result.append(depth, '>').append(" ");
    const bool goesOn = words.ends_with(' ') && !signature;
    if (goesOn && deletesBlanks) words.remove_suffix(1);
    result += words;
    if (!goesOn) result += line.substr(content.size());
    openDepth = goesOn ? depth : -1;
  }
  return result;
}

std::string RepairedText(string_view text) {
  const std::string visible = WithoutInvisible(text);
  return HoldsStartMarker(visible) ? WithoutBlanksBehindFields(Unquoted(visible)) : visible;
}

}  // namespace letters

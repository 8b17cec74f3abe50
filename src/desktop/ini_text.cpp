// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/ini_text.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <utility>

#include "platform/ascii.h"
#include "platform/utf8.h"

namespace desktop {
namespace {

constexpr std::string_view blanks = " \t\r\n\v\f";
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// What may follow a backslash, and what it means then.
constexpr std::string_view escapeLetters = "abfnrtv\"\\?'";
constexpr std::string_view escapeMeanings = "\a\b\f\n\r\t\v\"\\?'";
constexpr std::size_t escapesWritten = 9;  // the last two need none

std::string_view Trimmed(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
  return text.substr(0, text.find_last_not_of(blanks) + 1);
}

std::string Hex(char c) {
  char digits[2];
  const auto end = std::to_chars(digits, digits + 2, static_cast<unsigned char>(c), 16).ptr;
  return {digits, end};
}

void AppendCharacter(std::string& text, unsigned code) {
  const bool isCharacter = code <= 0xFFFF && (code < 0xD800 || code > 0xDFFF);
  platform::AppendUtf8(text, isCharacter ? code : platform::replacementCharacter);
}

bool IsPlain(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= 0x80 || std::isalnum(byte) || c == '_' || c == '-' || c == '.';
}

std::string WrittenName(const std::string& name) {
  std::string written;
  for (const char c : name) {
    if (IsPlain(c)) {
      written += c;
    } else {
      written += (static_cast<unsigned char>(c) < 0x10 ? "%0" : "%") + Hex(c);
    }
  }
  return written;
}

std::string PlainName(std::string_view written) {
  std::string plain;
  while (!written.empty()) {
    unsigned code = 0;
    const char* digits = written.data() + 1;
    if (written.front() == '%' && written.size() > 2 &&
        std::from_chars(digits, digits + 2, code, 16).ptr == digits + 2) {
      AppendCharacter(plain, code);
      written.remove_prefix(3);
    } else {
      plain += written.front();
      written.remove_prefix(1);
    }
  }
  return plain;
}

bool IsSame(std::string_view one, std::string_view other) { return one == other; }

bool IsGeneral(std::string_view name) { return platform::SameWithoutCase(name, "general"); }

std::string WrittenSection(const std::string& group) {
  if (group.empty()) return "[General]";
  return (IsGeneral(group) ? "[%" : "[") + WrittenName(group) + "]";
}

std::string GroupOf(std::string_view written) {
  if (IsGeneral(written)) return {};
  if (written.starts_with('%') && IsGeneral(written.substr(1))) written.remove_prefix(1);
  return PlainName(written);
}

std::string WrittenValue(const std::string& value) {
  std::string written =
      value.starts_with('@') ? "@" : "";  // "@" alone begins other kinds of values
  bool afterDigits = false;
  for (const char c : value) {
    const std::size_t escape = escapeMeanings.substr(0, escapesWritten).find(c);
    const auto byte = static_cast<unsigned char>(c);
    const bool inDigits = byte < 0x20 || (afterDigits && std::isxdigit(byte));
    if (escape != std::string_view::npos) {
      written.append({'\\', escapeLetters[escape]});
    } else {
      written += inDigits ? "\\x" + Hex(c) : std::string(1, c);
    }
    afterDigits = inDigits && escape == std::string_view::npos;
  }
  const bool needsQuotes = written.find_first_of(";,=") != std::string::npos ||
                           written.starts_with(' ') || written.ends_with(' ');
  return needsQuotes ? '"' + written + '"' : written;
}

/// Takes a written value apart, front to back.
class ValueReader {
 public:
  explicit ValueReader(std::string_view written) : rest_(written) {}

  std::string Read() {
    SkipBlanks();
    while (!rest_.empty()) Take(rest_.front());
    EndPart();
    return plain_;
  }

 private:
  void Take(char c) {
    rest_.remove_prefix(1);
    if (c == '\\') {
      TakeEscaped();
    } else if (c == '"') {
      inQuotes_ = !inQuotes_;
      kept_ = part_.size();
      if (!inQuotes_) SkipBlanks();
    } else if (c == ',' && !inQuotes_) {
      EndPart();
      plain_ += ',';
      SkipBlanks();
    } else {
      part_ += c;
    }
  }

  void TakeEscaped() {
    if (rest_.empty()) return;
    const std::size_t escape = escapeLetters.find(rest_.front());
    if (escape != std::string_view::npos) {
      part_ += escapeMeanings[escape];
      rest_.remove_prefix(1);
    } else if (rest_.front() == 'x') {
      rest_.remove_prefix(1);
      TakeCode(16);
    } else if (!TakeCode(8)) {
      rest_.remove_prefix(1);
    }
    kept_ = part_.size();
  }

  bool TakeCode(int base) {
    unsigned code = 0;
    const char* begin = rest_.data();
    const char* end = std::from_chars(begin, begin + rest_.size(), code, base).ptr;
    if (end == begin) return false;
    AppendCharacter(part_, code);
    rest_.remove_prefix(static_cast<std::size_t>(end - begin));
    return true;
  }

  /// Blanks count where they were quoted or escaped.
  void EndPart() {
    const std::size_t filled = part_.find_last_not_of(" \t") + 1;
    part_.resize(std::max(filled, inQuotes_ ? part_.size() : kept_));
    plain_ += part_.starts_with("@@") ? part_.substr(1) : part_;
    part_.clear();
    kept_ = 0;
  }

  void SkipBlanks() { rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t"), rest_.size())); }

  std::string_view rest_;
  std::string plain_;
  std::string part_;      // up to the next comma
  std::size_t kept_ = 0;  // so much of the part stands whatever follows
  bool inQuotes_ = false;
};

}  // namespace

std::optional<IniText::Line> IniText::ReadLine(std::string_view line, const std::string& group) {
  Line read{std::string(line), group, {}, {}, false};
  const std::string_view said = Trimmed(line);
  if (said.empty() || said.front() == ';' || said.front() == '#') return read;
  if (said.front() == '[') {
    const std::size_t end = said.find(']');
    if (end == std::string_view::npos) return std::nullopt;
    read.group = GroupOf(Trimmed(said.substr(1, end - 1)));
    read.isSection = true;
    return read;
  }
  const std::size_t equals = said.find('=');
  if (equals == 0 || equals == std::string_view::npos) return std::nullopt;
  read.name = PlainName(Trimmed(said.substr(0, equals)));
  read.value = said.substr(equals + 1);
  return read;
}

std::optional<IniText> IniText::Read(std::string_view content) {
  if (content.find('\0') != std::string_view::npos) return std::nullopt;
  while (content.starts_with(byteOrderMark)) content.remove_prefix(byteOrderMark.size());
  IniText ini;
  if (content.find("\r\n") != std::string_view::npos) ini.lineEnd_ = "\r\n";
  std::string group;
  while (!content.empty()) {
    const std::size_t end = std::min(content.find('\n'), content.size() - 1) + 1;
    auto line = ReadLine(content.substr(0, end), group);
    if (!line) return std::nullopt;
    group = line->group;
    ini.lines_.push_back(*std::move(line));
    content.remove_prefix(end);
  }
  return ini;
}

const IniText::Line* IniText::Find(const std::string& group, const std::string& name,
                                   Same same) const {
  const auto found = std::find_if(lines_.rbegin(), lines_.rend(), [&](const Line& line) {
    return same(line.group, group) && same(line.name, name);
  });
  return found == lines_.rend() ? nullptr : &*found;
}

std::optional<std::string> IniText::ValueIn(const Line* line) {
  if (!line || line->value == "@Invalid()") return std::nullopt;
  return ValueReader(line->value).Read();
}

std::optional<std::string> IniText::Value(const std::string& group, const std::string& name) const {
  return ValueIn(Find(group, name, IsSame));
}

std::optional<std::string> IniText::ValueOfAnyCase(const std::string& group,
                                                   const std::string& name) const {
  return ValueIn(Find(group, name, platform::SameWithoutCase));
}

void IniText::Set(const std::string& group, const std::string& name, const std::string& value) {
  const std::string written = WrittenValue(value);
  Line line{WrittenName(name) + '=' + written + lineEnd_, group, name, written, false};
  if (const Line* found = Find(group, name, IsSame)) {
    lines_[static_cast<std::size_t>(found - lines_.data())] = std::move(line);
  } else {
    Insert(PlaceFor(group), std::move(line));
  }
}

/// Behind the group's last value; makes the section where there is none.
std::size_t IniText::PlaceFor(const std::string& group) {
  for (std::size_t place = lines_.size(); place > 0; --place) {
    const Line& line = lines_[place - 1];
    if (line.group == group && (line.isSection || !line.name.empty())) return place;
  }
  const Line section{WrittenSection(group) + lineEnd_, group, {}, {}, true};
  if (group.empty()) return Insert(0, section);
  const std::size_t end = lines_.size();
  return Insert(lines_.empty() ? end : Insert(end, {lineEnd_, {}, {}, {}, false}), section);
}

/// Answers the place behind the new line.
std::size_t IniText::Insert(std::size_t place, Line line) {
  if (place > 0 && !lines_[place - 1].text.ends_with('\n')) lines_[place - 1].text += lineEnd_;
  lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(place), std::move(line));
  return place + 1;
}

std::vector<std::string> IniText::Groups() const {
  std::vector<std::string> groups;
  for (const Line& line : lines_) {
    if (line.name.empty() || line.group.empty()) continue;
    if (std::ranges::find(groups, line.group) == groups.end()) groups.push_back(line.group);
  }
  return groups;
}

std::string IniText::Text() const {
  std::string text;
  for (const Line& line : lines_) text += line.text;
  return text;
}

}  // namespace desktop

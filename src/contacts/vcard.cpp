// SPDX-License-Identifier: GPL-3.0-or-later
#include "contacts/vcard.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "letters/mail_library.h"
#include "letters/mail_text.h"
#include "platform/ascii.h"

namespace contacts {
namespace {

using platform::SameWithoutCase;
using platform::Uppered;
using std::string_view;

constexpr string_view lineEnd = "\r\n";
constexpr std::size_t longestLine = 75;      // bytes, by the format's rule
constexpr std::size_t longestAddress = 255;  // of a game's record

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

string_view Trimmed(string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

bool IsLine(string_view line, string_view content) {
  return SameWithoutCase(Trimmed(line), content);
}

std::vector<std::string> SplitLines(string_view file) {
  if (file.starts_with("\xEF\xBB\xBF")) file.remove_prefix(3);
  std::vector<std::string> lines;
  while (!file.empty()) {
    const std::size_t end = std::min(file.find_first_of("\r\n"), file.size());
    std::string& line = lines.emplace_back(file.substr(0, end));
    for (char& c : line) {
      const auto code = static_cast<unsigned char>(c);
      if ((code < 0x20 && c != '\t') || code == 0x7F) c = ' ';
    }
    file.remove_prefix(end);
    file.remove_prefix(file.starts_with(lineEnd) ? 2 : std::min<std::size_t>(1, file.size()));
  }
  return lines;
}

/// What stands ahead of the ":" that ends it; quoted parameters may hold one too. Nothing where a
/// line is no property.
std::optional<string_view> HeadOf(string_view line) {
  bool quoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == '"') quoted = !quoted;
    if (line[i] == ':' && !quoted) return line.substr(0, i);
  }
  return std::nullopt;
}

bool IsQuotedPrintable(string_view property) {
  const auto head = HeadOf(property);
  return head && Uppered(*head).find("QUOTED-PRINTABLE") != std::string::npos;
}

bool IsFold(string_view line) { return line.empty() || IsBlank(line.front()); }

/// Whether `line` belongs to the property ahead of it.
bool Continues(string_view property, string_view line) {
  if (IsFold(line)) return true;
  property.remove_suffix(lineEnd.size());
  return property.ends_with('=') && IsQuotedPrintable(property);
}

std::vector<string_view> Split(string_view text, char separator) {
  std::vector<string_view> parts;
  bool quoted = false, escaped = false;
  std::size_t begin = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '"') quoted = !quoted;
    if (text[i] == separator && !quoted && !escaped) {
      parts.push_back(text.substr(begin, i - begin));
      begin = i + 1;
    }
    escaped = text[i] == '\\' && !escaped;
  }
  parts.push_back(text.substr(begin));
  return parts;
}

std::string Decoded(string_view quotedPrintable) {
  const auto digit = [](char c) { return string_view("0123456789ABCDEF").find(Uppered(c)); };
  std::string bytes;
  while (!quotedPrintable.empty()) {
    const char c = quotedPrintable.front();
    std::size_t length = 1;
    if (c == '=' && quotedPrintable.size() >= 3) {
      const auto high = digit(quotedPrintable[1]), low = digit(quotedPrintable[2]);
      if (high != string_view::npos && low != string_view::npos) {
        bytes += static_cast<char>(high * 16 + low);
        length = 3;
      }
    }
    if (length == 1) bytes += c;
    quotedPrintable.remove_prefix(length);
  }
  return bytes;
}

/// A property as it is meant.
struct Property {
  std::string name;  ///< in capitals, without its group
  std::string value;
};

/// The property's lines as one. The oldest version breaks a line where a blank was; the others put
/// the blank in.
std::string Unfolded(string_view property, bool keepsBlank) {
  const bool quotedPrintable = IsQuotedPrintable(property);
  std::string line;
  while (!property.empty()) {
    const std::size_t end = property.find(lineEnd);
    string_view part = property.substr(0, end);
    property.remove_prefix(end + lineEnd.size());
    if (quotedPrintable && line.ends_with('=')) {
      line.pop_back();
    } else if (!line.empty() && !part.empty() && !keepsBlank) {
      part.remove_prefix(1);
    }
    line += part;
  }
  return line;
}

Property Understood(string_view text, bool isOldest) {
  const auto ahead = HeadOf(text);
  if (!ahead) return {};
  Property property;
  property.name = Uppered(Trimmed(Split(*ahead, ';')[0]));
  property.name.erase(0, property.name.rfind('.') + 1);  // a group
  constexpr string_view understood[] = {"FN", "N", "NICKNAME", "EMAIL"};
  if (std::find(std::begin(understood), std::end(understood), property.name) ==
      std::end(understood)) {
    return property;  // it may be a picture of any size
  }
  const std::string line = Unfolded(text, isOldest);
  const string_view head = HeadOf(line).value_or("");
  property.value = line.substr(head.size() + 1);
  std::string charset = "utf-8";
  for (const string_view part : Split(head, ';')) {
    if (Uppered(part).starts_with("CHARSET=")) charset = part.substr(part.find('=') + 1);
  }
  if (IsQuotedPrintable(line)) property.value = Decoded(property.value);
  property.value =
      letters::RaisingMailErrors([&] { return letters::ToUtf8(property.value, charset); });
  return property;
}

std::string Unescaped(string_view value) {
  std::string text;
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (value[i] != '\\' || i + 1 == value.size()) {
      text += value[i];
    } else {
      ++i;
      text += value[i] == 'n' || value[i] == 'N' ? ' ' : value[i];
    }
  }
  return std::string(Trimmed(letters::WithoutReserved(text)));
}

std::string Escaped(string_view text) {
  std::string value;
  for (const char c : text) {
    if (c == '\\' || c == ',' || c == ';') value += '\\';
    value += c;
  }
  return value;
}

/// "Muster;Eva;Maria;Dr.;" is family name, given name, others, titles ahead and behind.
std::string NameOfParts(string_view value) {
  const auto parts = Split(value, ';');
  std::string name;
  for (const std::size_t part : {3u, 1u, 2u, 0u, 4u}) {
    const std::string text = part < parts.size() ? Unescaped(parts[part]) : std::string{};
    if (!text.empty()) name += (name.empty() ? "" : " ") + text;
  }
  return name;
}

std::string Address(string_view value) {
  std::string address = Unescaped(value);
  if (Uppered(address).starts_with("MAILTO:")) address.erase(0, 7);
  return address;
}

bool IsOldest(const VCard& card) {
  return std::any_of(card.properties.begin(), card.properties.end(), [](const std::string& line) {
    return IsLine(line.substr(0, line.find('\r')), "VERSION:2.1");
  });
}

/// In lines of the format's length; no character is cut in two.
std::string Folded(string_view line) {
  std::string folded;
  std::size_t room = longestLine;
  while (line.size() > room) {
    std::size_t cut = room;
    while (cut > 1 && (static_cast<unsigned char>(line[cut]) & 0xC0) == 0x80) --cut;
    folded.append(line.substr(0, cut)).append(lineEnd).append(" ");
    line.remove_prefix(cut);
    room = longestLine - 1;
  }
  return folded.append(line).append(lineEnd);
}

/// A property as it is written. The oldest version breaks no line within a word, and needs no
/// breaks.
std::string Written(string_view line, bool isOldest) {
  return isOldest ? std::string(line).append(lineEnd) : Folded(line);
}

/// The first of the person's name properties that says something.
std::string NameOf(const VCard& card, bool isOldest) {
  std::array<std::string, 3> names;
  for (const std::string& text : card.properties) {
    const auto [name, value] = Understood(text, isOldest);
    if (name == "FN" && names[0].empty()) names[0] = Unescaped(value);
    if (name == "N" && names[1].empty()) names[1] = NameOfParts(value);
    if (name == "NICKNAME" && names[2].empty()) names[2] = Unescaped(value);
  }
  const auto named = std::find_if(names.begin(), names.end(), [](auto& n) { return !n.empty(); });
  return named == names.end() ? std::string{} : *named;
}

}  // namespace

bool IsUsableAddress(string_view address) {
  return letters::IsMailAddress(address) && address.size() <= longestAddress;
}

VCards ReadVCards(string_view file) {
  VCards read;
  std::optional<VCard> open;
  for (const std::string& line : SplitLines(file)) {
    if (IsLine(line, "BEGIN:VCARD")) {
      if (open) ++read.damaged;
      open.emplace();
    } else if (!open) {
      continue;
    } else if (IsLine(line, "END:VCARD")) {
      read.cards.push_back(*std::exchange(open, std::nullopt));
    } else if (!open->properties.empty() && Continues(open->properties.back(), line)) {
      open->properties.back().append(line).append(lineEnd);
    } else if (!IsFold(line)) {
      open->properties.push_back(line + std::string(lineEnd));
    }
  }
  if (open) ++read.damaged;
  return read;
}

std::string WriteVCards(const std::vector<VCard>& cards) {
  std::string file;
  for (const VCard& card : cards) {
    file.append("BEGIN:VCARD").append(lineEnd);
    for (const std::string& property : card.properties) file += property;
    file.append("END:VCARD").append(lineEnd);
  }
  return file;
}

platform::Person PersonOf(const VCard& card) {
  const bool isOldest = IsOldest(card);
  platform::Person person{NameOf(card, isOldest), {}};
  for (const std::string& text : card.properties) {
    const auto [name, value] = Understood(text, isOldest);
    if (name != "EMAIL") continue;
    const std::string address = Address(value);
    const bool repeats =
        std::any_of(person.addresses.begin(), person.addresses.end(),
                    [&](const std::string& other) { return SameWithoutCase(other, address); });
    if (!repeats && IsUsableAddress(address)) person.addresses.push_back(address);
  }
  if (person.name.empty() && !person.addresses.empty()) person.name = person.addresses.front();
  return person;
}

VCard NewVCard(const platform::Person& person) {
  return WithPerson({{Folded("VERSION:3.0")}}, person);
}

VCard WithPerson(VCard card, const platform::Person& person) {
  const bool isOldest = IsOldest(card);
  const bool isRenamed = NameOf(card, isOldest) != person.name;
  const std::string parameters = isOldest ? ";CHARSET=UTF-8:" : ":";
  // Many programs want the parts of a name too; which is which can't be told of what was typed.
  std::vector<std::string> names = {
      Written("FN" + parameters + Escaped(person.name), isOldest),
      Written("N" + parameters + ';' + Escaped(person.name) + ";;;", isOldest)};
  std::vector<std::string> addresses;
  for (const std::string& address : person.addresses) {
    addresses.push_back(Written("EMAIL" + parameters + Escaped(address), isOldest));
  }
  std::vector<std::string> others;
  for (std::string& text : card.properties) {
    const auto [name, value] = Understood(text, isOldest);
    if (name == "FN" || name == "N") {
      if (!isRenamed) names[name == "FN" ? 0 : 1] = std::move(text);
    } else if (name == "EMAIL" && IsUsableAddress(Address(value))) {
      const auto kept = std::find(person.addresses.begin(), person.addresses.end(), Address(value));
      if (kept != person.addresses.end()) {
        addresses[static_cast<std::size_t>(kept - person.addresses.begin())] = std::move(text);
      }
    } else {
      others.push_back(std::move(text));
    }
  }
  names.insert(names.end(), addresses.begin(), addresses.end());
  const bool hasVersion = !others.empty() && Uppered(others.front()).starts_with("VERSION");
  others.insert(others.begin() + (hasVersion ? 1 : 0), names.begin(), names.end());
  return {std::move(others)};
}

}  // namespace contacts

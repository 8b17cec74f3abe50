// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/servers/imap_response.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

#include "platform/ascii.h"

namespace post {
namespace {

constexpr int greatestDepth = 16;
constexpr int greatestCount = 100000;

/// The size in a line's "{n}" or "{n+}" at its end.
std::optional<std::size_t> LiteralSize(std::string_view line) {
  if (!line.ends_with('}')) return std::nullopt;
  const auto open = line.rfind('{');
  if (open == std::string_view::npos) return std::nullopt;
  std::string_view digits = line.substr(open + 1, line.size() - open - 2);
  if (digits.ends_with('+')) digits.remove_suffix(1);
  std::size_t size = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), size);
  if (digits.empty() || end != digits.data() + digits.size()) return std::nullopt;
  // A number that can't be held is a size that can't be read either.
  return error == std::errc::result_out_of_range ? std::string::npos : size;
}

class ValueReader {
 public:
  explicit ValueReader(const ImapResponse& response) : response_(response) {}

  /// Up to the end of the list, or of the line.
  std::vector<ImapValue> Items(int depth) {
    std::vector<ImapValue> items;
    while (at_ < response_.line.size()) {
      const char c = response_.line[at_];
      if (c == ')') {
        ++at_;
        if (depth > 0) break;
      } else if (c == ' ') {
        ++at_;
      } else {
        ImapValue item = Item(depth);
        if (depth < greatestDepth && ++count_ < greatestCount) items.push_back(std::move(item));
      }
    }
    return items;
  }

 private:
  ImapValue Item(int depth) {
    switch (response_.line[at_]) {
      case '(':
        ++at_;
        // The brackets of what is nested too deep no longer mean anything.
        if (depth >= greatestDepth) return {};
        return {ImapValue::Kind::List, {}, Items(depth + 1)};
      case '"':
        return {ImapValue::Kind::Text, QuotedText(), {}};
      case '\0':
        ++at_;
        return {ImapValue::Kind::Text, NextLiteral(), {}};
      default:
        return {ImapValue::Kind::Word, Word(), {}};
    }
  }

  std::string NextLiteral() {
    return literal_ < response_.literals.size() ? response_.literals[literal_++] : std::string{};
  }

  std::string QuotedText() {
    std::string text;
    for (++at_; at_ < response_.line.size() && response_.line[at_] != '"'; ++at_) {
      if (response_.line[at_] == '\\' && at_ + 1 < response_.line.size()) ++at_;
      text += response_.line[at_];
    }
    ++at_;
    return text;
  }

  /// What stands in square brackets belongs to the word, blanks included.
  std::string Word() {
    const std::string& line = response_.line;
    const std::size_t start = at_;
    bool inBrackets = false;
    for (; at_ < line.size(); ++at_) {
      const char c = line[at_];
      if (c == '[') inBrackets = true;
      if (c == ']') inBrackets = false;
      if (!inBrackets && (c == ' ' || c == '(' || c == ')' || c == '\0')) break;
    }
    if (at_ == start) ++at_;
    return line.substr(start, at_ - start);
  }

  const ImapResponse& response_;
  std::size_t at_ = 0;
  std::size_t literal_ = 0;
  int count_ = 0;
};

}  // namespace

bool ImapValue::Is(std::string_view word) const {
  return kind == Kind::Word && platform::SameWithoutCase(text, word);
}

std::vector<ImapValue> ImapResponse::Values() const { return ValueReader(*this).Items(0); }

ImapResponse ReadImapResponse(ServerLink& link) {
  ImapResponse response;
  while (true) {
    std::string line = link.ReadLine();
    std::replace(line.begin(), line.end(), '\0', ' ');
    const auto size = LiteralSize(line);
    if (!size) {
      response.line += line;
      return response;
    }
    response.line.append(line, 0, line.rfind('{')) += '\0';
    response.literals.push_back(link.ReadBytes(*size));
  }
}

}  // namespace post

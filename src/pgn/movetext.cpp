// SPDX-License-Identifier: GPL-3.0-or-later
#include "pgn/movetext.h"

#include "mail/character_count.h"

namespace pgn {
namespace {

constexpr std::size_t longestLine = 79;

/// Longer ones, as addresses of the Web may be, are parted: some readers know shorter lines only.
constexpr std::size_t longestWord = 70;

std::string WithoutBraces(std::string_view text) {
  std::string plain(text);
  for (char& c : plain) {
    if (c == '{') c = '(';
    if (c == '}') c = ')';
    if (static_cast<unsigned char>(c) < ' ') c = ' ';
  }
  return plain;
}

}  // namespace

void MoveText::AddMove(const Turn& turn, std::string_view san) {
  const bool white = turn.side == rules::White;
  if (white || numberNeeded_) AddWord(std::to_string(turn.number) + (white ? "." : "..."));
  AddWord(san);
  numberNeeded_ = false;
}

void MoveText::AddComment(std::string_view text) {
  std::string words = '{' + WithoutBraces(text);
  const auto last = words.find_last_not_of(' ');
  if (last == 0) return;
  words.erase(last + 1) += '}';
  const auto first = words.find_first_not_of(' ', 1);
  words.erase(1, first - 1);
  for (std::size_t at = 0; at < words.size();) {
    // A line that begins with a percent sign would be left out by readers.
    std::size_t end = words.find(' ', at);
    while (end != std::string::npos && words[end + 1] == '%') end = words.find(' ', end + 1);
    if (end == std::string::npos) end = words.size();
    if (end > at) AddWord(std::string_view(words).substr(at, end - at));
    at = end + 1;
  }
  numberNeeded_ = true;
}

std::string MoveText::Finished(std::string_view result) {
  AddWord(result);
  return text_ + "\n\n";
}

void MoveText::AddWord(std::string_view word) {
  const std::size_t length = mail::CharacterCount(word);
  if (length > longestWord) {
    const std::string_view front = mail::FirstCharacters(word, longestWord);
    AddWord(front);
    return AddWord(word.substr(front.size()));
  }
  const bool fits = lineLength_ + 1 + length <= longestLine;
  if (lineLength_ > 0) text_ += fits ? ' ' : '\n';
  lineLength_ = lineLength_ > 0 && fits ? lineLength_ + 1 + length : length;
  text_ += word;
}

}  // namespace pgn

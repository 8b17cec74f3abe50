// SPDX-License-Identifier: GPL-3.0-or-later
#include "pgn/movetext.h"

#include <algorithm>

#include "mail/character_count.h"

namespace pgn {
namespace {

constexpr std::size_t longestLine = 79;

/// Longer ones, as addresses of the Web may be, are parted: some readers know shorter lines only.
constexpr std::size_t longestWord = 70;

/// A word is parted within a command to no program, which readers leave out: there a line may end,
/// and yet no blank comes into the word.
constexpr std::string_view commandBegin = "[%";
constexpr std::string_view commandEnd = "]";

std::string WithoutBraces(std::string_view text) {
  std::string plain(text);
  for (char& c : plain) {
    if (c == '{') c = '(';
    if (c == '}') c = ')';
    if (static_cast<unsigned char>(c) < ' ') c = ' ';
  }
  return plain;
}

/// How much of a word stands ahead of the place where it is parted; all where it isn't. What looks
/// like a command in it is parted as well, so that it stays.
std::string_view FrontOf(std::string_view word) {
  const auto command = word.find(commandBegin);
  const auto front = word.substr(0, command == std::string_view::npos ? command : command + 1);
  const bool fits = mail::CharacterCount(front) <= longestWord;
  if (fits && front.size() == word.size()) return word;
  return mail::FirstCharacters(front, longestWord - commandBegin.size());
}

/// A line that begins with a percent sign is left out by readers, and with a bracket may begin a
/// tag.
bool MayBeginLine(std::string_view word) { return word.front() != '%' && word.front() != '['; }

}  // namespace

void MoveText::AddMove(const Turn& turn, std::string_view san) {
  const bool white = turn.side == rules::White;
  if (white || numberNeeded_) AddWord(std::to_string(turn.number) + (white ? "." : "..."));
  AddWord(san);
  numberNeeded_ = false;
}

void MoveText::AddComment(std::string_view text, bool behindCommand) {
  const std::string plain = WithoutBraces(text);
  const auto first = plain.find_first_not_of(' ');
  if (first == std::string::npos) return;
  std::string words(behindCommand ? commandEnd : "{");
  words.append(plain, first, plain.find_last_not_of(' ') + 1 - first) += '}';
  if (behindCommand) AddWord(std::string(1, '{').append(commandBegin));
  for (std::size_t at = 0; at < words.size();) {
    const std::size_t end = std::min(words.find(' ', at), words.size());
    if (end > at) AddParted(words.substr(at, end - at));
    at = end + 1;
  }
  numberNeeded_ = true;
}

std::string MoveText::Finished(std::string_view result) {
  AddWord(result);
  return text_ + "\n\n";
}

void MoveText::AddParted(std::string word) {
  while (true) {
    const std::string_view front = FrontOf(word);
    if (front.size() == word.size()) return AddWord(word);
    AddWord(std::string(front).append(commandBegin));
    word = std::string(commandEnd).append(word, front.size());
  }
}

void MoveText::AddWord(std::string_view word) {
  const std::size_t length = mail::CharacterCount(word);
  if (lineLength_ > 0 && lineLength_ + 1 + length > longestLine) {
    text_ += '\n';
    lineLength_ = 0;
  }
  if (lineLength_ > 0 || !MayBeginLine(word)) {
    text_ += ' ';
    ++lineLength_;
  }
  text_ += word;
  lineLength_ += length;
}

}  // namespace pgn

// SPDX-License-Identifier: GPL-3.0-or-later
#include "pgn/game_text.h"

#include <algorithm>

#include "platform/utf8.h"

namespace pgn {
namespace {

constexpr std::string_view gameLine = "[Event \"";
constexpr std::string_view blanks = " \t\r\n\v\f";
constexpr std::string_view tokenEnds = " \t\r\n\v\f{}();[]$";

std::string_view ResultIn(std::string_view token) {
  if (token == "1-0" || token == "0-1" || token == "1/2-1/2" || token == "*") return token;
  return token == "1/2" ? "1/2-1/2" : std::string_view{};
}

/// Without the number of the move, which may stand close to it.
std::string_view WithoutNumber(std::string_view token) {
  const auto digits = token.find_first_not_of("0123456789");
  if (digits == std::string_view::npos) return {};
  if (digits > 0 && token[digits] != '.') return token;
  const auto move = token.find_first_not_of('.', digits);
  return move == std::string_view::npos ? std::string_view{} : token.substr(move);
}

/// The sign from `at` on, if it comes before the line's end. Lines may be very long, with very many
/// tags: nothing looks further than it has to.
std::size_t FindInLine(std::string_view text, char sign, std::size_t at) {
  while (at < text.size() && text[at] != sign && text[at] != '\n') ++at;
  return at < text.size() && text[at] == sign ? at : std::string_view::npos;
}

/// The quote that ends a tag's value; one behind a backslash doesn't.
std::size_t ClosingQuote(std::string_view text, std::size_t at) {
  std::size_t quote = FindInLine(text, '"', at);
  for (; at < quote && quote != std::string_view::npos; ++at) {
    if (text[at] == '\\' && ++at == quote) quote = FindInLine(text, '"', quote + 1);
  }
  return quote;
}

}  // namespace

std::string AsUtf8(std::string_view text) {
  std::string utf8;
  if (platform::IsUtf8(text)) {
    utf8 = text;
  } else {
    for (const unsigned char c : text) platform::AppendUtf8(utf8, c);
  }
  std::ranges::replace_if(
      utf8, [](unsigned char c) { return c < ' '; }, ' ');
  return utf8;
}

bool GameText::IsBlank() const {
  return tags.empty() && moves.empty() && result.empty() && trouble.empty();
}

std::string_view GameText::RawTag(std::string_view name) const {
  const auto found = std::ranges::find(tags, name, [](const auto& tag) { return tag.first; });
  return found == tags.end() ? std::string_view{} : found->second;
}

std::string GameText::Tag(std::string_view name) const {
  const std::string_view raw = RawTag(name);
  std::string value;
  for (std::size_t i = 0; i < raw.size(); ++i) {
    if (raw[i] == '\\' && i + 1 < raw.size()) ++i;
    value += raw[i];
  }
  return AsUtf8(value);
}

GameReader::GameReader(std::string_view text) : text_(text) {
  constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
  if (text_.starts_with(byteOrderMark)) text_.remove_prefix(byteOrderMark.size());
}

bool GameReader::Next(GameText& game) {
  do {
    game = {};
    while (SkipBlanks() && text_[at_] == '[') ReadTag(game);
    ReadMoves(game);
    game.isCut = game.result.empty() && AtEnd();
    if (game.result.empty()) game.result = ResultIn(game.RawTag("Result"));
  } while (game.IsBlank() && !AtEnd());
  return !game.IsBlank();
}

bool GameReader::AtGameLine() const {
  return (at_ == 0 || text_[at_ - 1] == '\n') && text_.substr(at_).starts_with(gameLine);
}

void GameReader::SkipLine() {
  const auto end = text_.find('\n', at_);
  at_ = end == std::string_view::npos ? text_.size() : end + 1;
}

/// Also over lines that are none. False at the end of the text.
bool GameReader::SkipBlanks() {
  while (true) {
    at_ = std::min(text_.find_first_not_of(blanks, at_), text_.size());
    if (AtEnd()) return false;
    if (text_[at_] != '%' || (at_ > 0 && text_[at_ - 1] != '\n')) return true;
    SkipLine();
  }
}

/// Passes over the whole line of a tag that isn't well formed.
void GameReader::ReadTag(GameText& game) {
  const auto open = FindInLine(text_, '"', at_);
  const auto close = open == std::string_view::npos ? open : ClosingQuote(text_, open + 1);
  const auto end = close == std::string_view::npos ? close : FindInLine(text_, ']', close);
  if (end == std::string_view::npos) return SkipLine();
  auto name = text_.substr(at_ + 1, open - at_ - 1);
  name.remove_prefix(std::min(name.find_first_not_of(blanks), name.size()));
  game.tags.emplace_back(name.substr(0, name.find_first_of(blanks)),
                         text_.substr(open + 1, close - open - 1));
  at_ = end + 1;
}

void GameReader::ReadMoves(GameText& game) {
  while (SkipBlanks() && text_[at_] != '[') {
    if (!ReadWord(game)) return;
  }
}

/// False at the end of the game.
bool GameReader::ReadWord(GameText& game) {
  switch (text_[at_]) {
    case '{':
      ReadComment(game);
      return true;
    case ';':
      ReadLineComment(game);
      return true;
    case '(':
      SkipVariation(game);
      return true;
    case ')':
    case '}':
    case ']':
      CloseUnopened(game);
      return true;
    default:
      TakeToken(game);
      return game.result.empty();
  }
}

void GameReader::ReadComment(GameText& game) {
  const auto begin = at_ + 1;
  for (at_ = begin; !AtEnd() && text_[at_] != '}'; ++at_) {
    // A game's line in it tells that its end is another's.
    if (text_[at_] == '[' && AtGameLine()) return Refuse(game, "A comment isn't closed.");
  }
  if (AtEnd()) Refuse(game, "A comment isn't closed.");
  game.comments.push_back({game.moves.size(), text_.substr(begin, at_ - begin)});
  if (!AtEnd()) ++at_;
}

void GameReader::ReadLineComment(GameText& game) {
  const auto begin = at_ + 1;
  SkipLine();
  game.comments.push_back({game.moves.size(), text_.substr(begin, at_ - begin)});
}

void GameReader::SkipVariation(GameText& game) {
  const auto comments = game.comments.size();
  std::size_t depth = 0;
  do {
    const char c = text_[at_];
    if (c == '{') {
      ReadComment(game);
    } else if (c == ';') {
      ReadLineComment(game);
    } else if (AtGameLine()) {
      break;
    } else {
      depth += c == '(';
      depth -= c == ')';
      ++at_;
    }
  } while (depth > 0 && !AtEnd() && SkipBlanks());
  if (depth > 0) Refuse(game, "A variation isn't closed.");
  game.comments.resize(comments);
}

void GameReader::CloseUnopened(GameText& game) {
  Refuse(game, text_[at_] == '}' ? "A comment ends that didn't begin."
                                 : "A variation ends that didn't begin.");
  ++at_;
}

/// Behind what is wrong, moves mean nothing any more.
void GameReader::TakeToken(GameText& game) {
  const auto end = std::min(text_.find_first_of(tokenEnds, at_ + 1), text_.size());
  const auto token = text_.substr(at_, end - at_);
  at_ = end;
  if (const auto result = ResultIn(token); !result.empty()) {
    game.result = result;
    return;
  }
  const auto move = WithoutNumber(token);
  const bool isSign = move.empty() || move.front() == '$' || move.front() == '!' ||
                      move.front() == '?' || move == "e.p." || move == "ep";
  if (!isSign && game.trouble.empty()) game.moves.push_back(move);
}

void GameReader::Refuse(GameText& game, const char* sentence) {
  if (game.trouble.empty()) game.trouble = sentence;
}

}  // namespace pgn

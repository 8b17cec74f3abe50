// SPDX-License-Identifier: GPL-3.0-or-later
// The words of games in PGN, as others write it: the import format of the standard, and what is
// usual beside it. Whether the moves are any is not asked here.
//
//   [Name "value"]        tags; a quote and a backslash in a value have a backslash before them
//   {...}  ;... to the line's end       comments
//   (...)                 variations, in which variations may lie as deep as they like
//   $1  !?  12.  12...    signs and numbers
//   1-0  0-1  1/2-1/2  *  the end of a game
//   %... at the beginning of a line     nothing, to the line's end
//
// A line that begins with `[Event "` begins a game wherever it stands: a comment or variation that
// nobody closed costs the game that it is in.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pgn {

/// A game in views of the text that was read.
struct GameText {
  struct Comment {
    std::size_t ply = 0;  ///< how many moves stand before it
    std::string_view text;
  };

  std::vector<std::pair<std::string_view, std::string_view>> tags;  ///< as they are written
  std::vector<std::string_view> moves;
  std::vector<Comment> comments;
  std::string_view result;  ///< behind the moves, else in the tag; blank where the game breaks off
  bool isCut = false;       ///< the text ends with it, and no result stands behind the moves
  std::string trouble;      ///< what is wrong with its form behind the last move, as a sentence

  /// As it is written; blank where there is none.
  std::string_view RawTag(std::string_view name) const;

  /// As UTF-8, with blanks for control characters; blank where there is none.
  std::string Tag(std::string_view name) const;

  bool IsBlank() const;
};

/// Text of others as UTF-8: what is none was written in Latin-1.
std::string AsUtf8(std::string_view text);

class GameReader {
 public:
  /// A byte order mark ahead of the text is none of it.
  explicit GameReader(std::string_view text);

  /// Reads the next game. False where there is none.
  bool Next(GameText& game);

 private:
  bool AtEnd() const { return at_ >= text_.size(); }
  bool AtGameLine() const;
  void SkipLine();
  bool SkipBlanks();
  void ReadTag(GameText& game);
  void ReadMoves(GameText& game);
  bool ReadWord(GameText& game);
  void ReadComment(GameText& game);
  void ReadLineComment(GameText& game);
  void SkipVariation(GameText& game);
  void CloseUnopened(GameText& game);
  void TakeToken(GameText& game);
  void Refuse(GameText& game, const char* sentence);

  std::string_view text_;
  std::size_t at_ = 0;
};

}  // namespace pgn

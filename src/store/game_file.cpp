// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/game_file.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "platform/conversions.h"
#include "platform/process_state.h"
#include "platform/text_fields.h"

namespace store {
namespace {

constexpr int fixedFields = static_cast<int>(gameFields.size());
constexpr int fieldsOfMove = 4;

template <typename Value>
Value ValueOrRaise(const std::optional<Value>& value, std::string_view text) {
  if (!value) throw std::invalid_argument("not a value: " + std::string(text));
  return *value;
}

/// The content from the first game to the end of the last one's line. The blanks that end the
/// comment of a whole line are its own. Without any game nothing is left out: a file of nothing but
/// NUL bytes was full of games once, and must not pass for an empty one.
std::string_view WithoutSurroundings(std::string_view content) {
  constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
  constexpr std::string_view nothing{" \t\r\n\0", 5};
  if (content.starts_with(byteOrderMark)) content.remove_prefix(byteOrderMark.size());
  const auto last = content.find_last_not_of(nothing);
  if (last == std::string_view::npos) return content;
  const auto lineEnd = content.find('\n', last);
  if (lineEnd != std::string_view::npos) return content.substr(0, lineEnd + 1);
  return content.substr(0, content.find('\0', last));
}

bool IsCoordinates(std::string_view text) {
  return text.size() == 4 && text.find_first_not_of("0123456789") == std::string_view::npos;
}

/// What the last four fields of the moves are where they are a move; where the last move is cut off
/// they aren't.
std::optional<MoveRecord> MoveAtEnd(std::string_view moves) {
  std::size_t begin = moves.size();
  for (int field = 0; field < fieldsOfMove; ++field) {
    if (begin == 0) return std::nullopt;
    begin = moves.rfind('|', begin - 1);
    if (begin == std::string_view::npos) return std::nullopt;
  }
  platform::FieldWalk fields(moves.substr(begin + 1), '|');
  const auto number = platform::ToInteger32(fields.Next());
  const std::string_view coordinates = fields.Next();
  if (!number || !IsCoordinates(coordinates)) return std::nullopt;
  MoveRecord move{*number, std::string(coordinates), {}, {}};
  move.MoveText = fields.Next();
  move.MoveComment = fields.Next();
  return move;
}

int FieldsOfMoves(std::string_view line) { return platform::CountFields(line, '|') - fixedFields; }

void AppendValue(std::string& line, std::int32_t value) { line += std::to_string(value); }
void AppendValue(std::string& line, bool value) { line += value ? "-1" : "0"; }
void AppendValue(std::string& line, const std::string& value) { line += value; }

}  // namespace

std::string GameFilePath() {
  return platform::Process().DataPath + platform::Process().DatabaseFile;
}

LineWalk::LineWalk(std::string_view content) : rest_(WithoutSurroundings(content)) {}

std::optional<std::string_view> LineWalk::Next() {
  if (rest_.empty()) return std::nullopt;
  const auto end = rest_.find('\n');
  std::string_view line = rest_.substr(0, end);
  rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

void Convert(std::string_view text, std::int32_t& value) {
  value = ValueOrRaise(platform::ToInteger32(text), text);
}

void Convert(std::string_view text, std::int16_t& value) {
  value = ValueOrRaise(platform::ToInteger16(text), text);
}

void Convert(std::string_view text, bool& value) {
  value = ValueOrRaise(platform::ToBoolean(text), text);
}

void Convert(std::string_view text, std::string& value) { value = text; }

std::int32_t GameIDOfLine(std::string_view line) {
  std::int32_t id = 0;
  Convert(platform::GetField(line, 1, '|'), id);
  return id;
}

void ReadGameLine(std::string_view line, GameRecord& record) {
  if (line.empty()) throw std::invalid_argument("it is empty");
  platform::FieldWalk fields(line, '|');
  for (const GameField& field : gameFields) {
    const std::string_view text = fields.Next();
    try {
      std::visit([&](auto member) { Convert(text, record.*member); }, field.member);
    } catch (const std::invalid_argument&) {
      throw std::invalid_argument("its " + std::string(field.key) + " can't be read");
    }
  }
}

int StoredMoves(std::string_view line) {
  return std::max(0, platform::RoundedQuotient(FieldsOfMoves(line), fieldsOfMove));
}

bool HoldsFewerMoves(std::string_view line, std::int32_t count) {
  return FieldsOfMoves(line) < std::int64_t{count} * fieldsOfMove;
}

MoveRecords ReadWholeMoves(std::string_view line) {
  MoveRecords moves = ReadMoves(line);
  // A line may lack fixed fields, too, and holds fewer than none then.
  while (!moves.empty() && HoldsFewerMoves(line, static_cast<std::int32_t>(moves.size()))) {
    moves.pop_back();
  }
  return moves;
}

MoveRecords ReadMoves(std::string_view line) {
  MoveRecords moves(static_cast<std::size_t>(StoredMoves(line)));
  platform::FieldWalk fields(MovesText(line), '|');
  fields.Next();
  for (MoveRecord& move : moves) {
    const std::string_view number = fields.Next();
    try {
      Convert(number, move.MoveNumber);
    } catch (const std::invalid_argument&) {
      const auto place = std::to_string(&move - moves.data() + 1);
      throw std::invalid_argument("the number of its move " + place + " can't be read");
    }
    move.MoveCoordinates = fields.Next();
    move.MoveText = fields.Next();
    move.MoveComment = fields.Next();
  }
  return moves;
}

std::optional<MoveRecord> ReadLastMove(std::string_view line) {
  if (auto move = MoveAtEnd(MovesText(line))) return move;
  try {
    MoveRecords moves = ReadWholeMoves(line);
    return moves.empty() ? std::nullopt : std::optional(std::move(moves.back()));
  } catch (const std::invalid_argument&) {
    return std::nullopt;
  }
}

std::string_view MovesText(std::string_view line) {
  std::size_t end = line.find('|');
  for (int field = 1; field < fixedFields && end != std::string_view::npos; ++field) {
    end = line.find('|', end + 1);
  }
  return end == std::string_view::npos ? std::string_view{} : line.substr(end);
}

std::string_view WholeMovesText(std::string_view line) {
  const std::string_view text = MovesText(line);
  std::size_t whole = 0;
  std::size_t field = 0;  // each begins with its "|"
  for (int i = 1; field != std::string_view::npos && field < text.size(); ++i) {
    field = text.find('|', field + 1);
    if (i % fieldsOfMove == 0) whole = std::min(field, text.size());
  }
  return text.substr(0, whole);
}

void AppendGame(std::string& line, const GameRecord& record) {
  for (const GameField& field : gameFields) {
    if (&field != &gameFields.front()) line += '|';
    std::visit([&](auto member) { AppendValue(line, record.*member); }, field.member);
  }
}

void AppendMove(std::string& line, const MoveRecord& move) {
  line += '|';
  AppendValue(line, move.MoveNumber);
  for (const std::string* text : {&move.MoveCoordinates, &move.MoveText, &move.MoveComment}) {
    line.append(1, '|').append(*text);
  }
}

}  // namespace store

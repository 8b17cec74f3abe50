// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/move_text_check.h"

#include <algorithm>
#include <stdexcept>

#include "mail/character_count.h"
#include "mail/move_mail.h"
#include "platform/conversions.h"
#include "platform/messages.h"
#include "platform/text_fields.h"

namespace mail {
namespace {

using platform::FieldWalk;
using platform::IsNumeric;
using std::string_view;

constexpr auto nowhere = string_view::npos;

bool IsLineBreak(char c) { return c == '\r' || c == '\n'; }

/// The position behind a start marker that begins at `from` and may have line breaks inside.
/// Only "<" and "<<" are beginnings of the marker that end in "<" too, so that a long run of line
/// breaks is walked by two attempts at most.
std::size_t BehindBrokenStartMarker(string_view text, std::size_t from) {
  std::size_t matched = 0;
  for (std::size_t i = from; i < text.size(); ++i) {
    if (IsLineBreak(text[i])) continue;
    if (text[i] != startMarker[matched]) return nowhere;
    if (++matched == startMarker.size()) return i + 1;
  }
  return nowhere;
}

/// The position of an end marker that ends at `last` or in front of it, may have line breaks inside
/// and doesn't reach back past `start`.
std::size_t BrokenEndMarker(string_view text, std::size_t start, std::size_t last) {
  std::size_t unmatched = endMarker.size();
  for (std::size_t i = last + 1; i > start; --i) {
    if (IsLineBreak(text[i - 1])) continue;
    if (text[i - 1] != endMarker[unmatched - 1]) return nowhere;
    if (--unmatched == 0) return i - 1;
  }
  return nowhere;
}

std::size_t FindStart(string_view text) {
  const auto exact = text.find(startMarker);
  if (exact != nowhere) return exact + startMarker.size();
  for (auto i = text.find('<'); i != nowhere; i = text.find('<', i + 1)) {
    if (const auto start = BehindBrokenStartMarker(text, i); start != nowhere) return start;
  }
  return nowhere;
}

std::size_t FindEnd(string_view text, std::size_t start) {
  const auto exact = text.find(endMarker, start + 1);
  if (exact != nowhere) return exact;
  for (auto i = text.find('>', start + 1); i != nowhere; i = text.find('>', i + 1)) {
    // The marker ends in ">>": the first of them is met here, so the walk begins one behind it.
    const auto end = BrokenEndMarker(text, start, std::min(i + 1, text.size() - 1));
    if (end != nowhere) return end;
  }
  return nowhere;
}

bool IsNumberOrEmpty(string_view field) { return field.empty() || IsNumeric(field); }

bool IsDateStamp(string_view field) { return field.size() == 12 && IsNumeric(field); }

bool IsName(string_view field) { return CharacterCount(field) <= longestName; }

bool IsDate(string_view field) {
  return CharacterCount(field) == 10 && !IsNumeric(field) && platform::ToDate(field);
}

bool IsTrueOrFalse(string_view field) { return field == "True" || field == "False"; }

/// A row that is no number passes: a blank board travels as eight empty rows.
bool IsStartBoard(string_view field) {
  if (field.empty()) return true;
  const int rowCount = platform::CountFields(field, ';');
  if (rowCount != 8) return false;
  FieldWalk rows(field, ';');
  for (int i = 0; i < rowCount; ++i) {
    const string_view row = rows.Next();
    if (IsNumeric(row) && row.size() != 16) return false;
  }
  return true;
}

bool IsCoordinates(string_view field) {
  if (field == "0000") return true;
  return field.size() == 4 &&
         std::all_of(field.begin(), field.end(), [](char c) { return c >= '1' && c <= '8'; });
}

/// Takes the four fields of a move.
bool IsMove(FieldWalk& fields) {
  const bool numbered = IsNumeric(fields.Next());
  const bool placed = IsCoordinates(fields.Next());
  const bool shortText = CharacterCount(fields.Next()) <= 15;
  fields.Next();  // a comment may have grown on the way, as filters rewrite links: it is cut then
  return numbered && placed && shortText;
}

using FieldCheck = bool (*)(string_view);

/// The fields in front of the moves, in their order; the first one is stage 2.
constexpr FieldCheck fieldChecks[] = {
    IsNumberOrEmpty, IsNumeric, IsDateStamp,   IsName,       IsDate,
    IsName,          IsName,    IsTrueOrFalse, IsStartBoard,
};

/// More than the longest game with the longest comments; a row of a start board that is no number
/// has no bound of its own.
constexpr std::size_t greatestText = 1u << 20;

/// A number may have good form and yet be none that the game file can hold. Such a mail must not
/// stand in the way of those behind it.
void RequireStorableNumbers(string_view text) {
  const int fieldCount = platform::CountFields(text, '|');
  FieldWalk fields(text, '|');
  for (int field = 1; field <= fieldCount; ++field) {
    const string_view number = fields.Next();
    const bool isIdentifier = field <= 2 && !number.empty();
    const bool isMoveNumber = field >= 10 && (field - 10) % 4 == 0;
    if ((isIdentifier || isMoveNumber) && !platform::ToInteger32(number)) {
      throw std::out_of_range("a number beyond 32 bits");
    }
  }
}

}  // namespace

std::string ExtractMoveText(string_view body) {
  if (body.size() <= startMarker.size() + endMarker.size()) return {};
  const auto start = FindStart(body);
  if (start == nowhere) return {};
  const auto end = FindEnd(body, start);
  if (end == nowhere) return {};
  std::string text(body.substr(start, end - start));
  std::erase_if(text, IsLineBreak);
  return text;
}

int CheckMoveText(string_view text) {
  const int fieldCount = platform::CountFields(text, '|');
  if (fieldCount < 11) return 1;
  FieldWalk fields(text, '|');
  int stage = 2;
  for (const FieldCheck holds : fieldChecks) {
    if (!holds(fields.Next())) return stage;
    ++stage;
  }
  const int moveFieldCount = fieldCount - 9;
  if (moveFieldCount % 4 != 0) return stage;
  ++stage;
  for (int move = 0; move < moveFieldCount / 4; ++move) {
    if (!IsMove(fields)) return stage;
  }
  return 0;
}

int StageOfForm(string_view text) {
  const int stage = CheckMoveText(text);
  if (text.size() > greatestText) throw std::length_error("too long for a game");
  if (stage == 0) RequireStorableNumbers(text);
  return stage;
}

std::string BadFormTitle(int stage) {
  return stage == 0 ? "Move email validation error" : "Message retrival error";
}

std::string BadFormText(int stage, bool fromFile) {
  if (stage == 0) {
    return fromFile ? "An error occured while trying to validate the contents of the file you "
                      "selected for import.  Please ensure this file is a valid Tarvolenix chess "
                      "move."
                    : "An error occured while trying to validate the contents of what Tarvolenix "
                      "assumed was a chess move email.";
  }
  const std::string found =
      fromFile ? "The file you selected failed validation."
               : "Tarvolenix found what appeared to be a chess move email, but which failed "
                 "validation.";
  return found +
         "||If it is a corrupt chess move email, get your opponent to re-send there last move.  "
         "Validation progress : " +
         std::to_string(stage) + ".";
}

bool ValidateMoveText(string_view text, bool fromFile, int* failedStage) {
  int stage = 0;
  try {
    stage = StageOfForm(text);
    if (stage == 0) return true;
  } catch (const std::exception&) {
    // of good form, and yet no text that can be taken: told as stage 0
  }
  if (failedStage) *failedStage = stage;
  platform::ShowMessage(platform::MailIcon, BadFormTitle(stage), BadFormText(stage, fromFile), "OK",
                        {}, false, platform::AttentionSound);
  return false;
}

}  // namespace mail

// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/harmless_text.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/utf8.h"

namespace platform {
namespace {

struct Range {
  char32_t from, to;
};

constexpr Range harmfulRanges[] = {
    {0x0000, 0x001F},    // controls
    {0x007F, 0x009F},    //
    {0x00AD, 0x00AD},    // soft hyphen
    {0x034F, 0x034F},    // grapheme joiner
    {0x061C, 0x061C},    // direction: a mark
    {0x115F, 0x1160},    // letters of Hangul without a picture
    {0x17B4, 0x17B5},    // vowels of Khmer without one
    {0x180E, 0x180E},    // vowel separator
    {0x200B, 0x200B},    // space without width
    {0x200E, 0x200F},    // direction: marks
    {0x2028, 0x202E},    // separators; direction: embeddings and overrides
    {0x2060, 0x206F},    // invisible operators; direction: isolates
    {0x3164, 0x3164},    // a letter of Hangul without a picture
    {0xFEFF, 0xFEFF},    // byte order mark
    {0xFFA0, 0xFFA0},    // a letter of Hangul without a picture
    {0xFFF9, 0xFFFB},    // annotations
    {0x1BCA0, 0x1BCA3},  // orders of shorthand
    {0x1D173, 0x1D17A},  // orders of music
    {0xE0000, 0xE007F},  // tags
};

/// Those that can be piled up, and the variation selectors, which have no picture of their own.
constexpr Range markRanges[] = {
    {0x0300, 0x036F}, {0x0483, 0x0489}, {0x0591, 0x05BD}, {0x05BF, 0x05C7}, {0x0610, 0x061A},
    {0x064B, 0x065F}, {0x0670, 0x0670}, {0x06D6, 0x06DC}, {0x06DF, 0x06E8}, {0x06EA, 0x06ED},
    {0x0E31, 0x0E31}, {0x0E34, 0x0E3A}, {0x0E47, 0x0E4E}, {0x0EB1, 0x0EB1}, {0x0EB4, 0x0EBC},
    {0x0EC8, 0x0ECE}, {0x0F71, 0x0F84}, {0x1AB0, 0x1AFF}, {0x1DC0, 0x1DFF}, {0x20D0, 0x20FF},
    {0x302A, 0x302D}, {0x3099, 0x309A}, {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F}, {0xE0100, 0xE01EF},
};

constexpr int mostMarks = 4;

constexpr char32_t asBlanks[] = {'\t', '\n', '\v', '\f', '\r', 0x85, 0x2028, 0x2029};

template <std::size_t size>
bool IsIn(const Range (&ranges)[size], char32_t code) {
  const Range* range = std::lower_bound(std::begin(ranges), std::end(ranges), code,
                                        [](const Range& r, char32_t c) { return r.to < c; });
  return range != std::end(ranges) && range->from <= code;
}

bool IsJoiner(char32_t code) { return code == 0x200C || code == 0x200D; }

/// Letters that a joiner can stand between: those of this alphabet have no use for one.
bool CanBeJoined(char32_t code) { return code >= 0x80 && !IsJoiner(code) && !IsHarmful(code); }

/// Copies a text; knows what it has copied last.
class HarmlessCopy {
 public:
  HarmlessCopy(std::string_view rest, LineEnds lineEnds) : rest_(rest), lineEnds_(lineEnds) {
    text_.reserve(rest.size());
  }

  std::string Run() {
    while (!rest_.empty()) TakeOne();
    return std::move(text_);
  }

 private:
  void TakeOne() {
    const Character character = FirstCharacter(rest_);
    const bool endsLine = rest_.starts_with('\n') || rest_.starts_with("\r\n");
    rest_.remove_prefix(character.length);
    if (endsLine && lineEnds_ == LineEnds::Kept) return Append(character.code);
    // Of the two characters of a line end, the second one becomes the blank.
    if (endsLine && character.code == '\r') return;
    if (std::find(std::begin(asBlanks), std::end(asBlanks), character.code) != std::end(asBlanks)) {
      return Append(' ');
    }
    if (character.isWellFormed && MayStay(character.code)) return Append(character.code);
    if (last_ != replacementCharacter) Append(replacementCharacter);
    marks_ = mostMarks;  // the sign isn't the next tower's base
  }

  bool MayStay(char32_t code) const {
    if (IsJoiner(code)) {
      return CanBeJoined(last_) && !rest_.empty() && CanBeJoined(FirstCharacter(rest_).code);
    }
    return IsIn(markRanges, code) ? marks_ < mostMarks : !IsHarmful(code);
  }

  void Append(char32_t code) {
    AppendUtf8(text_, code);
    last_ = code;
    if (!IsJoiner(code)) marks_ = IsIn(markRanges, code) ? marks_ + 1 : 0;
  }

  std::string text_;
  std::string_view rest_;
  LineEnds lineEnds_;
  char32_t last_ = 0;
  int marks_ = 0;  ///< upon the last letter
};

}  // namespace

bool IsHarmful(char32_t code) { return IsIn(harmfulRanges, code); }

std::string Harmless(std::string_view text, LineEnds lineEnds) {
  return HarmlessCopy(text, lineEnds).Run();
}

}  // namespace platform

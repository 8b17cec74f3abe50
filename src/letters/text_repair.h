// SPDX-License-Identifier: GPL-3.0-or-later
// Undoing what mail programs and mail systems do to a plain text on its way, as far as the
// program's own part of it would suffer. All texts are UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace letters {

/// How the program's own part of a text begins.
inline constexpr std::string_view startMarker = "<<TARVOLENIX:";

/// Whether the marker stands in the text, be it broken over lines.
bool HoldsStartMarker(std::string_view text);

/// The text of a "format=flowed" part with its broken lines joined again. With `deletesBlanks` the
/// sender has put in the blanks in front of the breaks.
std::string JoinedLines(std::string_view flowed, bool deletesBlanks);

/// Without zero bytes and characters of no width. Where the text holds the marker, also without the
/// quotation marks of the lines from there on, if that line is a quoted one, and without the blanks
/// at the end of lines that end a field.
std::string RepairedText(std::string_view text);

}  // namespace letters

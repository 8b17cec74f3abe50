// SPDX-License-Identifier: GPL-3.0-or-later
// Text of other people as it may be shown. A name can hold characters that are no letters but
// orders to whoever shows it: turn the line round, hide what follows, move the cursor, pile marks
// over the neighbours. They are only replaced where the text is shown; what is stored stays.
//
//   controls, directions, invisible characters   a replacement sign for all of a run
//   tabs, separators, line ends in one line      a blank
//   the joiners U+200C and U+200D                stay between letters of scripts that need them
//   marks upon one letter                        the first few stay
//   bytes that are no UTF-8                      a replacement sign for all of a run
#pragma once

#include <string>
#include <string_view>

namespace platform {

enum class LineEnds { Kept, Blanks };

/// The text as UTF-8 that does nothing but be read. Line ends are "\n" and "\r\n".
std::string Harmless(std::string_view text, LineEnds lineEnds = LineEnds::Kept);

/// Whether a character acts on the text around it or can't be seen. Joiners and marks, which depend
/// on their neighbours, are none.
bool IsHarmful(char32_t code);

}  // namespace platform

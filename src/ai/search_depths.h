// SPDX-License-Identifier: GPL-3.0-or-later
// What the search depths are called where their user chooses one. The index is the depth.
#pragma once

namespace ai {

inline constexpr const char* searchDepths[] = {"0 - Silly", "1 - Easy", "2 - Thinks a bit",
                                               "3 - Quite tricky", "4 - Normally takes too long!"};

}  // namespace ai

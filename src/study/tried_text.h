// SPDX-License-Identifier: GPL-3.0-or-later
// Tried lines as text: moves by their squares ("e2e4", "e7e8q"), and in parentheses behind a move
// what was tried instead of it. "e2e4 (d2d4 d7d5) e7e5" is e4 e5, and beside it d4 d5.
#pragma once

#include <string>
#include <string_view>

#include "study/variation_tree.h"

namespace study {

/// All that was tried from a position; blank where nothing was.
std::string WriteTried(const VariationTree& tree, VariationTree::Node from);

/// Tries again what the text tells, from a position of the tree on. A move that isn't one there
/// ends its line, and the others go on. The cursor ends where it was.
void ReadTried(std::string_view text, VariationTree& tree, VariationTree::Node from);

}  // namespace study

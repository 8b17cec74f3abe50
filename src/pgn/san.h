// SPDX-License-Identifier: GPL-3.0-or-later
// Moves in the standard algebraic notation of the PGN standard: "Nbd7", "exd6", "e8=Q+", "O-O".
// The program's own notation, which its lists and mails have, differs from it; that is rules'.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "pgn/turn.h"

namespace pgn {

/// Plays a legal move on the position, and tells how it is written.
std::string PlaySan(Turn& turn, const ChessMove& move);

/// The move that a text means on the live position; nothing where the rules don't allow one, or
/// more than one: `trouble` then says why, as a sentence. Beside the standard's form zeroes in
/// castling, squares of both ends, and the signs of the program's own notation are understood.
std::optional<ChessMove> ReadSan(std::string_view text, const Turn& turn, std::string& trouble);

}  // namespace pgn

// SPDX-License-Identifier: GPL-3.0-or-later
// The skinned Board window: the action bar at the left, the board, the list of moves at the right,
// and what the players said below. While a position is set up, the palette and the bin for pieces
// stand in place of the list and the comment; the computer's progress stands in the comment's too.
#pragma once

#include "skin/layouts/layout.h"

namespace ui::layouts {

inline constexpr int boardCell = 50;

/// The coordinates stand in a band of this width round the squares.
inline constexpr int boardBand = 16;

/// The 64 squares. The lower row's top edge lies at y 387.
inline constexpr Rect boardSquares{122, 37, 8 * boardCell, 8 * boardCell};

inline constexpr Control boardControls[] = {
    {"CBoard", Surface::Board, boardSquares.Grown(boardBand)},

    // Left column, as high as the frame of the board.
    {"Menu1Button", Surface::Button, {22, 21, 76, 28}},
    {"Toolbar1_1", Surface::Tool, {22, 58, 76, 52}},
    {"Toolbar1_2", Surface::Tool, {22, 115, 76, 52}},
    {"Toolbar1_3", Surface::Tool, {22, 172, 76, 52}},
    {"Toolbar1_4", Surface::Tool, {22, 229, 76, 52}},
    {"Toolbar1_5", Surface::Tool, {22, 286, 76, 52}},
    {"Toolbar1_6", Surface::Tool, {22, 343, 76, 52}},
    {"Toolbar1_7", Surface::Tool, {22, 400, 76, 52}},

    // Right column, as high as well.
    {"TVLogo", Surface::Picture, {549, 21, 40, 40}},
    {"DrawLogo", Surface::Occasion, {549, 21, 40, 40}},
    {"Wordmark", Surface::Ornament, {597, 21, 72, 40}, "Tarvolenix"},
    {"MinimiseButton", Surface::Button, {681, 21, 28, 28}},
    {"PlayersTag", Surface::Label, {549, 63, 160, 51}},
    {"TurnTag", Surface::Label, {549, 114, 160, 32}},
    {"AcceptDraw", Surface::Occasion, {549, 117, 76, 28}},
    {"DeclineDraw", Surface::Occasion, {633, 117, 76, 28}},
    {"Menu2Button", Surface::Button, {549, 149, 160, 28}},
    {"MoveList", Surface::Grid, {549, 185, 160, 268}},
    {"PiecePallete_L", Surface::Occasion, {549, 165, 160, 16}},
    {"PiecePallete", Surface::Occasion, {549, 185, 160, 268}},

    // Below the board.
    {"OpponentComment", Surface::Panel, {28, 469, 326, 68}},
    {"NoteMark", Surface::Occasion, {32, 515, 318, 20}},
    {"PlayerComment_L", Surface::Label, {374, 465, 200, 16}},
    {"EarlierComments", Surface::Occasion, {582, 461, 127, 24}},
    {"PlayerComment", Surface::Field, {374, 485, 335, 56}},
    {"TurnHint", Surface::Occasion, {386, 489, 311, 48}},
    {"SearchProgress", Surface::Occasion, {386, 503, 211, 20}},
    {"CancelSearch", Surface::Occasion, {613, 499, 84, 28}},
    {"Trash", Surface::Occasion, {374, 485, 335, 56}},
};

inline constexpr Layout board{"Board", {733, 566}, boardControls};

static_assert(RectOf(board, "CBoard").x == 106 && boardSquares.Bottom() - boardCell == 387);

}  // namespace ui::layouts

// SPDX-License-Identifier: GPL-3.0-or-later
// The skinned promotion dialog: a caption and the four pieces, each on a square of its own.
#pragma once

#include "skin/layouts/layout.h"

namespace ui::layouts {

inline constexpr Control exchangePawnControls[] = {
    {"Label1", Surface::Label, {22, 28, 216, 20}},
    {"PieceButton0", Surface::Picture, {22, 62, 48, 48}},
    {"PieceButton1", Surface::Picture, {78, 62, 48, 48}},
    {"PieceButton2", Surface::Picture, {134, 62, 48, 48}},
    {"PieceButton3", Surface::Picture, {190, 62, 48, 48}},
};

inline constexpr Layout exchangePawn{"ExchangePawn", {261, 145}, exchangePawnControls};

}  // namespace ui::layouts

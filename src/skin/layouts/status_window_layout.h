// SPDX-License-Identifier: GPL-3.0-or-later
// The skinned popup for long work: one centred line.
#pragma once

#include "skin/layouts/layout.h"

namespace ui::layouts {

inline constexpr Control statusWindowControls[] = {
    {"StatusText", Surface::Label, {28, 22, 273, 32}},
};

inline constexpr Layout statusWindow{"StatusWindow", {329, 76}, statusWindowControls, false};

}  // namespace ui::layouts

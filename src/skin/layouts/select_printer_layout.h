// SPDX-License-Identifier: GPL-3.0-or-later
// The skinned printer dialog: the printer, how much goes on a page, and a look at it first.
#pragma once

#include "skin/layouts/layout.h"

namespace ui::layouts {

inline constexpr Control selectPrinterControls[] = {
    {"Label3", Surface::Label, {24, 22, 205, 18}},
    {"CurrentPrinter", Surface::Label, {24, 42, 205, 18}},
    {"SelectPrinterButton", Surface::Button, {233, 28, 96, 28}},
    {"Cols_L", Surface::Label, {24, 68, 60, 28}},
    {"fTVCols", Surface::Label, {88, 68, 24, 28}},
    {"ColSpin", Surface::Occasion, {114, 68, 18, 28}},
    {"Rows_L", Surface::Label, {160, 68, 40, 28}},
    {"fTVRows", Surface::Label, {204, 68, 24, 28}},
    {"RowSpin", Surface::Occasion, {230, 68, 18, 28}},
    {"RowColInstructions", Surface::Label, {24, 102, 305, 34}},
    {"HelpButton", Surface::Button, {22, 142, 28, 28}},
    {"PreviewButton", Surface::Button, {62, 142, 84, 28}},
    {"CancelButton", Surface::Button, {154, 142, 84, 28}},
    {"PrintButton", Surface::Button, {246, 142, 84, 28}},
};

inline constexpr Layout selectPrinter{"SelectPrinter", {351, 191}, selectPrinterControls};

}  // namespace ui::layouts

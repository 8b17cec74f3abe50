// SPDX-License-Identifier: GPL-3.0-or-later
// The button strips of a skin: pictures that are a grid of equal cells. A strip may be drawn at any
// multiple of the size told here; a cell is scaled to its button.
#pragma once

#include "skin/layouts/layout.h"

namespace ui::layouts {

struct Strip {
  Size cell;  ///< logical pixels
  int columns;
  int rows;
  Rect icon = {};     ///< in a cell of an action bar
  Rect caption = {};  ///< the same
};

/// The program cuts the corners of every button round, so strips need no transparency.
inline constexpr int buttonRadius = 6;

/// "SystemButtons.bmp": the face of the buttons of all windows, in two cells side by side. A wider,
/// narrower or higher button keeps the cell's corners, `systemButtonCorner` pixels each way, and
/// stretches what lies between them. Hover, disabled and focused are derived from the cell that is
/// up. The caption is written on it in black, or in 0x808080 where disabled: a light face.
inline constexpr Strip systemButtons{{96, 28}, 2, 1};
enum SystemButtonCell { ButtonUp, ButtonDown };
inline constexpr int systemButtonCorner = 10;

/// "BoardButtons.bmp" and "BoardSetupButtons.bmp": a row for each button of the action bar, from
/// the first to the seventh, a column for each state. A cell is the whole button but its caption,
/// which the program writes, in black or 0x808080 as above, into `caption` of the cell, in one line
/// or two: a light face again, with the icon above the caption.
inline constexpr Strip toolbarButtons{{76, 52}, 4, 7, {26, 2, 24, 24}, {4, 27, 68, 23}};
enum ToolbarColumn { ToolUp, ToolHover, ToolDown, ToolDisabled };

/// The rows of "BoardButtons.bmp" by what the buttons do; those of "BoardSetupButtons.bmp" are
/// View, Coords, an unused one, Reset, Clear, Play, Close.
enum BoardButtonRow {
  ViewRow,
  CoordsRow,
  UndoRow,
  SendRow,
  ResendRow,
  SurrenderRow,
  CloseRow,  ///< Close and Cancel
};

/// "InterfaceButtons.bmp": such cells for the game list's four buttons, with captions of one line
/// and without a state of its own for hover. The rows don't follow the buttons: the third button is
/// the last row.
inline constexpr Strip interfaceButtons{{72, 48}, 3, 4, {24, 5, 24, 24}, {2, 29, 68, 16}};
enum InterfaceColumn { InterfaceUp, InterfaceDown, InterfaceDisabled };
enum InterfaceButtonRow { PlayGameRow, NewGameRow, NewSetupRow, NewComputerRow };

}  // namespace ui::layouts

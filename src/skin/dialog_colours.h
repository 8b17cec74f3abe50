// SPDX-License-Identifier: GPL-3.0-or-later
// Giving all controls of a dialog, whatever they are, the few colours that a skin has for dialogs.
#pragma once

#include "skin/skin_colours.h"

namespace ui {

struct DialogColours {
  QColor ground;  ///< what the frame's picture is on the whole
  QColor text;
  FieldColours field;
  FieldColours page;  ///< on which longer texts are read
  QColor link;        ///< on a page
  GridColours list;
};

void ColourDialog(QWidget& dialog, const DialogColours& colours);

}  // namespace ui

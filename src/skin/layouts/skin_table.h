// SPDX-License-Identifier: GPL-3.0-or-later
// Which files of a skin each window takes, and which of its controls they are for.
//
// A skin is a folder below "UI Graphics/" of the program folder. Pictures are loaded by name, so
// other files in it are harmless and a missing one ends the program. There is no index file. A
// window that came later than the skins of others have to wear borrows all but its background, or
// does without its own files.
#pragma once

#include <string_view>

#include "skin/layouts/strips.h"

namespace ui {

/// Lists are separated by ";". A chart's rows are the controls of its list, in that order; a strip
/// goes to the target at its own place of the list. Controls with "," between them share a row.
struct SkinRow {
  std::string_view window;
  std::string_view background;
  std::string_view strips = {};
  std::string_view stripTargets = {};
  std::string_view textChart = {};
  std::string_view textControls = {};
  std::string_view fieldChart = {};
  std::string_view fieldControls = {};
  std::string_view gridChart = {};
  std::string_view gridControls = {};
  std::string_view tabChart = {};
  std::string_view tabPages = {};
  bool borrows = false;  ///< its charts are other windows', and a skin may lack its background
  bool isExtra = false;  ///< its files are its own, and a skin may lack them all
};

/// Null where the window has no row.
const SkinRow* FindSkinRow(std::string_view window);

/// The cells of the strip for a target, which must be one of the table.
const layouts::Strip& ShapeOfStrip(std::string_view target);

}  // namespace ui

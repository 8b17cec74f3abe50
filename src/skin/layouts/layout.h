// SPDX-License-Identifier: GPL-3.0-or-later
// Where the controls of a skinned window lie. That is the window's and not the skin's: the window
// places its controls by these tables, and a skin's background is drawn from the same ones, so a
// picture fits by construction.
//
// The unit is the logical pixel, which is 15 twips. A background covers the whole window; the
// window's outline cuts its shape out of it.
#pragma once

#include <span>
#include <string_view>

namespace ui::layouts {

struct Size {
  int width = 0;
  int height = 0;
};

struct Rect {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;

  constexpr int Right() const { return x + width; }
  constexpr int Bottom() const { return y + height; }
  constexpr Rect Grown(int by) const { return {x - by, y - by, width + 2 * by, height + 2 * by}; }
};

/// What a control is to the eye, and what a background draws at its rectangle.
enum class Surface {
  Label,     ///< text straight on the background, in a colour of the text chart: keep it calm
  Panel,     ///< the same for a longer text, on a panel that the background may draw
  Field,     ///< filled with the field chart's colour by the control: draw a recess round it
  Grid,      ///< filled with the grid chart's colours by the control: draw a recess round it
  Board,     ///< the 64 squares with the coordinates round them: draw the frame under the latter
  Button,    ///< the system's button stands here, drawn by the program
  Tool,      ///< a button of the window's own strip stands here, drawn by the program
  Picture,   ///< a picture of the program's stands here, with nothing behind it but the surface
  Occasion,  ///< shown now and then only: the background must look complete without it
  Ornament,  ///< no control at all: letters that the background draws
};

struct Control {
  std::string_view name;
  Surface surface;
  Rect rect;
  std::string_view text = {};  ///< of an ornament
};

/// One window. It has the outline of its name.
struct Layout {
  std::string_view window;
  Size size;
  std::span<const Control> controls = {};  ///< none: a plain surface, to be laid out
  bool draggable = true;                   ///< by any point of its surface
};

/// Where a window that isn't laid out by a table has its title: below the crest, clear of the
/// corners.
constexpr Rect TitlePlaceOf(const Size& window) { return {36, 24, window.width - 72, 26}; }

/// The rectangle of a control, which must be one of the window's.
constexpr const Rect& RectOf(const Layout& layout, std::string_view control) {
  for (const Control& candidate : layout.controls) {
    if (candidate.name == control) return candidate.rect;
  }
  throw "no such control";  // at compile time in the tables' own use
}

}  // namespace ui::layouts

// SPDX-License-Identifier: GPL-3.0-or-later
// Giving a control the colours that a skin has for it. The controls then follow their palette
// alone, whatever the desktop's own style would do.
#pragma once

#include <QColor>
#include <QPalette>
#include <QWidget>

namespace ui {

struct FieldColours {
  QColor BackColor;
  QColor ForeColor;
};

struct GridColours {
  QColor BackColorFixed;  ///< of the heading
  QColor ForeColorFixed;
  QColor BackColor;
  QColor ForeColor;
  QColor BackColorSel;
  QColor ForeColorSel;
};

/// A colour between two others.
QColor Between(const QColor& one, const QColor& other);

/// What a control of those colours draws with.
QPalette GridPalette(const GridColours& colours);

/// The background shows behind the text.
void ColourText(QWidget& control, const QColor& foreColor);
void ColourField(QWidget& control, const FieldColours& colours);
void ColourGrid(QWidget& control, const GridColours& colours);
void ColourPage(QWidget& page, const QColor& backColor);

}  // namespace ui

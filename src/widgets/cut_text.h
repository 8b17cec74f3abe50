// SPDX-License-Identifier: GPL-3.0-or-later
// Texts of any length in places that have a width: what doesn't fit is cut, and shows as a whole
// when it is pointed at.
#pragma once

#include <QPoint>
#include <QString>

class QAbstractItemView;
class QHelpEvent;
class QLabel;
class QRect;

namespace ui {

/// The line as far as `width` pixels have room for it. A cut one becomes the label's tool tip.
void ShowLine(QLabel& label, const QString& line, int width);

/// A tool tip that is the text and no markup, and fits a screen whatever the text is.
QString WholeAsTip(const QString& text);

/// At most `longest` characters of it, where there is no width to go by.
QString Cut(const QString& text, int longest);

/// Lets the text break within words that are longer than any line.
QString Breakable(QString text);

/// Shows a tip of a cell within its row, so that the rows round it stay legible.
void ShowCellTip(QAbstractItemView& view, const QRect& cell, const QString& text, QPoint place);

/// Shows the whole text of a cell that is pointed at. False where nothing of it is hidden, or tips
/// aren't wanted.
bool ShowCutCell(QAbstractItemView& view, const QHelpEvent& help);

}  // namespace ui

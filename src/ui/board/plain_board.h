// SPDX-License-Identifier: GPL-3.0-or-later
// Where the controls of the plain Board window stand: the board, and at its side the menus, the
// game and below that what is said of it. Where the screen isn't high enough for that, the last two
// stand side by side.
#pragma once

class QGridLayout;
class QHBoxLayout;
class QWidget;

namespace ui {

/// Those of a place that is shared are seen one at a time.
struct PlainBoard {
  QWidget* picture;
  QHBoxLayout* menus;
  QWidget* playersTag;
  QWidget* turnTag;
  QWidget* drawAnswers;
  QWidget* moveList;
  QWidget* palette;  ///< shares its place
  QWidget* opponentWords;
  QWidget* noteMark;
  QWidget* earlierComments;
  QWidget* playerComment;
  QWidget* search;  ///< share that place
  QWidget* trash;
  QGridLayout* buttons;
};

/// Gives the window its layout, and the size in which the user has left it or it is seen as a
/// whole.
void LayOut(QWidget& window, const PlainBoard& board);

}  // namespace ui

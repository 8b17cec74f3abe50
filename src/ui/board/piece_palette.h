// SPDX-License-Identifier: GPL-3.0-or-later
// The pieces that can be put on the board while a position is set up: twelve pictures, White's six
// above Black's. A king that stands on the board has a marker over his picture. The palette takes
// no input; SetupHand does.
#pragma once

#include <QWidget>

#include <array>

#include "boards/chess_graphics.h"

namespace ui {

class PalettePicture;

/// The cell of the chess set's sheet that shows a piece in the palette: White on a dark square,
/// Black on a light one.
int ClipSetupGraphic(rules::PieceCode piece);

class PiecePalette : public QWidget {
  Q_OBJECT

 public:
  /// The graphics must outlive the palette.
  explicit PiecePalette(const boards::ChessGraphics& graphics, QWidget* parent = nullptr);

  /// Takes the pictures of the chess set that is loaded now.
  void SetPiecePallete();

  /// Marks the kings that stand on the board.
  void UpdatePiecePalette();

  /// The picture that the keyboard works on.
  rules::PieceCode Current() const { return current_; }
  void SetCurrent(rules::PieceCode piece);
  void MoveFocus(int right, int up);

  /// NoPiece beside the pictures.
  rules::PieceCode PieceUnder(QPoint point) const;
  QRect RectOf(rules::PieceCode piece) const;

  /// NoPiece takes the selection away.
  void ShowSelection(rules::PieceCode piece);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  PalettePicture& PictureOf(rules::PieceCode piece) const;

  const boards::ChessGraphics& graphics_;
  std::array<PalettePicture*, 12> pictures_{};  // by piece code, which counts from 1
  std::array<QWidget*, 2> movePointers_{};      // over the kings of White and Black
  rules::PieceCode current_ = rules::WhiteRook;
};

}  // namespace ui

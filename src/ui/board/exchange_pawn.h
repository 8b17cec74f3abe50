// SPDX-License-Identifier: GPL-3.0-or-later
// The promotion dialog: what the pawn becomes. A choice is its only exit.
#pragma once

#include <QDialog>

#include "boards/chess_graphics.h"
#include "rules/position.h"

namespace ui {

class ExchangePawn : public QDialog {
  Q_OBJECT

 public:
  ExchangePawn(const boards::ChessGraphics& graphics, rules::Side side, QWidget* parent = nullptr);

  /// Runs the dialog; a rook, knight, bishop or queen of its side.
  rules::PieceCode Choose();

  void reject() override {}

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void SetSimpleUI();
  void Take(int button);

  rules::Side side_;
  rules::PieceCode ChosenPiece_ = rules::NoPiece;
};

}  // namespace ui

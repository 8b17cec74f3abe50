// SPDX-License-Identifier: GPL-3.0-or-later
// Trying moves out beside a game: a board of its own in a coloured frame, both sides moved by the
// rules, the tree of what was tried at its side. There is nothing here that sends, stores or plays.
#pragma once

#include <QDialog>

#include <functional>

#include "boards/chess_graphics.h"
#include "study/variation_tree.h"
#include "ui/board/board_picture.h"

class QAbstractButton;
class QGridLayout;
class QLabel;

namespace ui {

class LinesView;
class NoteBox;
class OutcomeLine;
class PieceHand;
class TryFrame;

struct TryOptions {
  rules::Side viewSide = rules::White;  ///< whose pieces stand below
  bool coordinates = true;
  int squaresWidth = 0;  ///< of the eight squares of the board that the user comes from
  QString whyNotPlay;    ///< blank where a move may be played in the game now
  std::function<std::string(const std::string& position)> noteOn;
  std::function<bool()> mayAskWhy;  ///< tells the user why not
};

class TryForm : public QDialog {
  Q_OBJECT

 public:
  /// The tree and the graphics must be there as long.
  TryForm(study::VariationTree& tree, const boards::ChessGraphics& graphics, TryOptions options,
          QWidget* parent = nullptr);

  /// The user wants the first tried move to be played in the game.
  bool WantsToPlay() const { return wantsToPlay_; }

  /// What is shown now, and how it came about.
  const rules::Position& ShownPosition() const { return tree_.PositionAt(tree_.Cursor()); }
  const pgn::Turn& ShownTurn() const { return tree_.TurnAt(tree_.Cursor()); }

  /// The tree or the notes were changed from without.
  void Refresh();

  /// Why notes and moves can't be read or kept now; blank where they can.
  void ShowTrouble(const QString& sentence, bool writable);

 Q_SIGNALS:
  void LinesChanged();
  void PositionShown();
  void NoteChanged(const std::string& position, const std::string& note);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  using Step = std::function<bool(study::VariationTree&)>;
  struct Command;
  static const Command commands[];
  QAbstractButton* NewCommandButton(const Command& command);
  QLayout* NewSide();
  void PlaceCommands(int namedInARow);
  void AddHand();
  void LayOutSquares();
  void Do(const Command& command);
  bool TakeKey(QKeyCombination key);
  void GoTo(study::VariationTree::Node node);
  void ShowSquares(const rules::Position& position, rules::LastMove move);
  void ShowOffers();
  void AskWhy();
  void Explain();
  QString Words() const;

  study::VariationTree& tree_;
  const boards::ChessGraphics& graphics_;
  const TryOptions options_;
  BoardPicture* picture_;
  TryFrame* frame_;
  QLabel* words_;
  LinesView* lines_;
  NoteBox* note_;
  OutcomeLine* trouble_;
  PieceHand* hand_ = nullptr;
  QAbstractButton* why_;
  QAbstractButton* play_;
  std::vector<QAbstractButton*> buttons_;  // of the commands
  QGridLayout* places_;                    // of the buttons
  int wheel_ = 0;                          // turned, and short of a step yet
  bool wantsToPlay_ = false;
};

}  // namespace ui

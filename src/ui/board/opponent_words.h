// SPDX-License-Identifier: GPL-3.0-or-later
// What was said with the move that the board shows; while the user's own is pending, above that
// what it answers. A word of the program's own takes its place for a while, and no longer than
// until the user does the next thing or something is said: why something was refused, for those who
// want no box for it.
#pragma once

#include <QTimer>

#include "board/game.h"
#include "widgets/plain_text_view.h"

namespace ui {

class OpponentWords : public PlainTextView {
  Q_OBJECT

 public:
  /// The program's words come here from now on. The game must be there as long.
  OpponentWords(const board::Game& board, QWidget* parent);

  void Refresh();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void TellQuietly(const QString& text);
  void EndQuiet();
  QString Words() const;
  void ShowWords();

  const board::Game& board_;
  QTimer quietTimer_;     // while it runs, the next is seen
  QString quietMessage_;  // in place of the opponent's words
  QString quietWords_;    // which those were when it came
  int quietCount_ = 0;    // and the entries of the game
};

}  // namespace ui

// SPDX-License-Identifier: GPL-3.0-or-later
// "Why this move?": what the computer sees in a move, reason by reason, and the moves that it would
// rather make there. Whoever opens it shows on his board what is selected.
#pragma once

#include <QDialog>

#include <functional>
#include <optional>

#include "ai/advice.h"
#include "ai/reasons.h"
#include "board/asked_move.h"

class QLabel;

namespace ui {

class MoveAdviser;
class RowTable;

struct WhyQuestion {
  board::AskedMove asked;
  int depth = 0;
  ai::HeuristicTable heuristics = ai::Heuristics;
  const char* place = "Played";  ///< of the asked move among the others
};

/// Against the computer as it plays now, else as it plays by nature.
WhyQuestion QuestionOn(board::AskedMove asked);

/// What belongs to the selected rows.
struct WhyPicture {
  /// Behind the selected move; nothing for the one that was asked about, behind which the board
  /// stands already.
  std::optional<rules::Position> position;
  rules::LastMove move;
  rules::LastMove arrow;  ///< of the reason: both squares are the same where it means only one
};

using ShowWhyPicture = std::function<void(const WhyPicture&)>;

class WhyForm : public QDialog {
  Q_OBJECT

 public:
  WhyForm(WhyQuestion question, ShowWhyPicture show, QWidget* parent);

  /// Leaves a part of the screen free, where it can.
  void StandBeside(const QWidget& board);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  /// A row of the list of moves.
  struct Line {
    rules::LastMove move;
    std::optional<int> score = {};  ///< once the computer has looked
    bool asked = false;

    bool operator==(const Line& other) const {
      return asked == other.asked && move.from == other.move.from && move.to == other.move.to;
    }
  };

  void LayOut();
  void TakeAdvice(int depth, const ai::CandidateList& moves);
  void ShowLines(std::vector<Line> lines);
  void FillLines(int selected);
  void ShowReasons();
  void ShowSum();
  void ShowPicture();
  const Line* Selected() const;

  const WhyQuestion question_;
  const ShowWhyPicture show_;
  std::vector<Line> lines_;
  ai::MoveReasons why_;  // of the selected move
  RowTable* moves_;
  RowTable* reasons_;
  QLabel* sum_;
  QLabel* state_;
  MoveAdviser* adviser_;
  bool chosen_ = false;  // the selected move, by the user
  const bool hasMove_;   // one that the rules allow, which a stored one needn't be
};

}  // namespace ui

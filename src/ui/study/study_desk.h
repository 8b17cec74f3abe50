// SPDX-License-Identifier: GPL-3.0-or-later
// The user's own thoughts on the game that is open: read from their file when the board opens, kept
// there a moment after he has changed them, and whenever he leaves.
#pragma once

#include <QPointer>
#include <QTimer>

#include <functional>
#include <set>

#include "boards/chess_graphics.h"
#include "study/study_file.h"
#include "ui/board/board_study.h"

namespace ui {

class NotesForm;
class TryForm;

class StudyDesk final : public BoardStudy {
  Q_OBJECT

 public:
  /// The graphics must be there as long.
  explicit StudyDesk(const boards::ChessGraphics& graphics);
  ~StudyDesk() override;

  void Open() override;
  bool IsAvailable() const override;
  std::optional<WantedMove> TryMoves(const board::Game& game, QWidget& window,
                                     std::function<bool()> mayAskWhy) override;
  void ShowNotes(const board::Game& game, QWidget& window) override;
  QString NoteOn(const board::Game& game) override;

 private:
  enum class Part { Note, Positions, Lines };
  bool Take();
  void TakeGameNote(const std::string& note);
  void TakePositionNote(const std::string& position, const std::string& note);
  void TakeLines(const study::VariationTree& tree);
  void ShowPosition(const board::Game& game);
  void KeepSoon();
  void Keep();
  TryForm* NewTryForm(const board::Game& game, const QWidget& window, study::VariationTree& tree,
                      std::function<bool()> mayAskWhy);

  const boards::ChessGraphics& graphics_;
  study::StudyFile file_;
  std::optional<study::GameIdentity> game_;  // whose thoughts these are
  study::GameStudy thoughts_;
  std::vector<study::TriedLines> strange_;  // lines of positions that the game never had

  // What is still to be kept.
  bool noteChanged_ = false;
  bool linesChanged_ = false;
  std::set<std::string> positionsChanged_;
  QTimer keepTimer_;

  QPointer<NotesForm> notes_;
};

}  // namespace ui

// SPDX-License-Identifier: GPL-3.0-or-later
// The user's own thoughts on the game that is open: read from their file when the board opens, kept
// there a moment after he has changed them, and whenever he leaves.
//
// Thoughts that couldn't be read are only shown as far as they are known, and nothing is written
// over them; they are read again until they can be. Changes that couldn't be kept wait here under
// the name of their game, and are seen whenever it comes onto the board.
#pragma once

#include <QPointer>
#include <QTimer>

#include <functional>
#include <map>

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

 Q_SIGNALS:
  /// The thoughts on the open game are here.
  void ThoughtsRead();

 protected:
  bool eventFilter(QObject* window, QEvent* event) override;

 private:
  bool Take();
  void ReadThoughts();
  void GoOn();
  void TellWindows();
  void Leave();
  void TakeGameNote(const std::string& note);
  void TakePositionNote(const std::string& position, const std::string& note);
  void TakeLines(const study::VariationTree& tree);
  void ShowThoughts(const board::Game& game);
  std::string PositionNote(const std::string& position) const;
  study::StudyChanges& Changes();
  void KeepSoon();
  void Keep();
  void Join(study::VariationTree& tree, TryForm& form);
  TryForm* NewTryForm(const board::Game& game, const QWidget& window, study::VariationTree& tree,
                      std::function<bool()> mayAskWhy);

  const boards::ChessGraphics& graphics_;
  study::StudyFile file_;
  std::optional<study::GameIdentity> game_;  // whose thoughts these are
  bool isRead_ = false;
  study::GameStudy thoughts_;
  std::vector<study::TriedLines> strange_;  // lines of positions that the game never had

  std::map<study::GameIdentity, study::StudyChanges> unsaved_;
  bool toldWaiting_ = false;
  bool toldLost_ = false;
  QTimer keepTimer_;

  QPointer<NotesForm> notes_;
  QPointer<TryForm> trying_;
};

}  // namespace ui

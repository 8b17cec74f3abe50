// SPDX-License-Identifier: GPL-3.0-or-later
// The notes beside the board: one on the game, one on the position that the board shows.
#pragma once

#include <QDialog>

class QLabel;

namespace ui {

class NoteBox;
class OutcomeLine;

class NotesForm : public QDialog {
  Q_OBJECT

 public:
  explicit NotesForm(QWidget* parent);

  void ShowGame(const std::string& note);

  /// `where` tells which position it is.
  void ShowPosition(const QString& where, const std::string& note);

  /// Why notes can't be read or kept now; blank where they can.
  void ShowTrouble(const QString& sentence, bool writable);

 Q_SIGNALS:
  void GameNoteChanged(const std::string& note);
  void PositionNoteChanged(const std::string& note);

 private:
  NoteBox* game_;
  QLabel* where_;
  NoteBox* position_;
  OutcomeLine* trouble_;
};

}  // namespace ui

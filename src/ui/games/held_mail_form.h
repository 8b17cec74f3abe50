// SPDX-License-Identifier: GPL-3.0-or-later
// The question about a mail that was set aside: who wrote it for which game, why it wasn't taken,
// and both lists of moves where they are of interest. Whoever just presses Enter has changed
// nothing.
#pragma once

#include <QDialog>

#include "platform/windows.h"
#include "skin/look.h"

class QAbstractButton;
class QLabel;

namespace ui {

class MoveComparison;
class PlainTextView;

class HeldMailForm : public QDialog {
  Q_OBJECT

 public:
  explicit HeldMailForm(const platform::HeldMailQuestion& question, QWidget* parent = nullptr);

  /// What the dialog was left with; any way out but a button is "Later".
  platform::HeldMailChoice UserChoice = platform::HeldMailChoice::Later;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QAbstractButton* NewChoice(const ButtonTwins& names, const QString& caption,
                             const QString& plainCaption, platform::HeldMailChoice choice);
  void SetSimpleUI();
  void ShowQuestion(const platform::HeldMailQuestion& question);

  QLabel* picture_;
  QLabel* heading_;
  QLabel* senderCaption_;
  QLabel* sender_;
  QLabel* gameCaption_;
  QLabel* game_;
  PlainTextView* why_;
  MoveComparison* moves_;  // null without moves
  QAbstractButton* later_;
  QAbstractButton* refuse_;
  QAbstractButton* accept_;
};

/// Runs the dialog in front of all windows.
platform::HeldMailChoice AskAboutHeldMail(const platform::HeldMailQuestion& question);

}  // namespace ui

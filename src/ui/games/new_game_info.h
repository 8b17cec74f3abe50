// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog of a new game: its title, and who the opponent is. The address comes from the address
// book, by the name or by a pick, or is typed. Of the computer other things are asked.
#pragma once

#include <QDialog>

#include <optional>

#include "platform/process_state.h"

class QAbstractButton;
class QCheckBox;
class QLineEdit;
class QTimer;

namespace ui {

class ComputerOpponent;
class OutcomeLine;

class NewGameInfo : public QDialog {
  Q_OBJECT

 public:
  /// For one new game: ComputerGame and Offline count as they are now.
  explicit NewGameInfo(QWidget* owner = nullptr);

  /// Runs the dialog. Behind OK it stays up and painted, as a backdrop for what takes its place,
  /// until it is hidden. Nothing where the user cancelled or the window has no skin.
  std::optional<platform::NewGameFields> Ask();

  void accept() override;
  void done(int result) override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QLineEdit* NewField(const QString& name, const QString& label, int longest);
  void SetToolTips();
  void Connect();
  void SetUpOpponent();
  void SetUpPeople();
  bool TakeItsLook();
  void PlaceLines();
  void SetSimpleUI();
  void SetComputerUI();

  void ButtonSet();
  QString WhatIsMissing() const;
  QString WhereAddressStands() const;
  void ShowMissing();
  void FillTitle();
  void EditAddress();
  void LeaveAddress();
  void TakePerson(const QString& name, const QString& address);
  void SetOkEnabled(bool enabled);
  bool ValidateTitle();
  void ChangeName();
  void LeaveName();
  void Tick();
  bool LookUpForOk();
  void ChooseName();
  void ResolveName();
  void OfferToRemember();
  void Remember();

  QLineEdit* Game_name_;
  QLineEdit* Game_opponents_name_;
  QAbstractButton* Resolve_;
  QLineEdit* Game_opponents_email_;
  QCheckBox* remember_;
  OutcomeLine* outcome_;
  ComputerOpponent* computer_ = nullptr;  // null for a game by mail
  QAbstractButton* ok_;
  QAbstractButton* cancel_;
  QTimer* Timer1_;
  bool pendingResolve_ = false;
  bool nobodyFound_ = false;
  bool addressIsTyped_ = false;  // while connected: it stands, whatever becomes of the name
  bool offersToRemember_ = false;
  bool hasLook_ = false;
};

}  // namespace ui

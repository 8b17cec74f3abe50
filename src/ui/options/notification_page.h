// SPDX-License-Identifier: GPL-3.0-or-later
// The options page of how a new move is told. Method and sound are stored at once: the window's
// Cancel doesn't take them back.
#pragma once

#include <QWidget>

#include <functional>

class QAbstractButton;
class QComboBox;
class QLabel;

namespace ui {

class LabelledBox;

class NotificationPage : public QWidget {
  Q_OBJECT

 public:
  /// In the skinned look its controls are placed by their names.
  NotificationPage(std::function<void()> pickSound, QWidget* parent);

  void LoadOptions();
  void SetOptions();
  void SetToolTips();

 Q_SIGNALS:
  /// There is something to apply.
  void ApplyWanted();

 private:
  int Method() const;
  void SetNotifyMethod();
  void SetSoundPickEnable();
  void BrowseSound();
  void ShowSound();
  void SetSimpleUI();

  std::function<void()> pickSound_;
  LabelledBox* opNotifySound_;
  QAbstractButton* opBrowseSound_;
  QLabel* opNotificationSound_;
  LabelledBox* opNotifyDialog_;
  QLabel* Label4_;
  QComboBox* opTimeoutCombo_;
  LabelledBox* opNotifyDesktop_;
  LabelledBox* opComputerGames_;
  LabelledBox* opGamePreview_;
  LabelledBox* opAskSurrender_;
  LabelledBox* opWhyInMailGames_;
};

}  // namespace ui

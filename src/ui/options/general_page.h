// SPDX-License-Identifier: GPL-3.0-or-later
// The options page of what fits under no other heading.
#pragma once

#include <QWidget>

class QComboBox;
class QLabel;

namespace ui {

class LabelledBox;
class RowTable;

class GeneralPage : public QWidget {
  Q_OBJECT

 public:
  /// In the skinned look its controls are placed by their names.
  explicit GeneralPage(QWidget* parent);

  /// From the settings to the controls, and back in two steps: what a skin that fails keeps from
  /// being stored comes in the second.
  void LoadOptions();
  void SetOptions();
  void SetLaterOptions();

  void SetToolTips();

 Q_SIGNALS:
  /// There is something to apply.
  void ApplyWanted();

 private:
  QComboBox* NewCombo(const char* name, const QString& accessibleName);
  void FillCombos();
  void SetupIconList();
  void SetSimpleUI();
  void WarnOfLaterStyle(bool simple);
  void WarnOfLaterStart(bool inTray);
  void SetSessionStart();

  QLabel* Label1_;
  QComboBox* opSysTrayTimerCombo_;
  QLabel* vsCSearchDepth_L_;
  QComboBox* vsCSearchDepth_;
  QLabel* Label2_;
  RowTable* opIconList_;
  LabelledBox* opDisplaySplash_;
  LabelledBox* opVerbose_;
  LabelledBox* opShowToolTips_;
  LabelledBox* opDefaultView_;
  LabelledBox* opShowMoves_;
  LabelledBox* opSimpleUI_;
  LabelledBox* opSystrayStartup_;
  LabelledBox* opSessionStart_;
  bool loading_ = false;
};

}  // namespace ui

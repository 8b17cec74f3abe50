// SPDX-License-Identifier: GPL-3.0-or-later
// The options page of the styles that the user keeps in files. What it does to files is done at
// once; what it reads from one is pending on the page of the motivations.
#pragma once

#include <QWidget>

#include <string>

class QAbstractButton;
class QLabel;
class QLineEdit;
class QListWidget;

namespace ui {

class HeuristicsPage;

class SavedAIPage : public QWidget {
  Q_OBJECT

 public:
  /// In the skinned look its controls are placed by their names.
  SavedAIPage(HeuristicsPage& heuristics, QWidget* parent = nullptr);

  /// False where the files can't be listed; the user was told.
  bool PopulateAIFileList();

  void SetToolTips();

 Q_SIGNALS:
  /// There is something to apply.
  void ApplyWanted();

 private:
  void SetSimpleUI();
  void SaveAIFile();
  void LoadAIFile();
  void DeleteAIFile();
  void RestoreDefaults();

  void FillList();
  std::string SelectedFile() const;
  std::string NameToSave() const;

  HeuristicsPage& heuristics_;
  QLabel* filesLabel_;
  QListWidget* opSavedAIFiles_;
  QAbstractButton* load_;
  QAbstractButton* delete_;
  QAbstractButton* defaults_;
  QLabel* nameLabel_;
  QLineEdit* opSaveAIName_;
  QAbstractButton* save_;
};

}  // namespace ui

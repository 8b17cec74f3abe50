// SPDX-License-Identifier: GPL-3.0-or-later
// The file picker in its two modes: it chooses the sound that announces a new move, or a file to
// import. The mode is Process().SelectSoundMode; what was chosen stands in the settings, at once,
// or in Process().ImportFilePath and ImportFileName.
#pragma once

#include <QDialog>

#include <string>

class QAbstractButton;
class QComboBox;
class QListWidget;

namespace ui {

class FolderList;

class SelectSound : public QDialog {
  Q_OBJECT

 public:
  explicit SelectSound(QWidget* parent = nullptr);

  /// False where the window's skin failed.
  bool IsOpen() const { return hasSkin_; }

  /// Stores the folder and the selected file, which may be none.
  void SetSoundFile();

  /// Cancel, Escape and the window's close.
  void reject() override;
  void done(int result) override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void AddButtons();
  void SetSimpleUI();
  void Start();
  void FillDrives();
  void ShowDriveOf(const QString& path);
  void FillFiles();
  std::string Folder() const;
  std::string SelectedFile() const;
  void Choose();
  void Play();
  void ShowHelp() const;

  const bool choosesSound_;
  bool hasSkin_ = false;
  QComboBox* drives_;
  FolderList* folders_;
  QListWidget* files_;
  QAbstractButton* play_;
  QAbstractButton* cancel_;
  QAbstractButton* ok_;
};

/// Shows the picker for a file to import. The file's path; empty where the user cancelled.
std::string PickMoveFile();

}  // namespace ui

// SPDX-License-Identifier: GPL-3.0-or-later
// The file picker in its two modes: it chooses the sound that announces a new move, which then
// stands in the settings at once, or a file to import.
#pragma once

#include <QDialog>

#include <optional>
#include <string>

class QAbstractButton;
class QComboBox;
class QListWidget;

namespace ui {

class FolderList;

class SelectSound : public QDialog {
  Q_OBJECT

 public:
  enum class Mode { Sound, MoveFile };

  explicit SelectSound(Mode mode, QWidget* parent = nullptr);

  /// False where the window's skin failed.
  bool IsOpen() const { return hasSkin_; }

  /// In the settings, the folder and the selected file, which may be none.
  void SetSoundFile();

  /// The path of the selected file; nothing where none is.
  std::optional<std::string> Chosen() const;

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

/// Shows the picker for a file to import. The file's path; nothing where the user cancelled.
std::optional<std::string> PickMoveFile();

}  // namespace ui

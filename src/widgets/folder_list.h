// SPDX-License-Identifier: GPL-3.0-or-later
// A list that walks the folders: the chosen one with all those that it lies in above it, and those
// in it below. A double click or Enter goes to another one.
#pragma once

#include <QListWidget>

namespace ui {

class FolderList : public QListWidget {
  Q_OBJECT

 public:
  explicit FolderList(QWidget* parent = nullptr);

  /// Without a "/" at its end, unless it is the root.
  const QString& Path() const { return path_; }

  /// The home folder where that one is gone or can't be entered.
  void SetPath(const QString& path);

  /// False where the row is that of the folder itself.
  bool IsElsewhere() const;

 Q_SIGNALS:
  void PathChanged();

 public Q_SLOTS:
  void EnterCurrent();

 private:
  void AddFolder(const QString& path, const QString& name, bool isOpen);

  QString path_;
};

}  // namespace ui

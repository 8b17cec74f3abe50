// SPDX-License-Identifier: GPL-3.0-or-later
// A list of the names of files or folders, of which one is what the program uses now.
#pragma once

#include <QListWidget>
#include <QStringList>

namespace ui {

class NameList : public QListWidget {
  Q_OBJECT

 public:
  NameList(const char* name, const QString& accessibleName, QWidget* page);

  QSize sizeHint() const override { return minimumSizeHint(); }

  /// Empties it, without a signal.
  void Clear();

  void AddNames(const QStringList& names);

  /// Marks and selects a name, in bold, or only selects it, and has it at the top. False where it
  /// isn't there. No signal.
  bool Mark(const QString& name);
  bool Select(const QString& name);

  /// The selected name; blank where there is none.
  QString Selected() const;

 Q_SIGNALS:
  void UserSelected();

 private:
  QListWidgetItem* Find(const QString& name) const;
};

}  // namespace ui

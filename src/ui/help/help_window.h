// SPDX-License-Identifier: GPL-3.0-or-later
// The viewer of the program's help: contents, index and search on the left, the text on the
// right. It opens no address outside the help.
#pragma once

#include <QPointer>
#include <QWidget>

#include "platform/help.h"
#include "ui/help/help_book.h"

class QHBoxLayout;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QTabWidget;
class QTreeWidget;

namespace ui {

class HelpText;

class HelpWindow : public QWidget {
  Q_OBJECT

 public:
  explicit HelpWindow(HelpBook book);

  /// A name that the book doesn't have leads to its beginning.
  void Open(const QString& name);
  void OpenIndex();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QWidget* NewContents();
  QWidget* NewIndex();
  QWidget* NewSearch();
  QHBoxLayout* NewTools();
  QWidget* NewClose();
  void Connect();
  void FollowPage(const QUrl& url);
  void FilterIndex(const QString& text);
  void Search(const QString& words);
  void OpenFound(const QListWidgetItem* page);
  void ChangeTextSize(int step);

  HelpBook book_;
  QTabWidget* sides_;
  QTreeWidget* contents_;
  QLineEdit* filter_;
  QListWidget* index_;
  QLineEdit* words_;  // that are searched for
  QListWidget* found_;
  HelpText* text_;
};

/// The one help window, over the file "tvchess.hlp" of the program folder.
class HelpViewer : public platform::Help {
 public:
  ~HelpViewer() override;

  void ShowHelp(int context) override;
  void ShowHelpIndex() override;
  void CloseHelp() override;

  HelpWindow* Window() const { return window_; }

 private:
  HelpWindow* Prepare();

  QPointer<HelpWindow> window_;
};

}  // namespace ui

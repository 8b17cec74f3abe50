// SPDX-License-Identifier: GPL-3.0-or-later
// The text side of the help window: one page of the help at a time, with the pages that were read
// before. Links lead to other pages; an address outside the help only shows.
#pragma once

#include <QTextBrowser>

#include "ui/help/help_book.h"

namespace ui {

class HelpText : public QTextBrowser {
  Q_OBJECT

 public:
  explicit HelpText(const HelpBook& book, QWidget* parent = nullptr);

  void Open(const QString& name);

  /// Marks each of these words on the page that is shown, and shows the first.
  void Mark(const QString& words);

  /// The page that an address of the text shows, from 0.
  std::size_t PageAt(const QUrl& url) const;

 protected:
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  QVariant loadResource(int type, const QUrl& url) override;
  void doSetSource(const QUrl& url, QTextDocument::ResourceType type) override;

 private:
  void Style();
  bool HasPictures() const;
  QVariant Picture(const QString& path) const;

  const HelpBook& book_;
  int widest_ = 0;  // that a picture may be
};

}  // namespace ui

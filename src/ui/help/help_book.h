// SPDX-License-Identifier: GPL-3.0-or-later
// The program's help file, cut into the pages that the help window shows.
//
// The file is one HTML text that any browser shows too. A page begins at a heading of the form
// `<h1><a name="board">The board</a></h1>` or the same with h2, and goes on to the next one; an h2
// page belongs to the h1 page before it. The place that the windows know as context N is
// `<a name="context-N"></a>`, first in such a heading or anywhere on a page. Links lead to names:
// `<a href="#board">`. The page named "index" is nothing but links, whose texts are the words of
// the index. Pictures are named from the file's own folder. What stands before the first page is
// for browsers.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace ui {

struct HelpPage {
  QString name;
  QString title;
  int level = 1;  ///< 1 a chapter, 2 a page of it
  QString html;
  QString text;  ///< what a reader sees of it
};

struct IndexWord {
  QString word;
  QString name;  ///< where it leads to
};

struct HelpBook {
  std::vector<HelpPage> pages;   ///< in the order of the file, without the index
  std::vector<IndexWord> index;  ///< in the order of the alphabet
  QString folder;                ///< where the pictures are named from; ends in "/"

  /// The page on which a name stands, from 0.
  std::optional<std::size_t> PageOf(const QString& name) const;

  /// The pages that hold each of these words, those first that have one in their title. None
  /// without a word.
  std::vector<std::size_t> PagesWith(const QString& words) const;
};

HelpBook ReadHelpBook(const QString& html);

/// What is looked for, a word each.
inline QStringList WordsOf(const QString& typed) {
  return typed.simplified().split(u' ', Qt::SkipEmptyParts);
}

inline QString NameOfContext(int context) { return QStringLiteral("context-%1").arg(context); }

}  // namespace ui

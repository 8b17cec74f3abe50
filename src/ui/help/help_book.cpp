// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/help/help_book.h"

#include <QRegularExpression>
#include <QTextDocumentFragment>

#include <algorithm>

namespace ui {

using namespace Qt::StringLiterals;

namespace {

const QString indexName = u"index"_s;

QString PlainText(const QString& html) {
  return QTextDocumentFragment::fromHtml(html).toPlainText().trimmed();
}

std::vector<IndexWord> ReadIndex(const QString& html) {
  static const QRegularExpression link(u"<a href=\"#([^\"]+)\">(.*?)</a>"_s,
                                       QRegularExpression::DotMatchesEverythingOption);
  std::vector<IndexWord> words;
  for (const auto& match : link.globalMatch(html)) {
    words.push_back({PlainText(match.captured(2)), match.captured(1)});
  }
  std::stable_sort(words.begin(), words.end(), [](const IndexWord& a, const IndexWord& b) {
    return a.word.compare(b.word, Qt::CaseInsensitive) < 0;
  });
  return words;
}

}  // namespace

std::optional<std::size_t> HelpBook::PageOf(const QString& name) const {
  const QString anchor = u"<a name=\"%1\">"_s.arg(name);
  const auto page = std::find_if(pages.begin(), pages.end(), [&](const HelpPage& candidate) {
    return candidate.html.contains(anchor);
  });
  if (page == pages.end()) return std::nullopt;
  return static_cast<std::size_t>(page - pages.begin());
}

std::vector<std::size_t> HelpBook::PagesWith(const QString& words) const {
  const QStringList wanted = WordsOf(words);
  const auto has = [](const QString& text) {
    return [&text](const QString& word) { return text.contains(word, Qt::CaseInsensitive); };
  };
  std::vector<std::size_t> found;
  for (std::size_t page = 0; page < pages.size() && !wanted.empty(); ++page) {
    if (std::ranges::all_of(wanted, has(pages[page].text))) found.push_back(page);
  }
  std::ranges::stable_partition(
      found, [&](std::size_t page) { return std::ranges::any_of(wanted, has(pages[page].title)); });
  return found;
}

HelpBook ReadHelpBook(const QString& html) {
  static const QRegularExpression heading(
      u"<h([12])>(?:<a name=\"[^\"]+\"></a>)?<a name=\"([^\"]+)\">(.*?)</a></h\\1>"_s,
      QRegularExpression::DotMatchesEverythingOption);
  HelpBook book;
  QRegularExpressionMatch match = heading.match(html);
  while (match.hasMatch()) {
    const QRegularExpressionMatch next = heading.match(html, match.capturedEnd());
    const qsizetype end = next.hasMatch() ? next.capturedStart() : html.size();
    const QString text = html.mid(match.capturedStart(), end - match.capturedStart());
    if (match.captured(2) == indexName) {
      book.index = ReadIndex(text);
    } else {
      book.pages.push_back({match.captured(2), PlainText(match.captured(3)),
                            match.captured(1).toInt(), text, PlainText(text)});
    }
    match = next;
  }
  return book;
}

}  // namespace ui

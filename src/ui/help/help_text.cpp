// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/help/help_text.h"

#include <QEvent>
#include <QImage>
#include <QScrollBar>
#include <QUrl>

#include <algorithm>
#include <utility>

#include "widgets/contrast.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

const QString scheme = u"help"_s;
constexpr int margin = 20;

/// "help:board#context-5": a page, and a place on it.
QUrl UrlOf(const QString& page, const QString& name) {
  QUrl url;
  url.setScheme(scheme);
  url.setPath(page);
  if (name != page) url.setFragment(name);
  return url;
}

/// Read for a while, by people who may not see well: lines apart, and no more in a line than the
/// eye holds.
const QString pageStyle =
    u"a[href] { color: %1; } h1, h2 { margin-top: 8px; margin-bottom: 12px; } "
    u"h3 { margin-top: 16px; margin-bottom: 4px; } "
    u"p, li { line-height: 130%; margin-top: 0px; margin-bottom: 10px; } "
    u"p.picture { line-height: 100%; } "
    u"td, th { padding: 4px 12px 4px 0px; }"_s;

}  // namespace

HelpText::HelpText(const HelpBook& book, QWidget* parent) : QTextBrowser(parent), book_(book) {
  setOpenExternalLinks(false);
  Style();
  document()->setDocumentMargin(margin);
  setFrameShape(QFrame::StyledPanel);
}

/// Links have the colour of the window that shows them, as far as it can be read: some desktops
/// have palettes of high contrast, and the toolkit's usual dark blue among them.
void HelpText::Style() {
  const QColor link =
      LegiblyColoured(palette().color(QPalette::Link), palette().color(QPalette::Text),
                      palette().color(QPalette::Base));
  document()->setDefaultStyleSheet(pageStyle.arg(link.name()));
}

void HelpText::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  if (event->type() != QEvent::PaletteChange) return;
  Style();
  reload();
}

void HelpText::Open(const QString& name) { setSource(QUrl(u'#' + name)); }

void HelpText::Mark(const QString& words) {
  QList<ExtraSelection> marks;
  QTextCharFormat look;
  look.setBackground(palette().highlight());
  look.setForeground(palette().highlightedText());
  int first = document()->characterCount();
  for (const QString& word : WordsOf(words)) {
    for (auto at = document()->find(word); !at.isNull(); at = document()->find(word, at)) {
      marks.push_back({at, look});
      first = std::min(first, at.selectionStart());
    }
  }
  setExtraSelections(marks);
  if (marks.empty()) return;
  QTextCursor start(document());
  start.setPosition(first);
  setTextCursor(start);
}

std::size_t HelpText::PageAt(const QUrl& url) const { return book_.PageOf(url.path()).value_or(0); }

QVariant HelpText::loadResource(int type, const QUrl& url) {
  if (type == QTextDocument::ImageResource) return Picture(url.path());
  const auto page = book_.PageOf(url.path());
  return page ? book_.pages[*page].html : QString();
}

/// No wider than the text, so that nobody has to push the page aside.
QVariant HelpText::Picture(const QString& path) const {
  QImage picture(book_.folder + path);
  if (picture.isNull() || picture.width() <= widest_) return picture;
  const qreal ratio = devicePixelRatioF();
  picture = picture.scaledToWidth(static_cast<int>(widest_ * ratio), Qt::SmoothTransformation);
  picture.setDevicePixelRatio(ratio);
  return picture;
}

bool HelpText::HasPictures() const {
  return !source().isEmpty() && book_.pages[PageAt(source())].html.contains(u"<img "_s);
}

void HelpText::resizeEvent(QResizeEvent* event) {
  QTextBrowser::resizeEvent(event);
  // Whether or not there is a scroll bar just now, which depends on the pictures.
  const int room = contentsRect().width() - verticalScrollBar()->sizeHint().width() - 2 * margin;
  if (std::exchange(widest_, room) == room || !HasPictures()) return;
  const int place = verticalScrollBar()->value();
  reload();
  verticalScrollBar()->setValue(place);
}

/// The pages of the book name places of one another as if they were one.
void HelpText::doSetSource(const QUrl& url, QTextDocument::ResourceType type) {
  const QString name = url.fragment().isEmpty() ? url.path() : url.fragment();
  const auto page = book_.PageOf(name);
  const bool isOurs = url.scheme().isEmpty() || url.scheme() == scheme;
  if (!isOurs || !page) return;
  setExtraSelections({});
  QTextBrowser::doSetSource(UrlOf(book_.pages[*page].name, name), type);
}

}  // namespace ui

// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/help/help_text.h"

#include <QEvent>
#include <QUrl>

namespace ui {

using namespace Qt::StringLiterals;

namespace {

const QString scheme = u"help"_s;

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
    u"td, th { padding: 4px 12px 4px 0px; }"_s;

}  // namespace

HelpText::HelpText(const HelpBook& book, QWidget* parent) : QTextBrowser(parent), book_(book) {
  setOpenExternalLinks(false);
  Style();
  document()->setDocumentMargin(20);
  setFrameShape(QFrame::StyledPanel);
}

/// Links have the colour of the window that shows them.
void HelpText::Style() {
  document()->setDefaultStyleSheet(pageStyle.arg(palette().color(QPalette::Link).name()));
}

void HelpText::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  if (event->type() != QEvent::PaletteChange) return;
  Style();
  reload();
}

void HelpText::Open(const QString& name) { setSource(QUrl(u'#' + name)); }

std::size_t HelpText::PageAt(const QUrl& url) const { return book_.PageOf(url.path()).value_or(0); }

QVariant HelpText::loadResource(int, const QUrl& url) {
  const auto page = book_.PageOf(url.path());
  return page ? book_.pages[*page].html : QString();
}

/// The pages of the book name places of one another as if they were one.
void HelpText::doSetSource(const QUrl& url, QTextDocument::ResourceType type) {
  const QString name = url.fragment().isEmpty() ? url.path() : url.fragment();
  const auto page = book_.PageOf(name);
  const bool isOurs = url.scheme().isEmpty() || url.scheme() == scheme;
  if (!isOurs || !page) return;
  QTextBrowser::doSetSource(UrlOf(book_.pages[*page].name, name), type);
}

}  // namespace ui

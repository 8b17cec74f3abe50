// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/exchange/pgn_drop.h"

#include <QDropEvent>
#include <QMimeData>
#include <QTimer>
#include <QUrl>

#include <utility>

#include "ui/exchange/import_games.h"

namespace ui {
namespace {

/// Nothing where anything else is among them.
QStringList PgnFilesIn(const QMimeData& data) {
  QStringList paths;
  for (const QUrl& url : data.urls()) {
    if (!IsPgnFile(url.toLocalFile())) return {};
    paths << url.toLocalFile();
  }
  return paths;
}

}  // namespace

PgnDrop::PgnDrop(QWidget& window, std::function<void(const QStringList& paths)> take)
    : QObject(&window), take_(std::move(take)) {
  window.setAcceptDrops(true);
  window.installEventFilter(this);
}

bool PgnDrop::eventFilter(QObject* watched, QEvent* event) {
  const bool isDrop = event->type() == QEvent::Drop;
  if (!isDrop && event->type() != QEvent::DragEnter) return QObject::eventFilter(watched, event);
  auto* drag = static_cast<QDropEvent*>(event);
  const QStringList paths = PgnFilesIn(*drag->mimeData());
  if (paths.isEmpty()) return false;
  drag->setDropAction(Qt::CopyAction);
  drag->accept();
  if (isDrop) QTimer::singleShot(0, this, [this, paths] { take_(paths); });
  return true;
}

}  // namespace ui

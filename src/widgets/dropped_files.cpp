// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/dropped_files.h"

#include <QDropEvent>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <QWidget>

#include <utility>

namespace ui {
namespace {

using Take = std::function<void(const std::vector<std::string>&)>;

std::vector<std::string> FilesOf(const QMimeData& dragged) {
  std::vector<std::string> files;
  for (const QUrl& url : dragged.urls()) {
    if (url.isLocalFile()) files.push_back(url.toLocalFile().toStdString());
  }
  return files;
}

class DropFilter : public QObject {
 public:
  DropFilter(QWidget& window, Take take) : QObject(&window), take_(std::move(take)) {
    window.setAcceptDrops(true);
    window.installEventFilter(this);
  }

  /// A drag and its drop are events of one family.
  bool eventFilter(QObject*, QEvent* event) override {
    const QEvent::Type type = event->type();
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop) return false;
    auto& drag = *static_cast<QDropEvent*>(event);
    const auto files = FilesOf(*drag.mimeData());
    if (files.empty()) return false;
    // Not moved, which would let its owner delete it.
    drag.setDropAction(Qt::CopyAction);
    drag.accept();
    if (type == QEvent::Drop) QTimer::singleShot(0, this, [this, files] { take_(files); });
    return true;
  }

 private:
  Take take_;
};

}  // namespace

void TakeDroppedFiles(QWidget& window, Take take) { new DropFilter(window, std::move(take)); }

}  // namespace ui

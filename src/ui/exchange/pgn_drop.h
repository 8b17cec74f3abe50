// SPDX-License-Identifier: GPL-3.0-or-later
// PGN files that are dropped on a window. What else is dropped there is left to the window.
#pragma once

#include <QObject>
#include <QStringList>
#include <QWidget>

#include <functional>

namespace ui {

class PgnDrop : public QObject {
  Q_OBJECT

 public:
  /// Belongs to the window. `take` gets the paths once the drop is over, which whoever drags waits
  /// for.
  PgnDrop(QWidget& window, std::function<void(const QStringList& paths)> take);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  const std::function<void(const QStringList& paths)> take_;
};

}  // namespace ui

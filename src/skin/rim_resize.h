// SPDX-License-Identifier: GPL-3.0-or-later
// A window without the desktop's frame is made larger and smaller by its own rim.
#pragma once

#include <QObject>
#include <QPoint>
#include <QRect>

#include <optional>

class QWidget;

namespace ui {

class RimResize : public QObject {
  Q_OBJECT

 public:
  /// Belongs to the window, whose rim must be clear of controls.
  explicit RimResize(QWidget& window);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Grip {
    Qt::Edges edges;
    QPoint pressedAt;
    QRect before;
  };

  Qt::Edges EdgesAt(QPoint place) const;
  void ShowPointer(Qt::Edges edges);
  void Pull(QPoint pointer);

  QWidget& window_;
  std::optional<Grip> grip_;
  bool byDesktop_ = false;
};

}  // namespace ui

// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/menu_colours.h"

#include <QApplication>
#include <QEvent>
#include <QMenu>
#include <QPointer>
#include <QToolTip>

#include "skin/skin_style.h"

namespace ui {

namespace {

/// Gives the style to each menu that comes up for the first time, whoever has made it.
class MenuStyler : public QObject {
 public:
  MenuStyler() : QObject(qApp) { qApp->installEventFilter(this); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Polish) {
      if (auto* menu = qobject_cast<QMenu*>(watched)) menu->setStyle(TheSkinStyle());
    }
    return false;
  }
};

void StyleMenus(bool bySkin) {
  static QPointer<MenuStyler> styler;
  if (bySkin == !styler.isNull()) return;
  if (bySkin) {
    styler = new MenuStyler;
  } else {
    delete styler;
  }
  for (QWidget* widget : QApplication::allWidgets()) {
    if (qobject_cast<QMenu*>(widget)) widget->setStyle(bySkin ? TheSkinStyle() : nullptr);
  }
}

QPalette TipPalette(const GridColours& colours) {
  QPalette palette = QToolTip::palette();
  for (const auto role : {QPalette::ToolTipBase, QPalette::Window}) {
    palette.setColor(role, colours.BackColorFixed);
  }
  for (const auto role : {QPalette::ToolTipText, QPalette::WindowText, QPalette::Text}) {
    palette.setColor(role, colours.ForeColorFixed);
  }
  return palette;
}

}  // namespace

void ColourMenus(const std::optional<GridColours>& colours) {
  static const QPalette desktopsMenus = QApplication::palette("QMenu");
  static const QPalette desktopsTips = QToolTip::palette();
  StyleMenus(colours.has_value());
  QApplication::setPalette(colours ? GridPalette(*colours) : desktopsMenus, "QMenu");
  QToolTip::setPalette(colours ? TipPalette(*colours) : desktopsTips);
}

}  // namespace ui

// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/visible_boxes.h"

#include <QApplication>
#include <QProxyStyle>
#include <QStyleOption>

namespace ui {
namespace {

class VisibleBoxes : public QProxyStyle {
 public:
  using QProxyStyle::QProxyStyle;

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
    const bool isBox = element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton;
    const QColor ground = option->palette.color(QPalette::Window);
    if (!isBox || ground.lightness() >= 128) {
      return QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
    // The frame is made of the window's colour.
    QStyleOptionButton framed;
    framed.QStyleOption::operator=(*option);
    framed.palette.setColor(QPalette::Window, option->palette.color(QPalette::WindowText));
    QProxyStyle::drawPrimitive(element, &framed, painter, widget);
  }
};

}  // namespace

void KeepBoxesVisible() { QApplication::setStyle(new VisibleBoxes(QApplication::style()->name())); }

}  // namespace ui

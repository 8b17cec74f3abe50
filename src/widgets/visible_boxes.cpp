// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/visible_boxes.h"

#include <QApplication>
#include <QProxyStyle>
#include <QStyleOption>

#include "widgets/contrast.h"

namespace ui {
namespace {

constexpr double seenContrast = 1.15;  // between a field and what is round it, without a frame

bool IsDark(const QPalette& palette) { return palette.color(QPalette::Window).lightness() < 128; }

/// A field is told from its window by its frame alone.
bool IsFlat(const QPalette& palette) {
  return IsDark(palette) &&
         Contrast(palette.color(QPalette::Window), palette.color(QPalette::Base)) < seenContrast;
}

/// The toolkit makes frames of the window's colour.
template <typename Option>
Option Framed(const Option& option) {
  Option framed(option);
  framed.palette.setColor(QPalette::Window, option.palette.color(QPalette::WindowText));
  return framed;
}

class VisibleBoxes : public QProxyStyle {
 public:
  using QProxyStyle::QProxyStyle;

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
    const bool isBox = element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton;
    const bool isFrame = element == PE_FrameLineEdit || element == PE_Frame;
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
    if (isBox && IsDark(option->palette)) {
      QStyleOptionButton framed;
      framed.QStyleOption::operator=(Framed(*option));
      QProxyStyle::drawPrimitive(element, &framed, painter, widget);
    } else if (isFrame && frame && IsFlat(option->palette)) {
      const QStyleOptionFrame framed = Framed(*frame);
      QProxyStyle::drawPrimitive(element, &framed, painter, widget);
    } else {
      QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
  }

  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override {
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control == CC_Slider && slider && IsFlat(option->palette)) {
      const QStyleOptionSlider framed = Framed(*slider);
      QProxyStyle::drawComplexControl(control, &framed, painter, widget);
    } else {
      QProxyStyle::drawComplexControl(control, option, painter, widget);
    }
  }
};

}  // namespace

void KeepBoxesVisible() { QApplication::setStyle(new VisibleBoxes(QApplication::style()->name())); }

}  // namespace ui

// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/skin_style.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QCommandLinkButton>
#include <QPainter>
#include <QPointer>
#include <QProxyStyle>
#include <QStyleOption>
#include <QWidget>

#include "skin/layouts/strips.h"
#include "skin/skin_colours.h"
#include "skin/system_button.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int captionRoom = 12;  // on each side
constexpr qreal frameRadius = 3;
constexpr int menuMargin = 3;
constexpr int arrowRoom = 4;
constexpr int fieldRoom = 2;  // beside a field's text

FaceState StateOf(const QStyleOption& option) {
  if (!option.state.testFlag(QStyle::State_Enabled)) return FaceState::Disabled;
  if (option.state.testFlag(QStyle::State_Sunken)) return FaceState::Down;
  return option.state.testFlag(QStyle::State_MouseOver) ? FaceState::Hover : FaceState::Up;
}

/// Without the room of the ring.
QRect FaceOf(const QStyleOption& button) {
  return button.rect.marginsRemoved(
      {buttonRingRoom, buttonRingRoom, buttonRingRoom, buttonRingRoom});
}

QColor ColourOfWindow(const QWidget* widget, const QStyleOption& option, QPalette::ColorRole role) {
  return (widget ? widget->window()->palette() : option.palette).color(QPalette::Active, role);
}

QFont Bold(QFont font) {
  font.setBold(true);
  return font;
}

/// The caption of the button that Enter presses is bold.
void DrawPushButton(QPainter& painter, const QStyleOptionButton& button, const QWidget* widget) {
  const QRect face = FaceOf(button);
  painter.save();
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  if (button.features.testFlag(QStyleOptionButton::DefaultButton)) {
    painter.setFont(Bold(painter.font()));
  }
  PaintSystemButton(painter, face, StateOf(button), button.text, Qt::TextShowMnemonic);
  if (button.state.testFlag(QStyle::State_HasFocus)) {
    DrawFocusRing(painter, face, layouts::buttonRadius,
                  ColourOfWindow(widget, button, QPalette::WindowText));
  }
  painter.restore();
}

/// A large button with a picture and two texts, which it draws itself.
void DrawCard(QPainter& painter, const QStyleOptionButton& card) {
  const FaceState state = StateOf(card);
  const bool isRaised = state == FaceState::Hover || state == FaceState::Down;
  const bool hasFocus = card.state.testFlag(QStyle::State_HasFocus);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(card.palette.brush(isRaised ? QPalette::AlternateBase : QPalette::Base));
  painter.setPen(QPen(card.palette.color(hasFocus ? QPalette::Highlight : QPalette::Mid), 1));
  painter.drawRoundedRect(QRectF(card.rect).adjusted(1, 1, -1, -1), layouts::buttonRadius,
                          layouts::buttonRadius);
  painter.restore();
}

void DrawButton(QPainter& painter, const QStyleOptionButton& button, const QWidget* widget) {
  if (button.features.testFlag(QStyleOptionButton::CommandLinkButton)) {
    DrawCard(painter, button);
  } else {
    DrawPushButton(painter, button, widget);
  }
}

/// The edge of something that is let into the surface; in the accent's colour where the keyboard
/// is.
void DrawFrame(QPainter& painter, const QStyleOption& option, const QWidget* widget,
               const QBrush& inside = Qt::NoBrush) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor ground = ColourOfWindow(widget, option, QPalette::Window);
  const QRectF edge = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
  painter.setPen(option.state.testFlag(QStyle::State_HasFocus)
                     ? ColourOfWindow(widget, option, QPalette::Highlight)
                     : ground.darker(200));
  painter.setBrush(inside);
  painter.drawRoundedRect(edge, frameRadius, frameRadius);
  painter.restore();
}

void DrawMenuFrame(QPainter& painter, const QStyleOption& option) {
  const QPalette& palette = option.palette;
  painter.setPen(Between(palette.color(QPalette::Window), palette.color(QPalette::WindowText)));
  painter.drawRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5));
}

class SkinStyle : public QProxyStyle {
 public:
  SkinStyle() : QProxyStyle(u"Fusion"_s) { setParent(qApp); }

  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* answer) const override {
    // A menu would open instead of a list; and what is disabled has a colour, not a relief.
    if (hint == SH_ComboBox_Popup || hint == SH_EtchDisabledText) return 0;
    return QProxyStyle::styleHint(hint, option, widget, answer);
  }

  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override {
    if (metric == PM_MenuPanelWidth) return 1;
    if (metric == PM_MenuVMargin || metric == PM_MenuHMargin) return menuMargin;
    return QProxyStyle::pixelMetric(metric, option, widget);
  }

  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    if (element == CE_PushButton && button) {
      DrawButton(*painter, *button, widget);
    } else {
      QProxyStyle::drawControl(element, option, painter, widget);
    }
  }

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
    if (element == PE_FrameLineEdit || element == PE_Frame) {
      DrawFrame(*painter, *option, widget);
    } else if (element == PE_FrameMenu) {
      DrawMenuFrame(*painter, *option);
    } else {
      QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
  }

  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override {
    const auto* number = qstyleoption_cast<const QStyleOptionSpinBox*>(option);
    const bool isBare = number && number->buttonSymbols == QAbstractSpinBox::NoButtons;
    if (control != CC_ComboBox && !isBare) {
      QProxyStyle::drawComplexControl(control, option, painter, widget);
      return;
    }
    // Flat, as the fields beside it are.
    DrawFrame(*painter, *option, widget, option->palette.base());
    if (isBare) return;
    QStyleOption arrow = *option;
    arrow.rect = subControlRect(control, option, SC_ComboBoxArrow, widget)
                     .marginsRemoved({arrowRoom, arrowRoom, arrowRoom, arrowRoom});
    drawPrimitive(PE_IndicatorArrowDown, &arrow, painter, widget);
  }

  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                         const QWidget* widget) const override {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    if (type != CT_PushButton || !button) {
      return QProxyStyle::sizeFromContents(type, option, size, widget);
    }
    const QFontMetrics bold(Bold(widget ? widget->font() : QApplication::font()));
    const int width = bold.size(Qt::TextShowMnemonic, button->text).width() + 2 * captionRoom;
    return QSize(width, layouts::systemButtons.cell.height)
        .expandedTo({0, bold.height() + captionRoom})
        .grownBy({buttonRingRoom, buttonRingRoom, buttonRingRoom, buttonRingRoom});
  }

  /// The room of the ring isn't the button's: what stands in a line lines up with its face.
  QRect subElementRect(SubElement element, const QStyleOption* option,
                       const QWidget* widget) const override {
    const QRect rect = QProxyStyle::subElementRect(element, option, widget);
    if (element == SE_LineEditContents) return rect.adjusted(fieldRoom, 0, -fieldRoom, 0);
    const bool isCard = qobject_cast<const QCommandLinkButton*>(widget);
    return element == SE_PushButtonLayoutItem && !isCard ? FaceOf(*option) : rect;
  }
};

}  // namespace

QStyle* TheSkinStyle() {
  static QPointer<QStyle> style;
  if (!style) style = new SkinStyle;
  return style;
}

}  // namespace ui

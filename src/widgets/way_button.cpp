// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/way_button.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace ui {

namespace {

constexpr int margin = 12;
constexpr int pictureSize = 40;
constexpr int gap = 16;
constexpr int lineGap = 2;
constexpr int usualWidth = 520;
constexpr qreal radius = 6;
constexpr int wrapping = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap;

QColor Mixed(const QColor& ground, const QColor& colour, double share) {
  const auto mix = [share](int a, int b) { return static_cast<int>(a + (b - a) * share); };
  return {mix(ground.red(), colour.red()), mix(ground.green(), colour.green()),
          mix(ground.blue(), colour.blue())};
}

}  // namespace

WayButton::WayButton(const QIcon& picture, const QString& title, const QString& explanation,
                     QWidget* parent)
    : QAbstractButton(parent), explanation_(explanation) {
  setIcon(picture);
  setText(title);
  setAccessibleDescription(explanation);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

QFont WayButton::TitleFont() const {
  QFont font = this->font();
  font.setBold(true);
  font.setPointSizeF(font.pointSizeF() * 1.15);
  return font;
}

int WayButton::TextWidth(int width) const { return width - 2 * margin - pictureSize - gap; }

int WayButton::heightForWidth(int width) const {
  const QRect room(0, 0, TextWidth(width), 10000);
  const int text = QFontMetrics(TitleFont()).lineSpacing() + lineGap +
                   fontMetrics().boundingRect(room, wrapping, explanation_).height();
  return std::max(text, pictureSize) + 2 * margin;
}

QSize WayButton::sizeHint() const { return {usualWidth, heightForWidth(usualWidth)}; }

void WayButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QPalette& colours = palette();
  const QColor accent = colours.color(QPalette::Highlight);
  const QColor ground = colours.color(isEnabled() ? QPalette::Base : QPalette::Window);
  const double tint = isDown() ? 0.25 : underMouse() && isEnabled() ? 0.1 : 0;
  const qreal line = hasFocus() ? 2 : 1;
  painter.setPen(QPen(hasFocus() ? accent : colours.color(QPalette::Mid), line));
  painter.setBrush(Mixed(ground, accent, tint));
  painter.drawRoundedRect(QRectF(rect()).adjusted(line / 2, line / 2, -line / 2, -line / 2), radius,
                          radius);

  icon().paint(&painter, {margin, (height() - pictureSize) / 2, pictureSize, pictureSize},
               Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
  const QColor ink = colours.color(QPalette::Active, QPalette::WindowText);
  painter.setPen(Mixed(ground, ink, isEnabled() ? 1 : 0.6));  // pale, but still to be read
  const QFont titleFont = TitleFont();
  const int titleHeight = QFontMetrics(titleFont).lineSpacing();
  QRect place(margin + pictureSize + gap, margin, TextWidth(width()), titleHeight);
  painter.setFont(titleFont);
  painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, text());
  place.setRect(place.x(), margin + titleHeight + lineGap, place.width(), height());
  painter.setFont(font());
  painter.drawText(place, wrapping, explanation_);
}

void WayButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    click();
  } else {
    QAbstractButton::keyPressEvent(event);
  }
}

}  // namespace ui

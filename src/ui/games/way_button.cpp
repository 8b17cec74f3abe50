// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/games/way_button.h"

#include <QStyleOptionButton>
#include <QStylePainter>

#include <algorithm>

namespace ui {
namespace {

constexpr int wayPicture = 40;
constexpr int margin = 10;
constexpr int textLeft = margin + wayPicture + margin;

}  // namespace

WayButton::WayButton(const QString& title, const QString& description, const QIcon& picture)
    : QCommandLinkButton(title, description) {
  setIcon(picture);
  setIconSize({wayPicture, wayPicture});
}

QFont WayButton::TitleFont() const {
  QFont title = font();
  title.setBold(true);
  return title;
}

/// Below the title.
QRect WayButton::DescriptionRect(int width) const {
  const int top = margin + QFontMetrics(TitleFont()).height();
  const int room = std::max(1, width - textLeft - margin);
  const int height =
      fontMetrics().boundingRect(0, 0, room, 0, Qt::TextWordWrap, description()).height();
  return {textLeft, top, room, height};
}

int WayButton::heightForWidth(int width) const {
  return std::max(wayPicture + 2 * margin, DescriptionRect(width).bottom() + 1 + margin);
}

QSize WayButton::sizeHint() const {
  const int width = textLeft + 44 * fontMetrics().averageCharWidth() + margin;
  return {width, heightForWidth(width)};
}

void WayButton::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  option.features |= QStyleOptionButton::CommandLinkButton;
  option.text.clear();
  option.icon = {};
  painter.drawControl(QStyle::CE_PushButton, option);
  icon().paint(&painter, {margin, (height() - wayPicture) / 2, wayPicture, wayPicture});
  painter.setPen(palette().color(QPalette::ButtonText));
  painter.setFont(TitleFont());
  const QRect description = DescriptionRect(width());
  painter.drawText(QRect(textLeft, 0, description.width(), description.top()),
                   Qt::AlignBottom | Qt::TextShowMnemonic, text());
  painter.setFont(font());
  painter.drawText(description, Qt::TextWordWrap, this->description());
}

}  // namespace ui

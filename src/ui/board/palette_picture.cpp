// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/palette_picture.h"

#include <QPainter>

#include <algorithm>

#include "skin/skin_button.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int ringRoom = 4;

QString NameOf(rules::PieceCode piece) {
  static constexpr const char* kinds[] = {"", "rook", "knight", "bishop", "queen", "king", "pawn"};
  return (rules::SideOfPiece(piece) == rules::White ? u"White "_s : u"Black "_s) +
         QLatin1StringView(kinds[rules::KindOf(piece)]);
}

}  // namespace

PalettePicture::PalettePicture(rules::PieceCode piece, QWidget* parent) : QWidget(parent) {
  setObjectName(u"PiecePallete_%1"_s.arg(piece));
  setAccessibleName(NameOf(piece));
  SetReachedByTab(false);
}

void PalettePicture::SetPicture(const QImage& picture) {
  picture_ = picture;
  scaled_ = {};
  update();
}

void PalettePicture::SetSelected(bool selected) {
  if (selected == selected_) return;
  selected_ = selected;
  update();
}

void PalettePicture::SetReachedByTab(bool reached) {
  setFocusPolicy(reached ? Qt::StrongFocus : Qt::ClickFocus);
}

const QPixmap& PalettePicture::Scaled() {
  const qreal ratio = devicePixelRatioF();
  const QSize pixels = (QSizeF(size()) * ratio).toSize();
  if (scaled_.size() != pixels) {
    scaled_ = QPixmap::fromImage(
        picture_.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    scaled_.setDevicePixelRatio(ratio);
  }
  return scaled_;
}

void PalettePicture::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.drawPixmap(0, 0, Scaled());
  const QColor accent = palette().color(QPalette::Highlight);
  if (selected_) {
    QColor glow = accent;
    glow.setAlpha(45);
    const qreal width = std::max(3.0, this->width() * 0.06), half = width / 2;
    painter.setPen(QPen(accent, width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.setBrush(glow);
    painter.drawRect(QRectF(rect()).adjusted(half, half, -half, -half));
  }
  if (hasFocus()) {
    DrawFocusRing(painter, rect().adjusted(ringRoom, ringRoom, -ringRoom, -ringRoom), 0, accent);
  }
}

PaletteMarker::PaletteMarker(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
}

void PaletteMarker::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QColor veil = palette().color(QPalette::Base);
  veil.setAlpha(150);
  painter.fillRect(rect(), veil);

  const QPointF middle(width() * 0.74, height() * 0.26);
  const qreal radius = width() * 0.17;
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette().color(QPalette::Highlight));
  painter.drawEllipse(middle, radius, radius);
  painter.setPen(QPen(palette().color(QPalette::HighlightedText), radius * 0.28, Qt::SolidLine,
                      Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolyline(QPolygonF{middle + radius * QPointF(-0.48, 0.04),
                                 middle + radius * QPointF(-0.12, 0.40),
                                 middle + radius * QPointF(0.50, -0.36)});
}

}  // namespace ui

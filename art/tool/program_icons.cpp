// SPDX-License-Identifier: GPL-3.0-or-later
#include "program_icons.h"

#include <QPainter>
#include <QSvgRenderer>

#include "piece_drawing.h"
#include "piece_picture.h"
#include "saved_picture.h"

namespace art {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMessageIcons = 5;
constexpr int kMessageSide = 96;
constexpr int kProgramSide = 256;
constexpr int kPaintedSide = 1024;

// Where the knight rises out of the envelope, in the painted picture.
constexpr QRect kKnightPlace(40, -97, 1000, 1000);

QImage Scaled(const QImage& picture, int side) {
  return picture.scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

bool Draw(QPainter& painter, const QString& path, QString* error) {
  QSvgRenderer drawing(path);
  if (!drawing.isValid()) {
    *error = u"%1: not a drawing"_s.arg(path);
    return false;
  }
  drawing.render(&painter);
  return true;
}

QImage EmptyPicture() {
  QImage picture(kPaintedSide, kPaintedSide, QImage::Format_ARGB32_Premultiplied);
  picture.fill(Qt::transparent);
  return picture;
}

bool RenderMessageIcon(int number, const SetParameters& set, const QString& source,
                       const QString& output, QString* error) {
  const QString name = u"/messages/message-%1"_s.arg(number);
  QImage picture = EmptyPicture();
  QPainter painter(&picture);
  if (!Draw(painter, source + name + u".svg"_s, error)) return false;
  painter.end();
  const QImage icon = Scaled(WithShadow(picture, set.shadow), kMessageSide);
  return SavePicture(icon, output + name + u".png"_s, error);
}

bool RenderProgramIcon(const SetParameters& set, const QString& source, const QString& output,
                       QString* error) {
  const auto knight = ReadPieceDrawing(source + u"/pieces/knight.svg"_s, kPaintedSide, error);
  if (!knight) return false;
  QImage picture = EmptyPicture();
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  if (!Draw(painter, source + u"/program/envelope-back.svg"_s, error)) return false;
  painter.drawImage(kKnightPlace, WithShadow(PaintPiece(*knight, set.white, set.lamp), set.shadow));
  if (!Draw(painter, source + u"/program/envelope-front.svg"_s, error)) return false;
  painter.end();
  const QImage icon = Scaled(WithShadow(picture, set.shadow), kProgramSide);
  return SavePicture(icon, output + u"/tarvolenix.png"_s, error);
}

}  // namespace

bool RenderProgramIcons(const SetParameters& set, const QString& source, const QString& output,
                        QString* error) {
  for (int number = 1; number <= kMessageIcons; ++number) {
    if (!RenderMessageIcon(number, set, source, output, error)) return false;
  }
  return RenderProgramIcon(set, source, output, error);
}

}  // namespace art

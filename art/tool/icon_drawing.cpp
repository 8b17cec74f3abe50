// SPDX-License-Identifier: GPL-3.0-or-later
#include "icon_drawing.h"

#include <QFile>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>

#include "piece_picture.h"

namespace art {

using namespace Qt::StringLiterals;

namespace {

constexpr int kSmallestWithShadow = 32;

std::optional<QString> TextOf(const QString& path, QString* error) {
  QFile file(path);
  if (file.open(QIODevice::ReadOnly)) return QString::fromUtf8(file.readAll());
  *error = u"%1: %2"_s.arg(path, file.errorString());
  return std::nullopt;
}

}  // namespace

std::optional<QByteArray> ReadIconDrawing(const QString& path, const QString& parts,
                                          QString* error) {
  static const QRegularExpression placeholder(u"\\{([a-z-]+)\\}"_s);
  std::optional<QString> document = TextOf(path, error);
  if (!document) return std::nullopt;
  for (auto at = placeholder.match(*document); at.hasMatch(); at = placeholder.match(*document)) {
    const auto part = TextOf(u"%1/%2.svg"_s.arg(parts, at.captured(1)), error);
    if (!part) return std::nullopt;
    document->replace(at.capturedStart(), at.capturedLength(), *part);
  }
  QByteArray drawing = document->toUtf8();
  if (QSvgRenderer(drawing).isValid()) return drawing;
  *error = u"%1: not a drawing"_s.arg(path);
  return std::nullopt;
}

QImage PaintIcon(const QByteArray& document, int side, const ShadowParameters& shadow) {
  QImage picture(side, side, QImage::Format_ARGB32_Premultiplied);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  QSvgRenderer(document).render(&painter);
  painter.end();
  return side < kSmallestWithShadow ? picture : WithShadow(picture, shadow);
}

}  // namespace art

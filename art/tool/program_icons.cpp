// SPDX-License-Identifier: GPL-3.0-or-later
#include "program_icons.h"

#include <QDir>
#include <QPainter>

#include <algorithm>
#include <vector>

#include "icon_drawing.h"
#include "icon_file.h"
#include "piece_drawing.h"
#include "piece_picture.h"
#include "saved_picture.h"

namespace art {

using namespace Qt::StringLiterals;

namespace {

constexpr int kSmallSides[] = {16, 22, 24, 32, 48, 64};
constexpr int kMessageSide = 96;
constexpr int kDrawSignSide = 256;
// The program icon's painted picture, and where the knight rises out of the envelope in it.
constexpr int kPaintedSide = 1024;
constexpr QRect kKnightPlace(40, -97, 1000, 1000);
// Up to the first size the program icon is the simpler drawing, from the next on the painted one.
constexpr int kSimpleSides[] = {16, 22, 24};
constexpr int kPaintedSides[] = {32, 48, 64, 128, 256};

QImage Scaled(const QImage& picture, int side) {
  return picture.scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

// What all the icons need to be drawn.
struct Workshop {
  const SetParameters& set;
  QString source, output;
  QString* error;

  QString Parts() const { return source + u"/icons/parts"_s; }
  std::optional<QByteArray> Drawing(const QString& name) const {
    return ReadIconDrawing(u"%1/%2.svg"_s.arg(source, name), Parts(), error);
  }
};

bool RenderIcon(const Workshop& shop, const QString& name) {
  const auto drawing = shop.Drawing(name);
  if (!drawing) return false;
  std::vector<QImage> pictures;
  for (int side : kSmallSides) pictures.push_back(PaintIcon(*drawing, side, shop.set.shadow));
  return SaveIcon(pictures, u"%1/%2.ico"_s.arg(shop.output, name), shop.error);
}

bool RenderPicture(const Workshop& shop, const QString& drawingName, int side,
                   const QString& name) {
  const auto drawing = shop.Drawing(drawingName);
  return drawing && SavePicture(PaintIcon(*drawing, side, shop.set.shadow),
                                u"%1/%2.png"_s.arg(shop.output, name), shop.error);
}

bool RenderMessageIcon(const Workshop& shop, const QString& name) {
  return RenderPicture(shop, name, kMessageSide, name);
}

/// Renders every drawing in `folder` by its name below the source.
bool RenderFolder(const Workshop& shop, const QString& folder,
                  bool (*render)(const Workshop&, const QString&)) {
  const QDir drawings(shop.source + u'/' + folder);
  for (const QFileInfo& file : drawings.entryInfoList({u"*.svg"_s}, QDir::Files, QDir::Name)) {
    if (!render(shop, folder + u'/' + file.completeBaseName())) return false;
  }
  return true;
}

QImage PaintProgramIcon(const QByteArray& back, const QImage& knight, const QByteArray& front,
                        const ShadowParameters& shadow) {
  QImage picture = PaintIcon(back, kPaintedSide, shadow);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(kKnightPlace, knight);
  painter.drawImage(0, 0, PaintIcon(front, kPaintedSide, shadow));
  return picture;
}

bool SaveForIconTheme(const std::vector<QImage>& pictures, const QString& output, QString* error) {
  return std::all_of(pictures.begin(), pictures.end(), [&](const QImage& picture) {
    return SavePicture(
        picture, u"%1/icons/hicolor/%2x%2/apps/tarvolenix.png"_s.arg(output).arg(picture.width()),
        error);
  });
}

bool RenderProgramIcon(const Workshop& shop) {
  const auto knight = ReadPieceDrawing(shop.source + u"/pieces/knight.svg"_s, shop.set.lines,
                                       kPaintedSide, shop.error);
  const auto back = shop.Drawing(u"program/envelope-back"_s);
  const auto front = shop.Drawing(u"program/envelope-front"_s);
  const auto simple = shop.Drawing(u"program/small"_s);
  if (!knight || !back || !front || !simple) return false;
  const QImage rising =
      WithShadow(PaintPiece(*knight, shop.set.white, shop.set.lamp), shop.set.shadow);
  const QImage painted = PaintProgramIcon(*back, rising, *front, shop.set.shadow);
  std::vector<QImage> pictures;
  for (int side : kSimpleSides) pictures.push_back(PaintIcon(*simple, side, shop.set.shadow));
  for (int side : kPaintedSides) pictures.push_back(Scaled(painted, side));
  return SavePicture(pictures.back(), shop.output + u"/tarvolenix.png"_s, shop.error) &&
         SaveIcon(pictures, shop.output + u"/tarvolenix.ico"_s, shop.error) &&
         SaveForIconTheme(pictures, shop.output, shop.error);
}

}  // namespace

bool RenderProgramIcons(const SetParameters& set, const QString& source, const QString& output,
                        QString* error) {
  const Workshop shop{set, source, output, error};
  return RenderFolder(shop, u"icons/tray"_s, RenderIcon) &&
         RenderFolder(shop, u"icons/status"_s, RenderIcon) &&
         RenderFolder(shop, u"messages"_s, RenderMessageIcon) &&
         RenderPicture(shop, u"program/draw"_s, kDrawSignSide, u"draw"_s) &&
         RenderProgramIcon(shop);
}

}  // namespace art

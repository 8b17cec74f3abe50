// SPDX-License-Identifier: GPL-3.0-or-later
#include "piece_picture.h"

#include <QPainter>
#include <QTransform>
#include <QtMath>

#include <algorithm>
#include <cmath>

#include "relief.h"

namespace art {

namespace {

// Where every piece stands, in parts of a cell from the top.
constexpr double kBaseLine = 0.955;
// A shadow dies away over this part of a cell before the cell's edge.
constexpr float kEdgeFade = 0.05F;

struct Tint {
  float red, green, blue;
};

Tint TintOf(const QColor& colour) { return {colour.redF(), colour.greenF(), colour.blueF()}; }

Tint Mix(Tint a, Tint b, float share) {
  return {std::lerp(a.red, b.red, share), std::lerp(a.green, b.green, share),
          std::lerp(a.blue, b.blue, share)};
}

QRgb PixelOf(Tint tint, float cover) {
  auto byte = [cover](float value) {
    return static_cast<int>(std::lround(std::clamp(value * cover, 0.0F, 1.0F) * 255));
  };
  return qRgba(byte(tint.red), byte(tint.green), byte(tint.blue), byte(1));
}

// The side's colours from shade to lit, by how much light falls there.
class Ramp {
 public:
  explicit Ramp(const SidePalette& palette)
      : shade_(TintOf(palette.shade)), body_(TintOf(palette.body)), lit_(TintOf(palette.lit)) {}

  Tint At(float light) const {
    const float share = std::clamp(light, 0.0F, 1.0F);
    return share < 0.5F ? Mix(shade_, body_, share * 2) : Mix(body_, lit_, share * 2 - 1);
  }

 private:
  Tint shade_, body_, lit_;
};

Direction TowardsLamp(const Lamp& lamp) { return Unit({-lamp.left, -lamp.up, lamp.front}); }

float Dot(Direction a, Direction b) { return a.x * b.x + a.y * b.y + a.z * b.z; }

float Diffuse(Direction facing, Direction light, float ambient) {
  return ambient + (1 - ambient) * std::max(0.0F, Dot(facing, light));
}

// Brightness of the lamp's reflection, seen from straight in front.
float Gloss(Direction facing, Direction light, const Lamp& lamp) {
  const Direction half = Unit({light.x, light.y, light.z + 1});
  return lamp.gloss * std::pow(std::max(0.0F, Dot(facing, half)), lamp.glossPower);
}

// The strip inside the outline that has no surface between itself and the lamp.
Plane LitEdge(const PieceDrawing& drawing, const Lamp& lamp) {
  const int side = drawing.cover.Side();
  Plane inner(side);
  for (int y = 0; y < side; ++y) {
    for (int x = 0; x < side; ++x) {
      const float drawn = std::max(drawing.ink.At(x, y), drawing.line.At(x, y));
      inner.At(x, y) = drawing.cover.At(x, y) * (1 - drawn);
    }
  }
  const float width = lamp.rim / 1000 * static_cast<float>(side);
  const float length = std::hypot(lamp.left, lamp.up);
  Plane edge = Shifted(inner, width * lamp.left / length, width * lamp.up / length);
  for (int y = 0; y < side; ++y) {
    for (int x = 0; x < side; ++x) {
      edge.At(x, y) = inner.At(x, y) * std::max(0.0F, inner.At(x, y) - edge.At(x, y));
    }
  }
  return edge;
}

QRect Bounds(const QImage& picture) {
  QRect bounds;
  for (int y = 0; y < picture.height(); ++y) {
    const QRgb* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
    for (int x = 0; x < picture.width(); ++x) {
      if (qAlpha(line[x]) > 8) bounds |= QRect(x, y, 1, 1);
    }
  }
  return bounds;
}

// The lamp as a piece turned clockwise by `degrees` sees it.
Lamp TurnedAgainst(Lamp lamp, float degrees) {
  const float angle = qDegreesToRadians(degrees);
  const float x = -lamp.left, y = -lamp.up;
  lamp.left = -(x * std::cos(angle) + y * std::sin(angle));
  lamp.up = -(y * std::cos(angle) - x * std::sin(angle));
  return lamp;
}

float FadeToEdge(int x, int y, int side) {
  const int nearest = std::min({x, y, side - 1 - x, side - 1 - y});
  const float share = static_cast<float>(nearest) / (kEdgeFade * static_cast<float>(side));
  return std::clamp(share, 0.0F, 1.0F);
}

}  // namespace

QImage PaintPiece(const PieceDrawing& drawing, const SidePalette& palette, const Lamp& lamp) {
  const int side = drawing.cover.Side();
  const Relief relief = ReliefOf(drawing);
  const Plane edge = LitEdge(drawing, lamp);
  const Direction light = TowardsLamp(lamp);
  const Ramp ramp(palette);
  const Tint halo = TintOf(palette.halo), ink = TintOf(palette.ink);
  const Tint inner = TintOf(palette.line), glint = TintOf(palette.glint);
  QImage picture(side, side, QImage::Format_ARGB32_Premultiplied);
  picture.fill(Qt::transparent);
  for (int y = 0; y < side; ++y) {
    QRgb* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
    for (int x = 0; x < side; ++x) {
      const float cover = drawing.cover.At(x, y);
      const float whole = std::max(cover, drawing.halo.At(x, y));
      if (whole == 0) continue;
      const Direction facing = relief.At(x, y);
      Tint tint = ramp.At(Diffuse(facing, light, lamp.ambient));
      tint = Mix(tint, glint, Gloss(facing, light, lamp));
      tint = Mix(tint, glint, palette.rim * edge.At(x, y));
      tint = Mix(tint, glint, drawing.glint.At(x, y));
      tint = Mix(tint, inner, drawing.line.At(x, y));
      tint = Mix(tint, ink, drawing.ink.At(x, y));
      line[x] = PixelOf(Mix(halo, tint, cover / whole), whole);
    }
  }
  return picture;
}

QImage PaintFallenPiece(const PieceDrawing& drawing, const SidePalette& palette, const Lamp& lamp,
                        const FallenParameters& fallen) {
  const float turn = fallen.turn;
  const QImage upright = PaintPiece(drawing, palette, TurnedAgainst(lamp, turn));
  QTransform lie;
  lie.rotate(static_cast<double>(turn));
  lie.scale(static_cast<double>(fallen.scale), static_cast<double>(fallen.scale));
  const QImage lying = upright.transformed(lie, Qt::SmoothTransformation);
  const QRect bounds = Bounds(lying);
  QImage picture(upright.size(), upright.format());
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.drawImage(QPoint((picture.width() - bounds.width()) / 2,
                           qRound(kBaseLine * picture.height()) - bounds.height()),
                    lying.copy(bounds));
  return picture;
}

QImage WithShadow(const QImage& piece, const ShadowParameters& shadow) {
  const int side = piece.width();
  const float unit = static_cast<float>(side) / 1000;
  const Plane cast = Shifted(Blurred(ChannelOf(piece, Channel::Alpha), shadow.blur * unit),
                             shadow.right * unit, shadow.down * unit);
  QImage picture(piece.size(), QImage::Format_ARGB32_Premultiplied);
  for (int y = 0; y < side; ++y) {
    QRgb* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
    for (int x = 0; x < side; ++x) {
      line[x] =
          PixelOf(TintOf(shadow.colour), shadow.strength * cast.At(x, y) * FadeToEdge(x, y, side));
    }
  }
  QPainter painter(&picture);
  painter.drawImage(0, 0, piece);
  return picture;
}

}  // namespace art

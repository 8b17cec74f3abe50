// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin_surface.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

#include <cmath>
#include <numbers>

#include "skin/layouts/strips.h"

namespace art {

namespace {

constexpr float kDiagonal = std::numbers::sqrt2_v<float> / 2;
// How far the frame of the board reaches beyond the band of the coordinates.
constexpr float kFrameLip = 3;
constexpr float kToolingAt = 2.4F;

// How far a surface that rises by `slope` inwards is turned towards the lamp, -1 to 1. The lamp
// stands upper left, so what rises to the lower right faces it.
float Tilt(const Depth& depth, float slope) { return slope * (depth.x + depth.y) * kDiagonal; }

// The slope of a quarter round that begins at 0 and is flat from `width` on.
float RoundSlope(float inside, float width) {
  if (inside < 0 || inside > width) return 0;
  return std::cos(std::numbers::pi_v<float> / 2 * inside / width);
}

// 1 within a band of `width` about `at`, softened by a pixel of the picture at both ends.
float Band(float inside, float at, float width) {
  return std::clamp((width / 2 - std::abs(inside - at)) * kSkinScale + 0.5F, 0.0F, 1.0F);
}

float Cover(float inside) { return std::clamp(inside * kSkinScale + 0.5F, 0.0F, 1.0F); }

QRectF Grown(const QRectF& rect, double by) { return rect.adjusted(-by, -by, by, by); }

}  // namespace

SkinSurface::SkinSurface(const SkinParameters& skin, QSize size)
    : skin_(skin),
      size_(size),
      width_(size.width() * kSkinScale),
      height_(size.height() * kSkinScale),
      tints_(static_cast<size_t>(width_) * static_cast<size_t>(height_)),
      body_(skin.body),
      rim_(skin.rim),
      frame_(skin.frame),
      panel_(skin.panel),
      inlay_(skin.inlay) {}

template <typename Work>
void SkinSurface::ForEach(const QRectF& area, Work work) {
  const QRect pixels = QRectF(area.topLeft() * kSkinScale, area.size() * kSkinScale)
                           .toAlignedRect()
                           .intersected({0, 0, width_, height_});
  for (int py = pixels.top(); py <= pixels.bottom(); ++py) {
    Tint* line = &tints_[static_cast<size_t>(py) * static_cast<size_t>(width_)];
    for (int px = pixels.left(); px <= pixels.right(); ++px) {
      work((static_cast<float>(px) + 0.5F) / kSkinScale,
           (static_cast<float>(py) + 0.5F) / kSkinScale, line[px]);
    }
  }
}

float SkinSurface::LampAt(float x, float y) const {
  const float across = x / static_cast<float>(size_.width());
  const float down = y / static_cast<float>(size_.height());
  return std::lerp(skin_.lamp.near, skin_.lamp.far,
                   Ease(0.0F, 1.35F, std::hypot(across, down * 0.9F)));
}

Tint SkinSurface::Lit(const Tint& tint, float tilt) const {
  const SkinLamp& lamp = skin_.lamp;
  if (tilt >= 0) return Mix(tint, Tint::Of(lamp.light), tilt * lamp.lightStrength);
  return Shaded(tint, -tilt * lamp.shadeStrength);
}

Tint SkinSurface::Shaded(const Tint& tint, float share) const {
  return Mix(tint, Tint::Of(skin_.lamp.shade), share);
}

// A wire let in: its lit side faces the lamp.
void SkinSurface::DrawLine(Tint& tint, const Depth& depth, float at, float width,
                           float strength) const {
  const SkinLine& line = skin_.line;
  if (line.glow > 0) {
    const float away = (depth.inside - at) / 4;
    tint = Mix(tint, Tint::Of(line.body), strength * line.glow * std::exp(-away * away));
  }
  const float cover = Band(depth.inside, at, width) * strength;
  if (cover == 0) return;
  const float turn = std::clamp((depth.inside - at) / width * 2, -1.0F, 1.0F);
  const float facing = Tilt(depth, -turn) * 0.8F + 0.15F * (depth.x + depth.y);
  const Tint metal = Mix(Tint::Of(line.body), Tint::Of(facing > 0 ? line.lit : line.shade),
                         std::min(1.0F, std::abs(facing)));
  tint = Mix(tint, metal, cover);
}

// Wood along the sides of a frame, cut at 45 degrees where they meet.
Tint SkinSurface::Mitred(const Material& material, const Depth& depth, float x, float y) const {
  return std::abs(depth.x) > std::abs(depth.y) ? material.At(y + 700, x) : material.At(x, y);
}

void SkinSurface::Lay() {
  ForEach({{}, QSizeF(size_)},
          [&](float x, float y, Tint& tint) { tint = body_.At(x, y).Times(LampAt(x, y)); });
}

void SkinSurface::RaiseRim(const OutlineShape& outline) {
  const SkinEdges& edges = skin_.edges;
  const float inner = edges.rim - edges.round * 0.6F;
  ForEach({{}, QSizeF(size_)}, [&](float x, float y, Tint& tint) {
    const Depth depth = outline.At(x, y);
    const float lampward = outline.At(x - edges.shadowReach / 2, y - edges.shadowReach / 2).inside;
    if (depth.inside > edges.rim) {
      const float open = Ease(edges.rim - 1, edges.rim + edges.shadowReach, lampward);
      tint = Shaded(tint, edges.shadowStrength * (1 - open));
    }
    if (depth.inside > edges.rim + 5) return;
    Tint rim = Mitred(rim_, depth, x, y).Times(LampAt(x, y) * 1.05F);
    const float slope = RoundSlope(depth.inside, edges.round) -
                        RoundSlope(edges.rim - depth.inside, edges.rim - inner);
    rim = Lit(rim, Tilt(depth, slope));
    tint = Mix(tint, rim, Cover(edges.rim - depth.inside));
    tint = Shaded(tint, 0.5F * Band(depth.inside, edges.rim + 0.3F, 0.8F));
    DrawLine(tint, depth, skin_.line.at, skin_.line.width, 1);
    tint = Shaded(tint, 0.55F * (1 - Ease(0.2F, 1.2F, depth.inside)));
  });
}

// The slanting edge round what is let in or sunk: it falls inwards.
void SkinSurface::CutIn(Tint& tint, const Depth& depth) const {
  const float width = skin_.edges.bevel;
  tint = Lit(tint, Tilt(depth, -RoundSlope(depth.inside + width, width * 1.4F)));
}

void SkinSurface::LetInPanel(const QRectF& rect) {
  const SkinEdges& edges = skin_.edges;
  const RoundedRect shape(rect, edges.panelRadius);
  ForEach(Grown(rect, edges.bevel + 1), [&](float x, float y, Tint& tint) {
    const Depth depth = shape.At(x, y);
    CutIn(tint, depth);
    if (depth.inside < -0.5F) return;
    Tint panel = panel_.At(x, y).Times(LampAt(x, y));
    const float lampward = shape.At(x - 2.2F, y - 2.2F).inside;
    panel = Shaded(panel, edges.shadowStrength * (1 - Ease(-2.2F, edges.shadowReach, lampward)));
    if (skin_.line.tooling > 0) {
      DrawLine(panel, depth, kToolingAt, 0.7F, skin_.line.tooling);
    }
    tint = Mix(tint, panel, Cover(depth.inside));
  });
}

void SkinSurface::SinkWell(const QRectF& rect) {
  const SkinEdges& edges = skin_.edges;
  const RoundedRect shape(Grown(rect, 1), edges.wellRadius);
  ForEach(Grown(rect, edges.bevel + 4), [&](float x, float y, Tint& tint) {
    const Depth depth = shape.At(x, y);
    CutIn(tint, depth);
    tint = Mix(tint, Tint::Of(skin_.lamp.shade), 0.85F * Cover(depth.inside));
  });
}

void SkinSurface::SinkRail(const QRectF& rect) {
  const SkinEdges& edges = skin_.edges;
  const RoundedRect shape(rect, edges.panelRadius + 3);
  ForEach(Grown(rect, static_cast<double>(edges.bevel) + 1), [&](float x, float y, Tint& tint) {
    const Depth depth = shape.At(x, y);
    CutIn(tint, depth);
    const float lampward = shape.At(x - 2.2F, y - 2.2F).inside;
    const float shade = 0.28F + 0.4F * (1 - Ease(-2.2F, edges.shadowReach, lampward));
    tint = Shaded(tint, shade * Cover(depth.inside));
  });
}

void SkinSurface::InlaySquare(const QRectF& rect) {
  const RoundedRect shape(rect, static_cast<float>(ui::layouts::buttonRadius));
  ForEach(Grown(rect, static_cast<double>(skin_.edges.bevel) + 1),
          [&](float x, float y, Tint& tint) {
            const Depth depth = shape.At(x, y);
            CutIn(tint, depth);
            const Tint square = inlay_.At(x, y).Times(LampAt(x, y));
            tint = Mix(tint, square, Cover(depth.inside));
          });
}

void SkinSurface::FrameBoard(const QRectF& squares, float band) {
  const SkinEdges& edges = skin_.edges;
  const float wide = band + kFrameLip;
  const QRectF outer = Grown(squares, static_cast<double>(wide));
  const RoundedRect shape(outer, edges.wellRadius), mitre(outer, 0);
  const float cast = edges.shadowReach * 0.7F;
  ForEach(Grown(outer, static_cast<double>(2 * edges.shadowReach)),
          [&](float x, float y, Tint& tint) {
            const Depth depth = shape.At(x, y);
            const float over = shape.At(x - cast, y - cast).inside;
            tint = Shaded(tint, edges.shadowStrength * Ease(-cast, cast, over));
            if (depth.inside < -1) return;
            Tint wood = Mitred(frame_, mitre.At(x, y), x, y).Times(LampAt(x, y) * 1.08F);
            const float slope = RoundSlope(depth.inside, edges.bevel * 1.5F) -
                                RoundSlope(wide - depth.inside, edges.bevel);
            wood = Lit(wood, Tilt(depth, slope));
            DrawLine(wood, depth, kFrameLip - 0.7F, 1, skin_.line.frame);
            wood = Shaded(wood, 0.8F * Cover(depth.inside - wide + 0.8F));
            tint = Mix(tint, wood, Cover(depth.inside));
          });
}

void SkinSurface::Engrave(const QRectF& rect, float radius) {
  const RoundedRect shape(rect, radius);
  ForEach(Grown(rect, 3), [&](float x, float y, Tint& tint) {
    const Depth depth = shape.At(x, y);
    for (const float at : {0.0F, 3.0F}) {
      const float off = (depth.inside - at) / 0.9F;
      if (std::abs(off) > 1) continue;
      const float fall = std::sin(std::numbers::pi_v<float> * off);
      tint = Lit(Shaded(tint, 0.35F * (1 - std::abs(off))), Tilt(depth, fall) * 0.9F);
    }
  });
}

void SkinSurface::InlayText(const QString& text, const QRectF& rect) {
  QFont font;
  font.setFamilies(skin_.titleFonts);
  font.setBold(true);
  font.setPixelSize(100);
  QPainterPath letters;
  letters.addText(0, 0, font, text);
  const QRectF bounds = letters.boundingRect();
  if (bounds.isEmpty()) return;  // no font at all
  const double scale =
      kSkinScale * std::min(rect.width() / bounds.width(), rect.height() / bounds.height());
  QImage mask(width_, height_, QImage::Format_Grayscale8);
  mask.fill(0);
  QPainter painter(&mask);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(rect.center() * kSkinScale);
  painter.scale(scale, scale);
  painter.translate(-bounds.center());
  painter.fillPath(letters, Qt::white);
  painter.end();
  const auto at = [&](float x, float y) {
    const QPoint pixel(static_cast<int>(x * kSkinScale), static_cast<int>(y * kSkinScale));
    return mask.valid(pixel) ? static_cast<float>(qGray(mask.pixel(pixel))) / 255 : 0;
  };
  const SkinLine& line = skin_.line;
  ForEach(Grown(rect, 2), [&](float x, float y, Tint& tint) {
    constexpr float kStep = 1.0F / kSkinScale;
    tint = Shaded(tint, 0.6F * at(x - 2 * kStep, y - 2 * kStep));
    const float rise = at(x + kStep, y + kStep) - at(x - kStep, y - kStep);
    const Tint face = Mix(Tint::Of(line.body), Tint::Of(line.lit), 0.45F);
    const Tint metal =
        Mix(face, Tint::Of(rise > 0 ? line.lit : line.shade), std::min(1.0F, std::abs(rise)));
    tint = Mix(tint, metal, at(x, y));
  });
}

QImage SkinSurface::Picture() const {
  QImage picture(width_, height_, QImage::Format_RGB32);
  for (int y = 0; y < height_; ++y) {
    QRgb* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
    const Tint* tints = &tints_[static_cast<size_t>(y) * static_cast<size_t>(width_)];
    for (int x = 0; x < width_; ++x) line[x] = tints[x].Pixel();
  }
  return picture;
}

}  // namespace art

// SPDX-License-Identifier: GPL-3.0-or-later
// The surface of one window while it is being worked: wood, metal and leather under the skin's
// lamp.
//
// Places and lengths are logical pixels; the picture has `kSkinScale` times as many. Each operation
// works what the ones before it have left.
#pragma once

#include <QImage>
#include <QRectF>
#include <QSize>

#include <vector>

#include "skin_parameters.h"
#include "surface_material.h"
#include "surface_shape.h"
#include "surface_tint.h"

namespace art {

/// Backgrounds and button strips are drawn at twice the logical size.
inline constexpr int kSkinScale = 3;

class SkinSurface {
 public:
  SkinSurface(const SkinParameters& skin, QSize size);

  /// The bare table top.
  void Lay();
  /// The moulding along the outline, with the metal line in it.
  void RaiseRim(const OutlineShape& outline);
  /// A panel let in and covered.
  void LetInPanel(const QRectF& rect);
  /// A recess for a control that covers `rect` itself.
  void SinkWell(const QRectF& rect);
  /// A channel in which buttons lie.
  void SinkRail(const QRectF& rect);
  /// A square between light and dark, on which pieces of both sides are seen.
  void InlaySquare(const QRectF& rect);
  /// The frame round the board: `band` pixels wide, and a little more outside.
  void FrameBoard(const QRectF& squares, float band);
  /// Two fine lines cut in along the edge of `rect`.
  void Engrave(const QRectF& rect, float radius);
  /// Letters of metal let in, as large as fit.
  void InlayText(const QString& text, const QRectF& rect);

  QImage Picture() const;

 private:
  void CutIn(Tint& tint, const Depth& depth) const;
  template <typename Work>
  void ForEach(const QRectF& area, Work work);

  float LampAt(float x, float y) const;
  Tint Lit(const Tint& tint, float tilt) const;
  Tint Shaded(const Tint& tint, float share) const;
  void DrawLine(Tint& tint, const Depth& depth, float at, float width, float strength) const;
  Tint Mitred(const Material& material, const Depth& depth, float x, float y) const;

  const SkinParameters& skin_;
  QSize size_;
  int width_, height_;  // of the picture
  std::vector<Tint> tints_;
  Material body_, rim_, frame_, panel_, inlay_;
};

}  // namespace art

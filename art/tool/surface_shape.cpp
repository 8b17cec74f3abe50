// SPDX-License-Identifier: GPL-3.0-or-later
#include "surface_shape.h"

#include <algorithm>
#include <cmath>

namespace art {

namespace {

struct Edge {
  float x, y, dx, dy, lengthSquared;
};

std::vector<Edge> EdgesOf(std::span<const ui::layouts::Point> outline) {
  std::vector<Edge> edges;
  for (size_t i = 0; i < outline.size(); ++i) {
    const auto& from = outline[i];
    const auto& to = outline[(i + 1) % outline.size()];
    const float dx = static_cast<float>(to.x - from.x), dy = static_cast<float>(to.y - from.y);
    if (dx == 0 && dy == 0) continue;
    edges.push_back(
        {static_cast<float>(from.x), static_cast<float>(from.y), dx, dy, dx * dx + dy * dy});
  }
  return edges;
}

float InsideOf(const std::vector<Edge>& edges, float x, float y) {
  float nearest = 1e12F;
  bool inside = false;
  for (const Edge& edge : edges) {
    const float px = x - edge.x, py = y - edge.y;
    const float along = std::clamp((px * edge.dx + py * edge.dy) / edge.lengthSquared, 0.0F, 1.0F);
    const float ax = px - along * edge.dx, ay = py - along * edge.dy;
    nearest = std::min(nearest, ax * ax + ay * ay);
    const bool above = edge.y <= y, belowEnd = edge.y + edge.dy <= y;
    if (above != belowEnd && (px < edge.dx * py / edge.dy)) inside = !inside;
  }
  return inside ? std::sqrt(nearest) : -std::sqrt(nearest);
}

}  // namespace

RoundedRect::RoundedRect(const QRectF& rect, float radius)
    : rect_(rect),
      centreX_(static_cast<float>(rect.center().x())),
      centreY_(static_cast<float>(rect.center().y())),
      halfWidth_(static_cast<float>(rect.width()) / 2),
      halfHeight_(static_cast<float>(rect.height()) / 2),
      radius_(std::min({radius, halfWidth_, halfHeight_})) {}

Depth RoundedRect::At(float x, float y) const {
  const float signX = x < centreX_ ? 1.0F : -1.0F, signY = y < centreY_ ? 1.0F : -1.0F;
  const float qx = std::abs(x - centreX_) - halfWidth_ + radius_;
  const float qy = std::abs(y - centreY_) - halfHeight_ + radius_;
  if (qx > 0 && qy > 0) {
    const float away = std::max(1e-6F, std::hypot(qx, qy));
    return {radius_ - away, signX * qx / away, signY * qy / away};
  }
  if (qx > qy) return {radius_ - qx, signX, 0};
  return {radius_ - qy, 0, signY};
}

OutlineShape::OutlineShape(std::span<const ui::layouts::Point> outline, int width, int height,
                           float scale)
    : width_(width), height_(height), scale_(scale) {
  const std::vector<Edge> edges = EdgesOf(outline);
  inside_.reserve(static_cast<size_t>(width) * static_cast<size_t>(height));
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      inside_.push_back(InsideOf(edges, (static_cast<float>(x) + 0.5F) / scale,
                                 (static_cast<float>(y) + 0.5F) / scale));
    }
  }
}

float OutlineShape::Inside(int px, int py) const {
  const int x = std::clamp(px, 0, width_ - 1), y = std::clamp(py, 0, height_ - 1);
  return inside_[static_cast<size_t>(y) * static_cast<size_t>(width_) + static_cast<size_t>(x)];
}

Depth OutlineShape::At(float x, float y) const {
  const int px = static_cast<int>(std::floor(x * scale_));
  const int py = static_cast<int>(std::floor(y * scale_));
  const float dx = Inside(px + 1, py) - Inside(px - 1, py);
  const float dy = Inside(px, py + 1) - Inside(px, py - 1);
  const float length = std::max(1e-6F, std::hypot(dx, dy));
  return {Inside(px, py), dx / length, dy / length};
}

}  // namespace art

// SPDX-License-Identifier: GPL-3.0-or-later
#include "plane.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace art {

namespace {

// Every value becomes the mean of those up to `reach` beside it, by a running sum.
void BlurRows(const Plane& in, Plane& out, int reach) {
  for (int y = 0; y < in.Side(); ++y) {
    double sum = 0;
    for (int x = -reach; x <= reach; ++x) sum += in.AtNearest(x, y);
    for (int x = 0; x < in.Side(); ++x) {
      out.At(x, y) = static_cast<float>(sum / (2 * reach + 1));
      sum += in.AtNearest(x + reach + 1, y) - in.AtNearest(x - reach, y);
    }
  }
}

// The same downwards. All columns go down together, since memory is fast along rows only.
void BlurColumns(const Plane& in, Plane& out, int reach) {
  const int side = in.Side();
  auto row = [&](int y) { return &in.At(0, std::clamp(y, 0, side - 1)); };
  std::vector<double> sums(static_cast<size_t>(side));
  for (int y = -reach; y <= reach; ++y) {
    std::transform(sums.begin(), sums.end(), row(y), sums.begin(), std::plus<>());
  }
  for (int y = 0; y < side; ++y) {
    const float* next = row(y + reach + 1);
    const float* past = row(y - reach);
    for (int x = 0; x < side; ++x) {
      double& sum = sums[static_cast<size_t>(x)];
      out.At(x, y) = static_cast<float>(sum / (2 * reach + 1));
      sum += next[x] - past[x];
    }
  }
}

}  // namespace

Plane::Plane(int side, float value)
    : side_(side), values_(static_cast<size_t>(side) * static_cast<size_t>(side), value) {}

bool Plane::IsEmpty() const {
  return std::all_of(values_.begin(), values_.end(), [](float value) { return value == 0; });
}

float Plane::Sample(float x, float y) const {
  const float left = std::floor(x), top = std::floor(y);
  const float fx = x - left, fy = y - top;
  const int ix = static_cast<int>(left), iy = static_cast<int>(top);
  const float upper = std::lerp(AtNearest(ix, iy), AtNearest(ix + 1, iy), fx);
  const float lower = std::lerp(AtNearest(ix, iy + 1), AtNearest(ix + 1, iy + 1), fx);
  return std::lerp(upper, lower, fy);
}

Plane ChannelOf(const QImage& picture, Channel channel) {
  const QImage source = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
  Plane plane(source.width());
  for (int y = 0; y < plane.Side(); ++y) {
    const QRgb* line = reinterpret_cast<const QRgb*>(source.constScanLine(y));
    for (int x = 0; x < plane.Side(); ++x) {
      const int value = channel == Channel::Red     ? qRed(line[x])
                        : channel == Channel::Green ? qGreen(line[x])
                        : channel == Channel::Blue  ? qBlue(line[x])
                                                    : qAlpha(line[x]);
      plane.At(x, y) = static_cast<float>(value) / 255;
    }
  }
  return plane;
}

Plane Blurred(const Plane& source, float radius) {
  // A box of width w has variance (w * w - 1) / 12, and three of them add up.
  const float width = std::sqrt(4 * radius * radius + 1);
  const int reach = std::max(1, static_cast<int>(std::lround((width - 1) / 2)));
  Plane plane = source, half = source;
  for (int pass = 0; pass < 3; ++pass) {
    BlurRows(plane, half, reach);
    BlurColumns(half, plane, reach);
  }
  return plane;
}

Plane Shifted(const Plane& source, float dx, float dy) {
  Plane moved(source.Side());
  for (int y = 0; y < moved.Side(); ++y) {
    for (int x = 0; x < moved.Side(); ++x) {
      moved.At(x, y) = source.Sample(static_cast<float>(x) - dx, static_cast<float>(y) - dy);
    }
  }
  return moved;
}

}  // namespace art

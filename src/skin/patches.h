// SPDX-License-Identifier: GPL-3.0-or-later
// A picture in another size, some parts of which keep theirs.
#pragma once

#include <QImage>

#include <vector>

namespace ui {

/// Where a picture is cut along one side, from 0 to its length, and where the same cuts lie in the
/// other size.
struct Cuts {
  std::vector<int> from;
  std::vector<int> to;
};

/// Every part is stretched to its place; one that has none is left out.
QImage Patched(const QImage& picture, const Cuts& across, const Cuts& down);

}  // namespace ui

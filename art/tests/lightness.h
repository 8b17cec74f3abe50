// SPDX-License-Identifier: GPL-3.0-or-later
// How the eye measures the rendered pictures: lightness, silhouettes and where they lie.
#pragma once

#include <QImage>
#include <QString>

namespace art_test {

/// A rendered file by its path below the output folder; fails the test when it doesn't load.
QImage Rendered(const QString& name);

/// CIE L* of a colour, 0 to 100.
double Lightness(QRgb colour);

/// Mean L* of the pixels that `mask` holds (all of a picture without one).
double MeanLightness(const QImage& picture, const QImage& mask = {});

/// The L* that half of the pixels in `mask` exceed: what the eye takes for a drawn thing's colour.
double MedianLightness(const QImage& picture, const QImage& mask);

/// Grayscale, 255 where the picture is opaque: a piece without its translucent shadow.
QImage Opaque(const QImage& picture);

/// `mask` without what lies within `reach` pixels of its edge.
QImage Eroded(const QImage& mask, int reach);

/// What `mask` has and `less` hasn't.
QImage Without(const QImage& mask, const QImage& less);

/// The share of the area of either mask that only one of them has, 0 to 1.
double Difference(const QImage& a, const QImage& b);

QRect Bounds(const QImage& mask);

}  // namespace art_test

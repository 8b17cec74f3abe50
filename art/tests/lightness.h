// SPDX-License-Identifier: GPL-3.0-or-later
// How the eye measures the rendered pictures: lightness, silhouettes and where they lie.
#pragma once

#include <QImage>
#include <QString>

#include <functional>

namespace art_test {

/// A rendered file by its path below the output folder; fails the test when it doesn't load.
QImage Rendered(const QString& name);

/// The picture of `side` pixels in an icon file; fails the test where there is none.
QImage RenderedAt(const QString& name, int side);

/// CIE L* of a colour, 0 to 100.
double Lightness(QRgb colour);

/// The lightness that `share` of the masked pixels don't exceed: 0.5 is the median.
double LightnessAt(const QImage& picture, const QImage& mask, double share);

/// Grayscale, 255 where `holds` says so of a pixel.
QImage MaskOf(QSize size, const std::function<bool(int, int)>& holds);

/// Grayscale, 255 where the picture is opaque: a piece without its translucent shadow.
QImage Opaque(const QImage& picture);

/// The share of the area of either mask that only one of them has, 0 to 1.
double Difference(const QImage& a, const QImage& b);

/// The share of the picture that the mask covers, 0 to 1.
double Share(const QImage& mask);

QRect Bounds(const QImage& mask);

}  // namespace art_test

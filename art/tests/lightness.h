// SPDX-License-Identifier: GPL-3.0-or-later
// How the eye measures the rendered pictures: lightness, silhouettes and where they lie.
#pragma once

#include <QImage>
#include <QString>

#include <functional>

namespace art_test {

/// A rendered file by its path below the output folder; fails the test when it doesn't load.
QImage Rendered(const QString& name);

/// CIE L* of a colour, 0 to 100.
double Lightness(QRgb colour);

double MeanLightness(const QImage& picture);

/// Grayscale, 255 where `holds` says so of a pixel.
QImage MaskOf(QSize size, const std::function<bool(int, int)>& holds);

/// Grayscale, 255 where the picture is opaque: a piece without its translucent shadow.
QImage Opaque(const QImage& picture);

/// The share of the area of either mask that only one of them has, 0 to 1.
double Difference(const QImage& a, const QImage& b);

QRect Bounds(const QImage& mask);

}  // namespace art_test

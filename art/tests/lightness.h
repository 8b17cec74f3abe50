// SPDX-License-Identifier: GPL-3.0-or-later
// How the eye measures the rendered pictures.
#pragma once

#include <QImage>
#include <QPoint>
#include <QString>

#include <functional>

namespace art_test {

/// A rendered file by its path below the output folder; fails the test when it doesn't load.
QImage Rendered(const QString& name);

/// CIE L* of a colour, 0 to 100.
double Lightness(QRgb colour);

/// The lightness that `share` of the pixels that are meant don't exceed: 0.5 is the median.
double LightnessAt(
    const QImage& picture, double share,
    const std::function<bool(QPoint)>& isMeant = [](QPoint) { return true; });

}  // namespace art_test

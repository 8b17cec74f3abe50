// SPDX-License-Identifier: GPL-3.0-or-later
// What goes to other programs by the clipboard.
#pragma once

#include <QImage>
#include <QString>
#include <QWidget>

namespace ui {

/// `told` is said in passing over the window: nothing else shows that something was copied.
void CopyText(const QWidget& window, const QString& text, const QString& told);
void CopyImage(const QWidget& window, const QImage& image, const QString& told);

}  // namespace ui

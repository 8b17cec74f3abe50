// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/exchange/clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QToolTip>

namespace ui {
namespace {

void TellInPassing(const QWidget& window, const QString& told) {
  QToolTip::showText(window.mapToGlobal(window.rect().center()), told);
}

}  // namespace

void CopyText(const QWidget& window, const QString& text, const QString& told) {
  QGuiApplication::clipboard()->setText(text);
  TellInPassing(window, told);
}

void CopyImage(const QWidget& window, const QImage& image, const QString& told) {
  QGuiApplication::clipboard()->setImage(image);
  TellInPassing(window, told);
}

}  // namespace ui

// SPDX-License-Identifier: GPL-3.0-or-later
// The program's texts are UTF-8 bytes; what a window shows and takes is the toolkit's own text.
#pragma once

#include <QString>

#include <string>

namespace ui {

/// Bytes that are no UTF-8 show as replacement characters; the text behind them stays as it is.
inline QString Shown(const std::string& text) { return QString::fromStdString(text); }

}  // namespace ui

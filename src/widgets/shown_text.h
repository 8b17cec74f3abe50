// SPDX-License-Identifier: GPL-3.0-or-later
// The program's texts are UTF-8 bytes; what a window shows and takes is the toolkit's own text.
// What is shown passes here, as much of it was written by other people.
#pragma once

#include <QString>

#include <string>

#include "platform/harmless_text.h"

namespace ui {

/// For reading only: what could act on the text around it shows as a replacement sign, and so do
/// bytes that are no UTF-8. The text behind it stays as it is.
inline QString Shown(const std::string& text) {
  return QString::fromStdString(platform::Harmless(text));
}

/// The same in one line.
inline QString ShownLine(const std::string& text) {
  return QString::fromStdString(platform::Harmless(text, platform::LineEnds::Blanks));
}

inline QString ShownLine(const QString& text) { return ShownLine(text.toStdString()); }

/// Unchanged: for paths, and for fields whose text comes back.
inline QString AsItIs(const std::string& text) { return QString::fromStdString(text); }

}  // namespace ui

// SPDX-License-Identifier: GPL-3.0-or-later
// Tips at a place of their own. The toolkit puts them below the pointer, over what is read next.
#pragma once

#include <QRect>
#include <QString>

#include <functional>

class QWidget;

namespace ui {

/// Where the tip's top left corner goes on the desktop, once its size is known.
using TipPlace = std::function<QPoint(QSize tip)>;

/// The only one from now on. It stays as long as the pointer is in `during`, of `owner`, and no key
/// is pressed; without that rectangle until something else is done, or for some seconds.
QWidget& ShowTip(QWidget& owner, const QString& text, const TipPlace& place,
                 const QRect& during = {});

/// One quiet line on what has been typed. It lies over no field of the window, and is read aloud.
void TellBeside(QWidget& field, const QString& line);

}  // namespace ui

// SPDX-License-Identifier: GPL-3.0-or-later
// What becomes of keys and pointer when a menu has gone that a button opened.
#pragma once

class QAbstractButton;
class QMenu;
class QWidget;

namespace ui {

/// The keys belong to `keys` again then, whoever had them before, and the button isn't lit once the
/// pointer has left it. `opener` may be null. Before the menu opens.
void GiveKeysBack(QMenu& menu, QWidget& keys, QAbstractButton* opener);

}  // namespace ui

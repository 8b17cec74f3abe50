// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/menu_opener.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QCursor>
#include <QMenu>

namespace ui {

namespace {

/// A button below which a menu was open was never told that the pointer has left it.
void TellWhereThePointerIs(QAbstractButton& button) {
  if (button.rect().contains(button.mapFromGlobal(QCursor::pos()))) return;
  QEvent left(QEvent::Leave);
  QCoreApplication::sendEvent(&button, &left);
}

}  // namespace

void GiveKeysBack(QMenu& menu, QWidget& keys, QAbstractButton* opener) {
  QObject::connect(&menu, &QMenu::aboutToHide, &keys, [&keys, opener] {
    keys.setFocus();
    if (opener) TellWhereThePointerIs(*opener);
  });
}

}  // namespace ui

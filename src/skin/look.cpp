// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/look.h"

#include <QHBoxLayout>

#include "skin/dialog_skin.h"
#include "skin/placed_skin.h"
#include "skin/skin.h"
#include "skin/system_button.h"
#include "widgets/dialog_button.h"

namespace ui {

QAbstractButton* NewButton(QWidget& window, const ButtonTwins& twins, const QString& caption,
                           const QString& plainCaption) {
  if (!IsSimpleUI()) {
    auto* button = new SystemButton(QLatin1StringView(twins.skinned), &window);
    // The same letters in both looks, where the captions are the same.
    button->setText(QString(plainCaption).remove(u'&') == caption ? plainCaption : caption);
    return button;
  }
  auto* button = new DialogButton(plainCaption.isEmpty() ? caption : plainCaption, 0, &window);
  button->setObjectName(QLatin1StringView(twins.plain));
  button->setAutoDefault(true);  // so that Enter presses it too
  return button;
}

QHBoxLayout* NewButtonRow(std::initializer_list<QAbstractButton*> buttons) {
  auto* row = new QHBoxLayout;
  row->setSpacing(8);
  row->addStretch();
  for (QAbstractButton* button : buttons) {
    button->setMinimumSize(96, 28);
    row->addWidget(button);
  }
  return row;
}

bool TakeLook(QWidget& window, const layouts::Layout& layout,
              const std::function<void()>& setSimpleUI) {
  if (IsSimpleUI()) {
    setSimpleUI();
    return true;
  }
  new PlacedSkin(window, layout);  // the window's own
  return ApplySkin(window);
}

bool TakeDialogLook(QWidget& dialog) {
  if (IsSimpleUI()) return true;
  new DialogSkin(dialog);  // the dialog's own
  return ApplySkin(dialog);
}

}  // namespace ui

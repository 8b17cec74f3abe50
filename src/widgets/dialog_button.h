// SPDX-License-Identifier: GPL-3.0-or-later
// The buttons of the dialogs that lay themselves out, in either look.
#pragma once

#include <QPushButton>

namespace ui {

/// At least so wide, and 28 pixels high; with a large font as high as that wants it, also where the
/// dialog is short of room.
class DialogButton : public QPushButton {
 public:
  DialogButton(const QString& caption, int narrowest)
      : QPushButton(caption), narrowest_(narrowest) {}

  QSize sizeHint() const override { return AtLeast(QPushButton::sizeHint()); }
  QSize minimumSizeHint() const override { return AtLeast(QPushButton::minimumSizeHint()); }

 private:
  QSize AtLeast(QSize size) const { return size.expandedTo({narrowest_, 28}); }

  const int narrowest_;
};

/// The dialog itself says which one is the default; Tab makes none of them so.
inline QPushButton* NewDialogButton(const QString& name, const QString& caption,
                                    int narrowest = 96) {
  auto* button = new DialogButton(caption, narrowest);
  button->setObjectName(name);
  button->setAutoDefault(false);
  return button;
}

}  // namespace ui

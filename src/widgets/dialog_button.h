// SPDX-License-Identifier: GPL-3.0-or-later
// The buttons of what lays itself out, in either look.
#pragma once

#include <QPushButton>

#include <algorithm>

namespace ui {

/// At least so wide, with air beside its caption, and 28 pixels high; with a large font as high as
/// that wants it, also where the dialog is short of room.
class DialogButton : public QPushButton {
 public:
  explicit DialogButton(const QString& caption, int narrowest = 0, QWidget* parent = nullptr)
      : QPushButton(caption, parent), narrowest_(narrowest) {}

  QSize sizeHint() const override { return AtLeast(QPushButton::sizeHint()); }
  QSize minimumSizeHint() const override { return AtLeast(QPushButton::minimumSizeHint()); }

 private:
  QSize AtLeast(QSize size) const {
    constexpr int height = 28, besideCaption = 24;
    const int caption = fontMetrics().size(Qt::TextShowMnemonic, text()).width();
    return size.expandedTo({std::max(narrowest_, caption + besideCaption), height});
  }

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

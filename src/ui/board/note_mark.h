// SPDX-License-Identifier: GPL-3.0-or-later
// The first words of the user's note on what the board shows; a click opens the notes.
#pragma once

#include "ui/board/link_button.h"

namespace ui {

class NoteMark : public LinkButton {
  Q_OBJECT

 public:
  explicit NoteMark(QWidget* parent);

  /// A note without words hides the mark.
  void Show(const QString& note);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Fit();

  QString words_;
};

}  // namespace ui

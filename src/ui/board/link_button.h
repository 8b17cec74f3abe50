// SPDX-License-Identifier: GPL-3.0-or-later
// A button that is no more than its underlined caption, in the colour of the text around it.
#pragma once

#include <QAbstractButton>

namespace ui {

class LinkButton : public QAbstractButton {
  Q_OBJECT

 public:
  LinkButton(const QString& name, const QString& caption, QWidget* parent,
             Qt::Alignment side = Qt::AlignRight);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  const Qt::Alignment side_;
};

}  // namespace ui

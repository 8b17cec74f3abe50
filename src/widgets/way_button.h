// SPDX-License-Identifier: GPL-3.0-or-later
// A large button that tells where it leads to: a picture, a title and a sentence.
#pragma once

#include <QAbstractButton>
#include <QIcon>

namespace ui {

class WayButton : public QAbstractButton {
  Q_OBJECT

 public:
  /// A "&" of the title marks its key.
  WayButton(const QIcon& picture, const QString& title, const QString& explanation,
            QWidget* parent = nullptr);

  QSize sizeHint() const override;
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QFont TitleFont() const;
  int TextWidth(int width) const;

  QString explanation_;
};

}  // namespace ui

// SPDX-License-Identifier: GPL-3.0-or-later
// A large button with a picture, a title and a line that explains it.
#pragma once

#include <QCommandLinkButton>

namespace ui {

/// Writes in the desktop's font, where the toolkit's own keeps to nine points.
class WayButton : public QCommandLinkButton {
  Q_OBJECT

 public:
  WayButton(const QString& title, const QString& description, const QIcon& picture);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }
  int heightForWidth(int width) const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QFont TitleFont() const;
  QRect DescriptionRect(int width) const;
};

}  // namespace ui

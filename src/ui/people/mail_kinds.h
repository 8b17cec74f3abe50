// SPDX-License-Identifier: GPL-3.0-or-later
// The choice which way the user's moves travel, with a word on each.
#pragma once

#include <QWidget>

#include <string>

class QButtonGroup;
class QLabel;

namespace ui {

class MailKinds : public QWidget {
  Q_OBJECT

 public:
  /// Shows `kind` as chosen, or the first one where it is none of them.
  explicit MailKinds(const std::string& kind, QWidget* parent = nullptr);

  /// As it is stored.
  std::string Kind() const;

 Q_SIGNALS:
  void Changed();

 private:
  void Explain();

  QButtonGroup* buttons_;
  QLabel* explanation_;
};

}  // namespace ui

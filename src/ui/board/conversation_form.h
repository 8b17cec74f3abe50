// SPDX-License-Identifier: GPL-3.0-or-later
// What the players have said to each other in the game, the newest at the end.
#pragma once

#include <QDialog>

#include <vector>

#include "board/conversation.h"

namespace ui {

class RowTable;

class ConversationForm : public QDialog {
  Q_OBJECT

 public:
  ConversationForm(const std::vector<board::Remark>& remarks, QWidget* parent);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void Fill(const std::vector<board::Remark>& remarks);

  RowTable* list_;
};

}  // namespace ui

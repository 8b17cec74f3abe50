// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/conversation_form.h"

#include <QHeaderView>
#include <QVBoxLayout>

#include "platform/help.h"
#include "platform/setting_variables.h"
#include "skin/look.h"
#include "ui/board/roomy_rows.h"
#include "ui/help/help_key.h"
#include "widgets/reading_dialog.h"
#include "widgets/row_table.h"
#include "widgets/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

enum Column { Number, Speaker, Words };

constexpr QSize usualSize(74, 25);  // characters and lines
constexpr int rowPadding = 8;

RowTable* NewList(QWidget* parent) {
  auto* list = new RowTable({u"No."_s, u"Who"_s, u"Words"_s}, rowPadding, parent);
  list->setObjectName(u"Conversation"_s);
  list->setAccessibleName(u"Earlier comments"_s);
  list->setItemDelegate(new RoomyRows(rowPadding, list));
  list->setWordWrap(true);
  list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  for (const int column : {Number, Speaker}) {
    list->horizontalHeader()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
  }
  list->horizontalHeader()->setSectionResizeMode(Words, QHeaderView::Stretch);
  list->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  return list;
}

/// As the list of moves counts.
QString NumberOf(const board::Remark& remark) {
  if (!platform::Settings().Pairs) return QString::number(remark.row);
  return remark.pair == 0 ? QString() : u"%1."_s.arg(remark.pair);
}

}  // namespace

ConversationForm::ConversationForm(const std::vector<board::Remark>& remarks, QWidget* parent)
    : QDialog(parent), list_(NewList(this)) {
  setObjectName(u"ConversationForm"_s);
  setWindowTitle(u"Earlier comments"_s);
  GiveHelpKey(*this, platform::HelpOfBoard);
  Fill(remarks);
  auto* close = NewCloseButton(*this);
  close->setDefault(true);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setSpacing(16);
  layout->addWidget(list_, 1);
  layout->addWidget(close, 0, Qt::AlignRight);
  ResizeToText(*this, usualSize);
  TakeDialogLook(*this);
}

void ConversationForm::Fill(const std::vector<board::Remark>& remarks) {
  list_->setRowCount(static_cast<int>(remarks.size()));
  int row = 0;
  for (const board::Remark& remark : remarks) {
    const QString texts[] = {NumberOf(remark), ShownLine(remark.speaker), ShownLine(remark.words)};
    for (const int column : {Number, Speaker, Words}) {
      auto* cell = new QTableWidgetItem(texts[column]);
      cell->setTextAlignment(Qt::AlignTop | (column == Number ? Qt::AlignRight : Qt::AlignLeft));
      list_->setItem(row, column, cell);
    }
    ++row;
  }
}

void ConversationForm::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  list_->setCurrentCell(list_->rowCount() - 1, Words);
  list_->scrollToBottom();
  list_->setFocus();
}

}  // namespace ui

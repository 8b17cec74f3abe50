// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/games/choose_opponent.h"

#include <QComboBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

#include "skin/layouts/choose_opponent_layout.h"
#include "skin/look.h"
#include "widgets/cut_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int widestName = 400;

QLabel* NewLabel(const QString& name, const QString& text, QWidget* window) {
  auto* label = new QLabel(text, window);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  return label;
}

}  // namespace

ChooseOpponent::ChooseOpponent(const QStringList& opponents, QWidget* parent)
    : QDialog(parent), OppList_(new QComboBox(this)) {
  setObjectName(u"ChooseOpponent"_s);
  setWindowTitle(u"Too many opponents!"_s);
  NewLabel(
      u"Instructions_L"_s,
      u"You have chosen too many opponents.  You can only play chess with one other person! "_s,
      this)
      ->setWordWrap(true);
  NewLabel(u"Label1"_s, u"Opponent"_s, this)->setBuddy(OppList_);
  OppList_->setObjectName(u"OppList"_s);
  OppList_->setAccessibleName(u"Opponent"_s);
  for (const QString& opponent : opponents) {
    OppList_->addItem(OppList_->fontMetrics().elidedText(opponent, Qt::ElideRight, widestName));
    OppList_->setItemData(OppList_->count() - 1, WholeAsTip(opponent), Qt::ToolTipRole);
  }
  OppList_->setCurrentIndex(0);
  if (platform::Settings().ShowToolTips) {
    OppList_->setToolTip(u"Select an opponent from this list"_s);
  }
  ok_ = NewButton(*this, {"OkButton", "OKButtonS"}, u"OK"_s);
  connect(ok_, &QAbstractButton::clicked, this, &QDialog::accept);
  TakeLook(*this, layouts::chooseOpponent, [this] { SetSimpleUI(); });
  OppList_->setFocus();
}

void ChooseOpponent::SetSimpleUI() {
  ok_->setMinimumSize(96, 28);
  static_cast<QPushButton*>(ok_)->setDefault(true);
  OppList_->setMinimumSize(220, 28);
  auto* layout = new QGridLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setHorizontalSpacing(16);
  layout->setVerticalSpacing(8);
  layout->addWidget(findChild<QLabel*>(u"Instructions_L"_s), 0, 0, 1, 2);
  layout->setRowMinimumHeight(1, 8);
  layout->addWidget(findChild<QLabel*>(u"Label1"_s), 2, 0);
  layout->addWidget(OppList_, 3, 0);
  layout->addWidget(ok_, 3, 1);
  layout->setColumnStretch(0, 1);
}

int ChooseOpponent::Choose() {
  exec();
  return OppList_->currentIndex();
}

void ChooseOpponent::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    ok_->click();
  } else {
    QDialog::keyPressEvent(event);
  }
}

}  // namespace ui

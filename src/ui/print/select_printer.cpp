// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/print/select_printer.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QStyleOptionFocusRect>

#include "platform/seams.h"
#include "platform/setting_variables.h"
#include "skin/layouts/select_printer_layout.h"
#include "skin/look.h"
#include "skin/system_button.h"
#include "ui/help/help_key.h"
#include "ui/print/desktop_printers.h"
#include "widgets/cut_text.h"
#include "widgets/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int plainWidth = 340;
constexpr int mostColumns = 10;

/// A scroll bar that is so short that nothing but its arrows is left. Up means more.
class NumberBar : public QScrollBar {
 public:
  explicit NumberBar(QWidget* parent) : QScrollBar(Qt::Vertical, parent) {
    setInvertedAppearance(true);
    setInvertedControls(false);
    setFocusPolicy(Qt::StrongFocus);
    setFixedSize(18, 28);
    setPalette(QPalette(Qt::lightGray));  // whatever colours the window wears
  }

 protected:
  void paintEvent(QPaintEvent* event) override {
    QScrollBar::paintEvent(event);
    if (!hasFocus()) return;
    QPainter painter(this);
    QStyleOptionFocusRect ring;
    ring.initFrom(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &ring, &painter, this);
  }
};

}  // namespace

SelectPrinter::SelectPrinter(DesktopPrinters& printers, const platform::PrintQuestion& question,
                             QWidget* parent)
    : QDialog(parent),
      printers_(printers),
      question_(question),
      Label3_(NewLabel(u"Label3"_s, u"Please select a printer."_s)),
      CurrentPrinter_(NewLabel(u"CurrentPrinter"_s, {})),
      columns_(NewNumber(u"Col"_s, u"Columns"_s, question.columns, mostColumns)),
      rows_(NewNumber(u"Row"_s, u"Rows"_s, question.rows, question.mostRows)),
      RowColInstructions_(
          NewLabel(u"RowColInstructions"_s, QString::fromStdString(question.instructions))) {
  setObjectName(u"SelectPrinter"_s);
  setWindowTitle(u"Print game..."_s);
  RowColInstructions_->setWordWrap(true);
  AddButtons();
  SetToolTips();
  hasSkin_ = TakeLook(*this, layouts::selectPrinter, [this] { SetSimpleUI(); });
  if (!hasSkin_) return;
  if (question.numbersAreFixed) FixNumbers();
  ShowCurrentPrinter();
  const bool asksBoards = !question.numbersAreFixed;
  GiveHelpKey(*this, asksBoards ? platform::HelpOfPrintedBoards : platform::HelpOfPrintedMoves);
  print_->setFocus();
}

QLabel* SelectPrinter::NewLabel(const QString& name, const QString& text) {
  auto* label = new QLabel(text, this);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  return label;
}

SelectPrinter::Number SelectPrinter::NewNumber(const QString& prefix, const QString& caption,
                                               int value, int most) {
  const Number number{NewLabel(prefix + u"s_L"_s, caption),
                      NewLabel(u"fTV"_s + prefix + u"s"_s, QString::number(value)),
                      new NumberBar(this)};
  number.spin->setObjectName(prefix + u"Spin"_s);
  number.spin->setAccessibleName(caption);
  number.spin->setRange(1, most);
  number.spin->setValue(value);
  number.label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  connect(number.spin, &QScrollBar::valueChanged, number.label, qOverload<int>(&QLabel::setNum));
  return number;
}

void SelectPrinter::AddButtons() {
  select_ = NewButton(*this, {"SelectPrinterButton", "SelectPrinterButtonS"}, u"Settings..."_s,
                      u"&Select printer..."_s);
  if (!IsSimpleUI()) {
    auto* help = new SystemButton(u"HelpButton"_s, this);
    help->setText(u"?"_s);
    help->setAccessibleName(u"Help"_s);
    connect(help, &QAbstractButton::clicked, this, [this] {
      platform::TheSeams().help->ShowHelp(
          question_.numbersAreFixed ? platform::HelpOfPrintedMoves : platform::HelpOfPrintedBoards);
    });
  }
  preview_ = NewButton(*this, {"PreviewButton", "PreviewButtonS"}, u"Preview"_s, u"Pre&view"_s);
  cancel_ = NewButton(*this, {"CancelButton", "CancelButtonS"}, u"Cancel"_s, u"&Cancel"_s);
  print_ = NewButton(*this, {"PrintButton", "PrintButtonS"}, u"Print"_s, u"&Print"_s);
  connect(select_, &QAbstractButton::clicked, this, &SelectPrinter::ChoosePrinter);
  connect(preview_, &QAbstractButton::clicked, this, &SelectPrinter::Preview);
  connect(cancel_, &QAbstractButton::clicked, this, &QDialog::reject);
  connect(print_, &QAbstractButton::clicked, this, &SelectPrinter::Print);
}

void SelectPrinter::SetSimpleUI() {
  auto* printer = new QGridLayout;
  printer->setHorizontalSpacing(16);
  printer->addWidget(Label3_, 0, 0);
  printer->addWidget(CurrentPrinter_, 1, 0);
  printer->addWidget(select_, 0, 1, 2, 1);
  printer->setColumnStretch(0, 1);
  select_->setMinimumHeight(28);
  auto* numbers = new QHBoxLayout;
  numbers->setSpacing(8);
  for (const Number& number : {columns_, rows_}) {
    numbers->addWidget(number.caption);
    numbers->addWidget(number.label);
    numbers->addWidget(number.spin);
    numbers->addSpacing(16);
  }
  numbers->addStretch();
  static_cast<QPushButton*>(print_)->setDefault(true);
  RowColInstructions_->setMinimumWidth(plainWidth);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setSpacing(16);
  layout->addLayout(printer);
  layout->addLayout(numbers);
  layout->addWidget(RowColInstructions_);
  layout->addStretch();
  layout->addLayout(NewButtonRow({preview_, cancel_, print_}));
}

void SelectPrinter::SetToolTips() {
  if (!platform::Settings().ShowToolTips) return;
  columns_.label->setToolTip(u"The number of boards to print across the page"_s);
  rows_.label->setToolTip(u"The number of boards to print down the page"_s);
}

void SelectPrinter::FixNumbers() {
  for (const Number& number : {columns_, rows_}) {
    number.spin->hide();
    number.label->resize(number.label->width() + number.spin->width(), number.label->height());
    number.label->setVisible(question_.columns > 0);
    number.caption->setVisible(question_.columns > 0);
  }
}

/// A name that is cut shows as a whole where it is pointed at.
void SelectPrinter::ShowCurrentPrinter() {
  printerName_ = printers_.CurrentName();
  CurrentPrinter_->setToolTip({});  // the last one's
  ShowLine(*CurrentPrinter_, ShownLine(printerName_),
           IsSimpleUI() ? plainWidth / 2 : CurrentPrinter_->width());
  if (CurrentPrinter_->toolTip().isEmpty() && platform::Settings().ShowToolTips) {
    CurrentPrinter_->setToolTip(u"The currently selected printer"_s);
  }
}

platform::PrintChoice SelectPrinter::Choice() const {
  return {columns_.label->text().toInt(), rows_.label->text().toInt()};
}

void SelectPrinter::Print() {
  if (!printers_.Take(printerName_, *this)) return;
  FormCanceled = false;
  accept();
}

void SelectPrinter::Preview() {
  const auto [columns, rows] = Choice();
  const auto document = question_.document(columns, rows);
  if (document && printers_.Preview(*document, *this)) reject();
}

void SelectPrinter::ChoosePrinter() {
  if (printers_.Choose(*this)) ShowCurrentPrinter();
}

void SelectPrinter::keyPressEvent(QKeyEvent* event) {
  const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (isReturn && !IsSimpleUI()) {
    print_->click();
  } else {
    QDialog::keyPressEvent(event);
  }
}

}  // namespace ui

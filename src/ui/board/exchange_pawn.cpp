// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/exchange_pawn.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QToolButton>

#include "platform/process_state.h"
#include "skin/layouts/exchange_pawn_layout.h"
#include "skin/look.h"
#include "skin/picture_button.h"
#include "ui/help/help_key.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int pictureSize = 72;
constexpr int buttonCount = 4;

struct Choice {
  const char* caption;
  int key;
};

/// In the order of their codes, from 1.
constexpr Choice choices[buttonCount] = {
    {"&Rook", Qt::Key_R}, {"K&night", Qt::Key_N}, {"&Bishop", Qt::Key_B}, {"&Queen", Qt::Key_Q}};

/// With a ring of its own: desktops hardly show the focus of a tool button.
class PlainPieceButton : public QToolButton {
 public:
  using QToolButton::QToolButton;

 protected:
  void paintEvent(QPaintEvent* event) override {
    QToolButton::paintEvent(event);
    if (!hasFocus()) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Highlight), ringWidth));
    constexpr qreal inset = ringWidth / 2;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), ringRadius,
                            ringRadius);
  }

 private:
  static constexpr qreal ringWidth = 2, ringRadius = 4;
};

QAbstractButton* NewPieceButton(int number, const QImage& piece, QWidget* window) {
  const QString name = u"PieceButton%1"_s.arg(number);
  const QString caption = QLatin1StringView(choices[number].caption);
  if (!IsSimpleUI()) {
    auto* button = new PictureButton(name, piece, window);
    button->setAccessibleName(QString(caption).remove(u'&'));
    return button;
  }
  auto* button = new PlainPieceButton(window);
  button->setObjectName(name);
  button->setText(caption);
  button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
  button->setIconSize({pictureSize, pictureSize});
  button->setIcon(QPixmap::fromImage(piece));
  button->setFocusPolicy(Qt::StrongFocus);
  button->setMinimumSize(pictureSize + 24, pictureSize + 40);
  return button;
}

}  // namespace

ExchangePawn::ExchangePawn(const boards::ChessGraphics& graphics, rules::Side side, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint), side_(side) {
  setObjectName(u"ExchangePawn"_s);
  GiveHelpKey(*this, platform::HelpOfBoard);
  setWindowTitle(u"Pawn exchange..."_s);
  for (int i = 0; i < buttonCount; ++i) {
    QAbstractButton* button = NewPieceButton(i, graphics.Icon(rules::OfSide(i + 1, side)), this);
    connect(button, &QAbstractButton::clicked, this, [this, i] { Take(i); });
  }
  if (!IsSimpleUI()) {
    // In place of the title bar.
    auto* title = new QLabel(windowTitle(), this);
    title->setObjectName(u"Label1"_s);
    title->setAlignment(Qt::AlignCenter);
  }
  TakeLook(*this, layouts::exchangePawn, [this] { SetSimpleUI(); });
  // The piece that is nearly always wanted.
  findChild<QAbstractButton*>(u"PieceButton%1"_s.arg(buttonCount - 1))->setFocus();
}

void ExchangePawn::SetSimpleUI() {
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setSpacing(8);
  for (auto* button : findChildren<QToolButton*>()) layout->addWidget(button);
}

rules::PieceCode ExchangePawn::Choose() {
  exec();
  if (ChosenPiece_ == rules::NoPiece) return rules::OfSide(rules::WhiteQueen, side_);
  return ChosenPiece_;
}

void ExchangePawn::Take(int button) {
  ChosenPiece_ = rules::OfSide(button + 1, side_);
  accept();
}

void ExchangePawn::closeEvent(QCloseEvent* event) {
  // Only the program's own end leaves without a choice.
  if (!platform::Process().Stopping) event->ignore();
}

void ExchangePawn::keyPressEvent(QKeyEvent* event) {
  auto* focused = qobject_cast<QAbstractButton*>(focusWidget());
  switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Up:
      focusPreviousChild();  // a focused button sees to the arrow keys itself
      return;
    case Qt::Key_Right:
    case Qt::Key_Down:
      focusNextChild();
      return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      // The one that dropped the pawn may still be down, and the user hasn't looked yet.
      if (focused && !event->isAutoRepeat()) focused->click();
      return;
    default:
      break;
  }
  for (int i = 0; i < buttonCount; ++i) {
    if (event->key() == choices[i].key) return Take(i);
  }
  QDialog::keyPressEvent(event);
}

}  // namespace ui

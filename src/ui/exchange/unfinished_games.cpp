// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/exchange/unfinished_games.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStringList>
#include <QVBoxLayout>

#include "platform/help.h"
#include "skin/look.h"
#include "ui/help/help_key.h"
#include "widgets/dialog_button.h"
#include "widgets/typed_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t mostNumbers = 8;
constexpr int usualWidth = 460;

/// "Game 3 isn't finished.", "Games 1, 2 and 5 aren't finished."
QString Sentence(const std::vector<int>& numbers) {
  if (numbers.size() == 1) return u"Game %1 of the file isn't finished."_s.arg(numbers[0]);
  if (numbers.size() > mostNumbers) {
    return u"%1 games of the file aren't finished."_s.arg(numbers.size());
  }
  QStringList texts;
  for (const int number : numbers) texts << QString::number(number);
  const QString last = texts.takeLast();
  return u"Games %1 and %2 of the file aren't finished."_s.arg(texts.join(u", "_s), last);
}

class UnfinishedDialog : public QDialog {
 public:
  UnfinishedDialog(QWidget& window, const QString& sentence, bool askSide, bool needsAddress)
      : QDialog(&window),
        needsAddress_(needsAddress),
        address_(new QLineEdit),
        ok_(NewDialogButton(u"OkButton"_s, u"OK"_s)) {
    setObjectName(u"UnfinishedGames"_s);
    setWindowTitle(u"Import PGN"_s);
    GiveHelpKey(*this, platform::HelpOfGameList);
    address_->setObjectName(u"Address"_s);
    address_->setPlaceholderText(u"name@example.org"_s);
    KeepFitForFields(address_);
    LayOut(sentence, askSide);
    TakeDialogLook(*this);
    if (askSide) {
      white_->setFocus();
    } else {
      address_->setFocus();
    }
  }

  UnfinishedAnswer Answer() const {
    const auto isOn = [](const QRadioButton* side) { return side && side->isChecked(); };
    const rules::Side side = isOn(white_)   ? rules::White
                             : isOn(black_) ? rules::Black
                                            : rules::NoSide;
    return {address_->text().trimmed().toStdString(), side};
  }

 private:
  void LayOut(const QString& sentence, bool askSide) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSpacing(12);
    AddLabel(*layout, sentence + u" To go on here, Tarvolenix has to know:"_s);
    if (askSide) AddSides(*layout);
    AddLabel(*layout, u"W&here do your moves go, where the file has no address?"_s)
        ->setBuddy(address_);
    layout->addWidget(address_);
    AddButtons(*layout);
    connect(address_, &QLineEdit::textChanged, this, [this] { Refresh(); });
    Refresh();
    resize(usualWidth, layout->totalHeightForWidth(usualWidth));
  }

  void AddSides(QVBoxLayout& layout) {
    AddLabel(layout, u"Which side is yours, where neither player has your name?"_s);
    white_ = new QRadioButton(u"&White"_s);
    black_ = new QRadioButton(u"&Black"_s);
    white_->setObjectName(u"White"_s);
    black_->setObjectName(u"Black"_s);
    auto* sides = new QHBoxLayout;
    for (QRadioButton* side : {white_, black_}) {
      sides->addWidget(side);
      connect(side, &QRadioButton::toggled, this, [this] { Refresh(); });
    }
    sides->addStretch();
    layout.addLayout(sides);
  }

  static QLabel* AddLabel(QVBoxLayout& layout, const QString& text) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    layout.addWidget(label);
    return label;
  }

  void AddButtons(QVBoxLayout& layout) {
    auto* leaveOut = NewDialogButton(u"CancelButton"_s, u"&Leave them out"_s);
    ok_->setDefault(true);
    connect(ok_, &QPushButton::clicked, this, &QDialog::accept);
    connect(leaveOut, &QPushButton::clicked, this, &QDialog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addStretch();
    buttons->addWidget(leaveOut);
    buttons->addWidget(ok_);
    layout.addLayout(buttons);
  }

  void Refresh() {
    const UnfinishedAnswer answer = Answer();
    const bool isAddress =
        answer.address.empty() ? !needsAddress_ : pgn::WhyNoAddress(answer.address).empty();
    const bool isSide = !white_ || answer.ownSide != rules::NoSide;
    ok_->setEnabled(isAddress && isSide);
  }

  const bool needsAddress_;
  QRadioButton* white_ = nullptr;  // both null where the file tells
  QRadioButton* black_ = nullptr;
  QLineEdit* address_;
  QPushButton* ok_;
};

}  // namespace

UnfinishedGames::UnfinishedGames(const std::vector<pgn::RefusedGame>& refused) {
  for (const pgn::RefusedGame& game : refused) {
    if (game.lacks == pgn::Lack::Nothing) continue;
    numbers_.push_back(game.number);
    lackSide_ |= game.lacks == pgn::Lack::OwnSide;
    lackAddress_ |= game.lacks == pgn::Lack::Address;
  }
}

std::optional<UnfinishedAnswer> UnfinishedGames::Ask(QWidget& window) const {
  UnfinishedDialog dialog(window, Sentence(numbers_), lackSide_, lackAddress_);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.Answer();
}

}  // namespace ui

// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/exchange/opponent_row.h"

#include <QHBoxLayout>
#include <QLabel>

#include "platform/ascii.h"
#include "widgets/cut_text.h"
#include "widgets/people_completer.h"
#include "widgets/shown_text.h"
#include "widgets/typed_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int widestNames = 200;
constexpr int narrowestAddress = 180;

QString NameOf(const pgn::Player& player) {
  return player.name.empty() ? u"?"_s : ShownLine(player.name);
}

/// "Bob", or "Carla - Zoé", White first.
QString NamesOf(const pgn::PossibleOpponents& opponents) {
  const QString first = NameOf(opponents.front());
  return opponents.size() == 1 ? first : first + u" - "_s + NameOf(opponents.back());
}

/// That of the only one of this name.
std::string AddressInBook(const std::vector<platform::Recipient>& book, const std::string& name) {
  std::string address;
  for (const platform::Recipient& person : book) {
    if (!platform::SameWithoutCase(person.name, name)) continue;
    if (!address.empty()) return {};
    address = person.address;
  }
  return address;
}

}  // namespace

OpponentRow::OpponentRow(const pgn::PossibleOpponents& opponents, const KnownPeople& people,
                         QGridLayout& grid)
    : opponents_(opponents), people_(people), address_(new QLineEdit) {
  const int row = grid.rowCount();
  const QString number = QString::number(row);
  const QString names = NamesOf(opponents);
  auto* label = new QLabel;
  label->setTextFormat(Qt::PlainText);
  ShowLine(*label, names, widestNames);
  address_->setObjectName(u"Address"_s + number);
  address_->setAccessibleName(u"Where your moves go, "_s + names);
  address_->setPlaceholderText(u"name@example.org"_s);
  address_->setMinimumWidth(narrowestAddress);
  KeepFitForFields(address_);
  new PeopleCompleter(people.ofBook, PeopleCompleter::Part::Address, address_);
  connect(address_, &QLineEdit::textChanged, this, &OpponentRow::Changed);
  grid.addWidget(label, row, 0);
  if (opponents.size() > 1) grid.addWidget(NewSides(number), row, 1);
  grid.addWidget(address_, row, 2);
  if (opponents.size() == 1) Suggest(opponents.front());
}

QWidget* OpponentRow::NewSides(const QString& number) {
  white_ = new QRadioButton(u"White"_s);
  black_ = new QRadioButton(u"Black"_s);
  white_->setObjectName(u"White"_s + number);
  black_->setObjectName(u"Black"_s + number);
  white_->setAccessibleName(u"You play White, "_s + NameOf(opponents_.front()));
  black_->setAccessibleName(u"You play Black, "_s + NameOf(opponents_.back()));
  auto* sides = new QWidget;
  auto* layout = new QHBoxLayout(sides);
  layout->setContentsMargins(0, 0, 0, 0);
  for (QRadioButton* side : {white_, black_}) layout->addWidget(side);
  connect(white_, &QRadioButton::clicked, this, [this] { TakeSide(rules::White); });
  connect(black_, &QRadioButton::clicked, this, [this] { TakeSide(rules::Black); });
  return sides;
}

void OpponentRow::TakeSide(rules::Side own) {
  const bool white = own == rules::White;
  (white ? white_ : black_)->setChecked(true);
  Suggest(white ? opponents_.back() : opponents_.front());
  Q_EMIT Changed();
  Q_EMIT OwnNameChosen((white ? opponents_.front() : opponents_.back()).name);
}

void OpponentRow::ChooseOwnName(const std::string& name) {
  if (!white_ || OwnSide() != rules::NoSide || name.empty()) return;
  const bool isWhite = opponents_.front().name == name;
  const bool isBlack = opponents_.back().name == name;
  if (isWhite != isBlack) TakeSide(isWhite ? rules::White : rules::Black);
}

/// What the user has typed stays.
void OpponentRow::Suggest(const pgn::Player& opponent) {
  if (address_->text() != suggested_) return;
  suggested_ = ShownLine(AddressOf(opponent));
  address_->setText(suggested_);
  address_->setCursorPosition(0);
}

std::string OpponentRow::AddressOf(const pgn::Player& opponent) const {
  if (!opponent.address.empty()) return opponent.address;
  const auto ofFile = people_.ofFile.find(opponent.name);
  return ofFile == people_.ofFile.end() ? AddressInBook(people_.ofBook, opponent.name)
                                        : ofFile->second;
}

rules::Side OpponentRow::OwnSide() const {
  if (white_ && white_->isChecked()) return rules::White;
  return black_ && black_->isChecked() ? rules::Black : rules::NoSide;
}

bool OpponentRow::IsAnswered() const {
  return pgn::WhyNoAddress(Answer().address).empty() && (!white_ || OwnSide() != rules::NoSide);
}

pgn::GoingOn OpponentRow::Answer() const {
  return {address_->text().trimmed().toStdString(), OwnSide()};
}

void OpponentRow::TakeFocus() { (white_ ? static_cast<QWidget*>(white_) : address_)->setFocus(); }

}  // namespace ui

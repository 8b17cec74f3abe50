// SPDX-License-Identifier: GPL-3.0-or-later
// The question about one opponent in games that aren't finished: which side is the user's, where
// the file doesn't tell, and where his moves go. Offers what the address is likely to be.
#pragma once

#include <QGridLayout>
#include <QLineEdit>
#include <QRadioButton>

#include <map>
#include <string>
#include <vector>

#include "pgn/import.h"
#include "platform/address_book.h"

namespace ui {

/// Who is known to have which address.
struct KnownPeople {
  std::map<std::string, std::string> ofFile;  ///< by name
  std::vector<platform::Recipient> ofBook;
};

class OpponentRow : public QObject {
  Q_OBJECT

 public:
  /// Fills the grid's next row, whose fields get its number behind their names.
  OpponentRow(const pgn::PossibleOpponents& opponents, const KnownPeople& people,
              QGridLayout& grid);

  /// Without an address the games are left out.
  bool IsLeftOut() const { return Answer().address.empty(); }
  bool IsAnswered() const;
  pgn::GoingOn Answer() const;
  const pgn::PossibleOpponents& Opponents() const { return opponents_; }

  /// Where the user is this player, and nothing was chosen yet.
  void ChooseOwnName(const std::string& name);

  void TakeFocus();

 Q_SIGNALS:
  void Changed();
  void OwnNameChosen(const std::string& name);

 private:
  QWidget* NewSides(const QString& number);
  void TakeSide(rules::Side own);
  void Suggest(const pgn::Player& opponent);
  std::string AddressOf(const pgn::Player& opponent) const;
  rules::Side OwnSide() const;

  const pgn::PossibleOpponents opponents_;
  const KnownPeople& people_;
  QRadioButton* white_ = nullptr;  // both null where the file tells
  QRadioButton* black_ = nullptr;
  QLineEdit* address_;
  QString suggested_;
};

}  // namespace ui

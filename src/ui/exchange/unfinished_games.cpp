// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/exchange/unfinished_games.h"

#include <QDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QStringList>
#include <QVBoxLayout>

#include <algorithm>
#include <memory>
#include <set>
#include <utility>

#include "platform/help.h"
#include "skin/look.h"
#include "ui/exchange/opponent_row.h"
#include "ui/help/help_key.h"
#include "widgets/dialog_button.h"
#include "widgets/people_completer.h"
#include "widgets/scrolling_page.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t mostNumbers = 8;
constexpr int usualWidth = 92;  // characters
constexpr int highest = 520;

/// Whoever plays has fewer opponents; a collection of others' games may have very many.
constexpr std::size_t mostRows = 100;
constexpr const char16_t* tooMany = u" Only the first 100 opponents stand here.";

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
  UnfinishedDialog(QWidget& window, const QString& sentence,
                   const std::vector<pgn::PossibleOpponents>& opponents, KnownPeople people)
      : QDialog(&window), people_(std::move(people)), ok_(NewDialogButton(u"OkButton"_s, u"OK"_s)) {
    setObjectName(u"UnfinishedGames"_s);
    setWindowTitle(u"Import PGN"_s);
    GiveHelpKey(*this, platform::HelpOfGameList);
    LayOut(sentence, NewPage(opponents));
    Refresh();
    TakeDialogLook(*this);
    // How high fields are only their style knows.
    for (QWidget* part : findChildren<QWidget*>()) part->ensurePolished();
    for (QLayout* part : findChildren<QLayout*>()) part->invalidate();
    const int width = std::min(usualWidth * fontMetrics().averageCharWidth(),
                               screen()->availableSize().width() * 9 / 10);
    resize(width, std::min(highest, layout()->totalHeightForWidth(width)));
    rows_.front()->TakeFocus();
  }

  UnfinishedGames::Answers Answers() const {
    UnfinishedGames::Answers answers;
    for (const auto& row : rows_) {
      if (!row->IsLeftOut()) answers[row->Opponents()] = row->Answer();
    }
    return answers;
  }

 private:
  void LayOut(const QString& sentence, QWidget* page) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 16, 0, 16);
    layout->setSpacing(12);
    auto* label = new QLabel(sentence);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setContentsMargins(16, 0, 16, 0);
    layout->addWidget(label);
    layout->addWidget(new ScrollingPage(page), 1);
    layout->addLayout(NewButtons());
  }

  QWidget* NewPage(const std::vector<pgn::PossibleOpponents>& opponents) {
    auto* page = new QWidget;
    auto* grid = new QGridLayout(page);
    grid->setContentsMargins(16, 0, 16, 0);
    grid->setHorizontalSpacing(12);
    grid->setColumnStretch(2, 1);
    const bool asksSide =
        std::ranges::any_of(opponents, [](const auto& o) { return o.size() > 1; });
    grid->addWidget(new QLabel(asksSide ? u"Players"_s : u"Opponent"_s), 0, 0);
    if (asksSide) grid->addWidget(new QLabel(u"You play"_s), 0, 1);
    grid->addWidget(new QLabel(u"Your moves go to"_s), 0, 2);
    for (const pgn::PossibleOpponents& each : opponents) AddRow(each, *grid);
    grid->setRowStretch(grid->rowCount(), 1);
    return page;
  }

  void AddRow(const pgn::PossibleOpponents& opponents, QGridLayout& grid) {
    auto& row = rows_.emplace_back(std::make_unique<OpponentRow>(opponents, people_, grid));
    connect(row.get(), &OpponentRow::Changed, this, [this] { Refresh(); });
    connect(row.get(), &OpponentRow::OwnNameChosen, this, [this](const std::string& name) {
      for (const auto& other : rows_) other->ChooseOwnName(name);
    });
  }

  QHBoxLayout* NewButtons() {
    auto* leaveOut = NewDialogButton(u"CancelButton"_s, u"&Leave them out"_s);
    ok_->setDefault(true);
    connect(ok_, &QPushButton::clicked, this, &QDialog::accept);
    connect(leaveOut, &QPushButton::clicked, this, &QDialog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->setContentsMargins(16, 0, 16, 0);
    buttons->setSpacing(8);
    buttons->addStretch();
    buttons->addWidget(leaveOut);
    buttons->addWidget(ok_);
    return buttons;
  }

  void Refresh() {
    const auto isDone = [](const auto& row) { return row->IsLeftOut() || row->IsAnswered(); };
    const auto isAnswered = [](const auto& row) { return row->IsAnswered(); };
    ok_->setEnabled(std::ranges::all_of(rows_, isDone) && std::ranges::any_of(rows_, isAnswered));
  }

  const KnownPeople people_;
  std::vector<std::unique_ptr<OpponentRow>> rows_;
  QPushButton* ok_;
};

}  // namespace

UnfinishedGames::UnfinishedGames(const pgn::ImportedGames& games) : addresses_(games.addresses) {
  std::set<pgn::PossibleOpponents> seen;
  for (const pgn::RefusedGame& game : games.refused) {
    if (!game.Lacks()) continue;
    numbers_.push_back(game.number);
    if (seen.insert(game.opponents).second) opponents_.push_back(game.opponents);
  }
}

UnfinishedGames::Answers UnfinishedGames::Ask(QWidget& window) const {
  const std::size_t count = std::min(opponents_.size(), mostRows);
  const QString sentence = Sentence(numbers_) +
                           u" To go on here, Tarvolenix has to know where your moves go. Games "
                           "without an address are left out."_s;
  UnfinishedDialog dialog(
      window, count < opponents_.size() ? sentence + QString::fromUtf16(tooMany) : sentence,
      {opponents_.begin(), opponents_.begin() + static_cast<std::ptrdiff_t>(count)},
      {addresses_, PeopleOfBook()});
  return dialog.exec() == QDialog::Accepted ? dialog.Answers() : Answers();
}

}  // namespace ui

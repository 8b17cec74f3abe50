// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/games/game_interface.h"

#include <QCloseEvent>
#include <QDir>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

#include "platform/polling.h"
#include "platform/process_state.h"
#include "platform/registry.h"
#include "platform/seams.h"
#include "platform/setting_variables.h"
#include "shell/game_list.h"
#include "shell/mail_watch.h"
#include "shell/other_games.h"
#include "shell/playing.h"
#include "shell/tray_status.h"
#include "skin/file_dialog.h"
#include "skin/layouts/game_interface_layout.h"
#include "skin/look.h"
#include "skin/program_pictures.h"
#include "skin/strip_button.h"
#include "skin/system_button.h"
#include "skin/task_bar.h"
#include "skin/window_region.h"
#include "skin/window_skin.h"
#include "store/repair.h"
#include "ui/exchange/game_texts.h"
#include "ui/exchange/import_games.h"
#include "ui/games/game_list_grid.h"
#include "ui/games/game_list_model.h"
#include "widgets/disabled_window.h"
#include "widgets/menu_opener.h"
#include "widgets/shown_text.h"
#include "widgets/tool_tips.h"
#include "widgets/window_places.h"

namespace ui {

using namespace Qt::StringLiterals;
using platform::Process;

namespace {

struct ToolbarEntry {  // NOLINT(clang-analyzer-optin.performance.Padding)
  int button;
  const char* plainCaption;
  const char* caption;
  layouts::InterfaceButtonRow row;
  const char* toolTip;
  const char* (*whyGrey)() = [] { return ""; };
};
constexpr ToolbarEntry toolbarEntries[] = {
    {PlayGameButton, "&Play game", "Play", layouts::PlayGameRow,
     "PLAY - Play the currently selected game", [] { return whyNoGame; }},
    {NewGameButton, "&New game", "New game", layouts::NewGameRow,
     "NEW EMAIL GAME - Start a new email game", shell::WhyNoMailGame},
    {ComputerGameButton, "&vs. Computer", "Computer", layouts::NewComputerRow,
     "NEW COMPUTER GAME - Start a new game against the computer"},
    {SetupGameButton, "&Setup new game", "Setup", layouts::NewSetupRow,
     "NEW SETUP GAME - Configure the board layout before starting a new game",
     shell::WhyNoMailGame},
};

struct MenuLabel {
  ButtonTwins names;
  const char* caption;  ///< with a key that no button of the toolbar has
  const char* toolTip;
  InterfaceMenu menu;
};
constexpr MenuLabel menuLabels[] = {
    {{"FileMenuButton", "FileMenu_L"}, "&File", "File menu", FileMenu},
    {{"SortMenuButton", "SortMenu_L"}, "S&ort", "Sort menu", SortMenu},
    {{"GameMenuButton", "GameMenu_L"}, "&Game", "Game menu", GameMenu},
    {{"HelpMenuButton", "HelpMenu_L"}, "&Help", "Help menu", HelpMenu},
};

constexpr int leastWidth = 9000 / twipsPerPixel;
constexpr int leastHeight = 4050 / twipsPerPixel;
constexpr int margin = 8;
constexpr int buttonWidth = 96;
constexpr int buttonHeight = 28;

void ShowHelp() { platform::TheSeams().help->ShowHelp(platform::HelpOfGameList); }

/// What a game by mail takes, or still lacks.
QString MailNotice(bool mayStart, bool hasAddress) {
  if (mayStart) {
    return u"To begin one, choose New game: your opponent gets your first move by mail.\n"
           u"If somebody has invited you, wait for the mail with the first move, and choose "
           u"Retrieve games from the File menu."_s;
  }
  return hasAddress ? u"Tarvolenix isn't connected to your mail. To play by mail, choose Retrieve "
                      u"games from the File menu, or look at your mail account."_s
                    : u"To play by mail, Tarvolenix has to know your mail account first."_s;
}

QString EmptyNotice(bool mayStart) {
  const auto address = platform::ReadRegistry(platform::mailSection, "MyAddress");
  return u"There are no games yet.\n\n%1\n\n"
         u"Or play against the computer, without any mail.\n\n"
         u"Your own address, for those who want to play with you: %2"_s.arg(
             MailNotice(mayStart, !platform::IsEmptyValue(address)),
             Shown(platform::ReturnValue(address, "not set yet")));
}

QString DamageNotice() {
  const std::string damage = store::DamageSentence();
  return u"The file with your games can't be read, so none can be shown.\n\n"
         u"It may be damaged or not accessible: %1\n\n"
         u"The file \"tvgdb.bak\" beside it holds the games as they were before the latest "
         u"change.%2"_s.arg(Shown(Process().DataPath + Process().DatabaseFile),
                            damage.empty() ? QString() : u"\n\n"_s + Shown(damage));
}

/// Where the menu of a button opens.
QPoint PlaceBelow(const QWidget& button) {
  const auto* skinned = qobject_cast<const SystemButton*>(&button);
  const QRect place = skinned ? skinned->Place() : button.geometry();
  return button.window()->mapToGlobal(place.bottomLeft() + QPoint(0, 1));
}

void SetTipOfNamed(const QWidget& window, const char* name, const char* tip) {
  auto* control = window.findChild<QWidget*>(QLatin1StringView(name));
  if (control) SetTip(*control, tip);
}

}  // namespace

GameInterface::GameInterface(OtherErrands errands)
    : errands_(std::move(errands)), grid_(new GameListGrid(this)), mailLine_(new QLabel(this)) {
  setObjectName(u"GameInterface"_s);
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(u"Tarvolenix - Game list"_s);
  mailLine_->setObjectName(u"MailLine"_s);
  mailLine_->setTextFormat(Qt::PlainText);
  AddToolbar();
  AddMenuButtons();
  if (!IsSimpleUI()) AddWindowButtons();
  hasSkin_ = TakeLook(*this, layouts::gameInterface, [this] { SetSimpleUI(); });
  if (!hasSkin_) return;
  RefreshInterfaceButtons();
  if (const auto* skin = WindowSkin::Of(*this)) {
    connect(skin, &WindowSkin::Worn, this, &GameInterface::RefreshInterfaceButtons);
  }
  connect(grid_, &GameListGrid::SortWanted, this, [this](int column, bool descending) {
    FillGameList(static_cast<std::int16_t>(column), descending ? "DESC" : "");
  });
  connect(grid_, &GameListGrid::PlayWanted, this, &GameInterface::PlayCurrentGame);
  connect(grid_, &GameListGrid::DeleteWanted, this, &GameInterface::DeleteGame);
  connect(grid_, &GameListGrid::AccountWanted, this, [this] { errands_.changeAccount(); });
  connect(grid_, &GameListGrid::MenuWanted, this,
          [this](QPoint place) { PopUp(GameListPopup, place); });
}

void GameInterface::AddToolbar() {
  for (const ToolbarEntry& entry : toolbarEntries) {
    QAbstractButton* button = nullptr;
    if (IsSimpleUI()) {
      button = new QPushButton(QLatin1StringView(entry.plainCaption), this);
      button->setObjectName(u"Toolbar1S_%1"_s.arg(entry.button));
      button->setMinimumSize(buttonWidth, buttonHeight);
    } else {
      button = new StripButton(u"Toolbar1_%1"_s.arg(entry.button), layouts::interfaceButtons,
                               entry.row, this);
      button->setText(QLatin1StringView(entry.caption));
      button->setAccessibleName(QString(QLatin1StringView(entry.plainCaption)).remove(u'&'));
    }
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QAbstractButton::released, grid_, qOverload<>(&QWidget::setFocus));
    connect(button, &QAbstractButton::clicked, this,
            [this, number = entry.button] { ClickToolbar(number); });
    toolbar_[static_cast<std::size_t>(entry.button)] = button;
  }
}

void GameInterface::AddMenuButtons() {
  for (const MenuLabel& label : menuLabels) {
    QAbstractButton* button = nullptr;
    if (IsSimpleUI()) {
      auto* plain = new QToolButton(this);
      plain->setAutoRaise(true);
      plain->setFocusPolicy(Qt::TabFocus);
      button = plain;
    } else {
      button = new SystemButton({}, this);
    }
    button->setObjectName(
        QLatin1StringView(IsSimpleUI() ? label.names.plain : label.names.skinned));
    button->setText(QLatin1StringView(label.caption));
    // As a menu does, on the press; the menu takes the release.
    connect(button, &QAbstractButton::pressed, this, [this, button, menu = label.menu] {
      PopUp(menu, PlaceBelow(*button), button);
      button->setDown(false);
    });
  }
}

/// What a window without a frame has of its own.
void GameInterface::AddWindowButtons() {
  auto* logo = new QLabel(this);
  logo->setObjectName(u"TVLogo"_s);
  logo->setPixmap(ProgramPicture(u"tarvolenix.png"_s)
                      .pixmap(layouts::RectOf(layouts::gameInterface, "TVLogo").width));
  const auto add = [this](const QString& name, const QString& caption, const QString& meaning,
                          auto click) {
    auto* button = new SystemButton(name, this);
    button->setText(caption);
    button->setAccessibleName(meaning);
    connect(button, &SystemButton::clicked, this, click);
  };
  add(u"HelpButton"_s, u"?"_s, u"Help"_s, ShowHelp);
  add(u"MinimiseButton"_s, u"\u2013"_s, u"Minimise the game interface"_s, [this] { BecomeIcon(); });
  add(u"HideButton"_s, u"\u00d7"_s, u"Finished with game interface"_s, [this] { close(); });
}

void GameInterface::SetSimpleUI() {
  auto* menus = new QHBoxLayout;
  menus->setSpacing(0);
  for (const MenuLabel& label : menuLabels) {
    menus->addWidget(findChild<QToolButton*>(QLatin1StringView(label.names.plain)));
  }
  menus->addStretch();
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(margin);
  for (QAbstractButton* button : toolbar_) {
    if (button) buttons->addWidget(button);
  }
  buttons->addStretch();

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(margin, margin / 2, margin, margin);
  layout->setSpacing(margin);
  layout->addLayout(menus);
  layout->addLayout(buttons);
  layout->addWidget(grid_, 1);
  layout->addWidget(mailLine_);
  const QSize room = RoomOnScreen(*this);
  setMinimumSize(QSize(leastWidth, leastHeight).boundedTo(room));
  const QSize wanted(grid_->sizeHint().width() + 2 * margin, sizeHint().height());
  resize(wanted.boundedTo(room).expandedTo(minimumSize()));
}

void GameInterface::FillGameList(std::int16_t column, std::string order,
                                 std::optional<std::int32_t> selectGame) {
  shell::GameList list = shell::ReadGameList(column, order, selectGame);
  const bool anyGame = !list.games.empty(), mayStart = shell::MayStartMailGame();
  const bool descending = shell::IsDescending(order);
  const ListNotice notice{list.isDamaged ? DamageNotice() : EmptyNotice(mayStart),
                          !list.isDamaged && !mayStart};
  grid_->Fill(std::move(list), column, descending, notice);
  SetToolbarButton(PlayGameButton, anyGame);
  SetToolbarButton(NewGameButton, mayStart);
  SetToolbarButton(SetupGameButton, mayStart);
  SetToolbarTips();
  ShowMails();
}

void GameInterface::Refill(std::optional<std::int32_t> selectGame) {
  FillGameList(Process().GameListSortColumn, Process().GameListSortOrder, selectGame);
}

bool GameInterface::HasGames() const { return grid_->model()->rowCount() > 0; }

bool GameInterface::OffersMailGames() const { return toolbar_[NewGameButton]->isEnabled(); }

std::optional<std::int32_t> GameInterface::SelectedGame() const {
  const store::GameRecord* game = grid_->SelectedGame();
  if (!game) return std::nullopt;
  return game->GAME_ID;
}

void GameInterface::ShowMails() {
  const QString line = ShownLine(shell::MailLine());
  mailLine_->setText(line);
  mailLine_->setVisible(!line.isEmpty());
  grid_->ShowMails();
}

void GameInterface::ShowColumns() { grid_->ShowColumns(); }

bool GameInterface::MayTryAgain() const {
  const store::GameRecord* game = grid_->SelectedGame();
  return game && shell::MayTryAgain(*game);
}

bool GameInterface::MayChangeAddress() const {
  const store::GameRecord* game = grid_->SelectedGame();
  return game && !game->GAME_VS_COMPUTER;
}

void GameInterface::TryAgainToSend() {
  if (const auto game = SelectedGame()) shell::TryAgainToSend(*game);
}

void GameInterface::ChangeAddress() {
  const auto game = SelectedGame();
  if (!game) return;
  const QPointer<GameInterface> self = this;
  shell::ChangeAddress(*game);
  if (self && !Process().Stopping) Refill(game);
}

void GameInterface::PlayCurrentGame() {
  if (const auto game = SelectedGame()) shell::PlayGame(*game);
}

void GameInterface::DeleteGame() {
  const store::GameRecord* game = grid_->SelectedGame();
  if (!game || !shell::DeleteGame(game->GAME_ID, game->GAME_NAME)) return;
  Refill();
  shell::UpdateTrayStatus(platform::TrayOperation::Modify);
}

void GameInterface::UndoDelete() {
  const auto number = shell::UndoDelete();
  if (!number) return;
  Refill(number);
  shell::UpdateTrayStatus(platform::TrayOperation::Modify);
}

void GameInterface::GetGames(bool import) {
  const auto selected = SelectedGame();
  const DisabledWindow disabled(*this);
  const QPointer<GameInterface> self = this;
  shell::RetrieveFromGameList(import);
  if (!self || Process().Stopping) return;
  Refill(selected);
}

void GameInterface::UseOtherGames() {
  const QPointer<GameInterface> self = this;
  const platform::PollingHold hold;
  QFileDialog dialog(this, u"Use games from another folder"_s, QDir::homePath());
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setOption(QFileDialog::ShowDirsOnly);
  const QString folder = ChooseFiles(dialog).value(0);
  if (!self || Process().Stopping || folder.isEmpty()) return;
  if (shell::UseGamesOfFolder(folder.toStdString()) && self && !Process().Stopping) Refill();
}

void GameInterface::CopyGame() {
  if (const auto game = SelectedGame()) ui::CopyGame(*this, *game);
}

void GameInterface::SaveAsPgn() {
  if (const auto game = SelectedGame()) SaveGameAsPgn(*this, *game);
}

void GameInterface::SaveAllAsPgn() {
  if (HasGames()) SaveAllGamesAsPgn(*this);
}

void GameInterface::ImportPgn() {
  const platform::PollingHold hold;
  const QPointer<GameInterface> self = this;
  const QStringList paths = AskForPgnFiles(*this);
  if (self && !Process().Stopping) ImportPgnFiles(paths);
}

void GameInterface::ImportPgnFiles(const QStringList& paths) {
  const QPointer<GameInterface> self = this;
  for (const QString& path : paths) {
    const auto first = ImportGames(*this, path);
    if (!self || Process().Stopping) return;
    if (!first) continue;
    Refill(first);
    shell::UpdateTrayStatus(platform::TrayOperation::Modify);
  }
}

void GameInterface::ClickToolbar(int button) {
  if (button == PlayGameButton) return PlayCurrentGame();
  shell::StartNewGame({.againstComputer = button == ComputerGameButton,
                       .fromSetup = button != NewGameButton,
                       .fromGameList = true});
}

void GameInterface::SetToolbarButton(int button, bool enabled) {
  toolbar_[static_cast<std::size_t>(button)]->setEnabled(enabled);
}

void GameInterface::PopUp(InterfaceMenu menu, QPoint place, QAbstractButton* opener) {
  auto opened = NewInterfaceMenu(menu, *this, errands_);
  GiveKeysBack(*opened, *grid_, opener);
  errands_.popUp(std::move(opened), place);
}

void GameInterface::SetFace(const QIcon& icon, const QString& caption) {
  setWindowIcon(icon);
  setWindowTitle(caption);
}

void GameInterface::RefreshInterfaceButtons() {
  const WindowSkin* skin = WindowSkin::Of(*this);
  if (!skin) return;
  const QImage strip = skin->Strip("InterfaceButtons");
  for (QAbstractButton* button : toolbar_) {
    if (button) static_cast<StripButton*>(button)->SetStrip(strip);
  }
}

void GameInterface::SetToolTips() {
  for (const MenuLabel& label : menuLabels) {
    for (const char* name : {label.names.skinned, label.names.plain}) {
      SetTipOfNamed(*this, name, label.toolTip);
    }
  }
  SetToolbarTips();
  SetTipOfNamed(*this, "MinimiseButton", "Minimise the game interface");
  SetTipOfNamed(*this, "HideButton", "Finished with game interface");
  SetTipOfNamed(*this, "GameList", "All the chess games held in the database");
}

void GameInterface::SetToolbarTips() {
  for (const ToolbarEntry& entry : toolbarEntries) {
    SetTip(*toolbar_[static_cast<std::size_t>(entry.button)], entry.toolTip, entry.whyGrey());
  }
}

void GameInterface::showEvent(QShowEvent* event) {
  if (hasSkin_ && !opened_) {
    opened_ = true;
    Refill();
    shell::GameListOpened();
    SetToolTips();
    grid_->setFocus();
  }
  QWidget::showEvent(event);
}

/// Where no task bar could bring it back, into the tray, which can.
/// Where nothing could bring it back the window stays as it is.
void GameInterface::BecomeIcon() {
  if (TaskBarShowsWindows()) {
    showMinimized();
  } else if (platform::Settings().SystrayStartup) {
    close();
  }
}

void GameInterface::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Escape:
      BecomeIcon();
      return;
    case Qt::Key_F1:
      ShowHelp();
      return;
    default:
      if (!PressMenuKey(event->keyCombination(), *this, errands_)) QWidget::keyPressEvent(event);
  }
}

void GameInterface::closeEvent(QCloseEvent* event) {
  // While it waits for the mail only the program's own end closes it.
  if (!isEnabled() && !Process().Stopping && !Process().ShuttingDown) {
    event->ignore();
    return;
  }
  if (!std::exchange(opened_, false)) return;
  shell::GameListClosed();
}

}  // namespace ui

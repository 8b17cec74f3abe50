// SPDX-License-Identifier: GPL-3.0-or-later
#include "shown_windows.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>

#include <future>
#include <string>
#include <utility>

#include "ai/heuristics.h"
#include "boards/chess_graphics.h"
#include "mail/mail_memory.h"
#include "mail/sending.h"
#include "platform/process_state.h"
#include "platform/setting_variables.h"
#include "skin/layouts/outlines.h"
#include "skin/look.h"
#include "skin/program_pictures.h"
#include "skin/skin.h"
#include "skin/splash_screen.h"
#include "skin/window_skin.h"
#include "store/saving.h"
#include "ui/board/board_window.h"
#include "ui/board/conversation_form.h"
#include "ui/board/exchange_pawn.h"
#include "ui/board/setup_warning.h"
#include "ui/games/choose_opponent.h"
#include "ui/games/game_interface.h"
#include "ui/games/held_mail_form.h"
#include "ui/games/new_game_info.h"
#include "ui/games/notify_form.h"
#include "ui/games/welcome.h"
#include "ui/help/help_window.h"
#include "ui/options/options_page.h"
#include "ui/people/account_dialog.h"
#include "ui/people/address_book_dialog.h"
#include "ui/people/person_dialog.h"
#include "ui/program/about_box.h"
#include "ui/program/credits.h"
#include "ui/program/msg_form.h"
#include "ui/program/select_sound.h"
#include "ui/program/status_window.h"

namespace art {

namespace {

using namespace Qt::StringLiterals;
using boards::ChessGraphics;
using platform::Process;
using Window = std::unique_ptr<QWidget>;

constexpr std::int32_t shownGame = 1;
constexpr const char* words = "The quiet line it is. I hope that your garden is past the frost.";

/// The first of them, on the board, is the longest.
constexpr const char* moves[][2] = {
    {"5254", "e4"},  {"5755", "e5"},  {"7163", "Nf3"}, {"2836", "Nc6"},
    {"6134", "Bc4"}, {"6835", "Bc5"}, {"3233", "c3"},  {"7866", "Nf6"},
    {"4243", "d3"},  {"4746", "d6"},  {"5171", "0-0"}, {"5878", "0-0"},
    {"6151", "Re1"}, {"1716", "a6"},  {"3423", "Bb3"}, {"3517", "Ba7"}};

struct ShownGame {
  const char* title;
  const char* opponent;
  const char* address;
  const char* begun;
  std::int16_t status;
  std::size_t moves;
  std::int64_t daysAgo;
};
constexpr ShownGame games[] = {
    {"Spring tournament", "Eva Lindqvist", "eva@example.org", "01/01/2026", store::MoveWaiting, 16,
     0},
    {"Friendly", "Bob Achterberg", "bob@example.org", "02/01/2026", store::WaitingForOpponent, 11,
     2},
    {"Return match", "Max Oyelaran", "max@example.org", "03/01/2026", store::DrawOfferSent, 13, 3},
    {"Winter 2", "Bob Achterberg", "bob@example.org", "12/05/2025", store::GameWon, 15, 31},
    {"Winter 1", "Bob Achterberg", "bob@example.org", "30/09/2025", store::GameLost, 14, 48},
    {"Cup, first round", "Ines Moreau", "ines@example.org", "08/09/2025", store::GameDrawn, 12,
     60}};

store::GameRecord RecordOf(const ShownGame& shown, std::int32_t number) {
  store::GameRecord game;
  game.GAME_ID = number;
  game.GAME_DATESTAMP = std::to_string(90320260800 + number);
  game.GAME_NAME = shown.title;
  game.GAME_DATE = shown.begun;
  game.GAME_OPPONENTS_EMAIL = shown.address;
  game.GAME_OPPONENTS_NAME = game.GAME_BLACK_NAME = shown.opponent;
  game.GAME_HOST = true;
  game.GAME_STATUS = shown.status;
  return game;
}

store::MoveRecords MovesOf(const ShownGame& shown) {
  store::MoveRecords records;
  for (const auto& [coordinates, text] : moves) {
    if (records.size() == shown.moves) break;
    records.push_back({static_cast<std::int32_t>(records.size()) + 1, coordinates, text, ""});
  }
  records.back().MoveComment = words;
  return records;
}

/// The skin's own, or that of all dialogs.
QPolygonF OutlineOf(const QWidget& window) {
  auto points = ui::layouts::OutlineOf(window.objectName().toStdString());
  QPolygonF outline;
  for (const auto& point : points) outline << QPointF(point.x, point.y);
  const bool fits = outline.boundingRect().toAlignedRect().size() == window.size();
  if (!points.empty() && fits) return outline;
  outline.clear();
  for (const auto& point : ui::layouts::DialogOutline({window.width(), window.height()})) {
    outline << QPointF(point.x, point.y);
  }
  return outline;
}

/// Some pictures are drawn beside the window's thread.
void AwaitPictures(const QWidget& window) {
  const auto* position = window.findChild<QLabel*>(u"Position"_s);
  const QDeadlineTimer patience(5000);
  do {
    QApplication::processEvents(QEventLoop::AllEvents, 50);
  } while (position && position->pixmap(Qt::ReturnByValue).isNull() && !patience.hasExpired());
}

Window NewBoard(const ChessGraphics& graphics) {
  Process().CurrentGameID = shownGame;
  return std::make_unique<ui::BoardWindow>(graphics);
}

Window NewSetup(const ChessGraphics& graphics) {
  Process().CurrentGameID = -1;
  Process().SetupGame = true;
  auto window = std::make_unique<ui::BoardWindow>(graphics);
  Process().SetupGame = false;
  return window;
}

Window NewConversation(const ChessGraphics&) {
  return std::make_unique<ui::ConversationForm>(
      std::vector<board::Remark>{{1, 1, "You", "A new year, a new game. Good luck!"},
                                 {2, 1, "Eva Lindqvist", "Thank you. I shall need it."},
                                 {11, 6, "You", "It snows here, so there is time to think."},
                                 {16, 8, "Eva Lindqvist", words}},
      nullptr);
}

Window NewQuestion(const ChessGraphics&) {
  return std::make_unique<ui::MsgForm>(platform::Message{
      1, "Delete game.", "Are you sure you wish to delete the game titled Spring tournament?",
      "Yes", "No", false});
}

Window NewReport(const ChessGraphics&) {
  return std::make_unique<ui::MsgForm>(platform::Message{
      5, "Backup failed.", "The copy of your games could not be written.", "OK", "", false});
}

Window NewWarnings(const ChessGraphics&) {
  return std::make_unique<ui::SetupWarningForm>(
      u"White warnings\n      To many pawns\n      No bishops on a black board square"_s);
}

Window NewPromotion(const ChessGraphics& graphics) {
  return std::make_unique<ui::ExchangePawn>(graphics, rules::White);
}

Window NewGameList(const ChessGraphics&) {
  return std::make_unique<ui::GameInterface>(ui::OtherErrands{});
}

Window NewGame(const ChessGraphics&) { return std::make_unique<ui::NewGameInfo>(); }

Window NewComputerGame(const ChessGraphics&) {
  Process().ComputerGame = Process().SetupGame = true;
  auto window = std::make_unique<ui::NewGameInfo>();
  Process().ComputerGame = Process().SetupGame = false;
  return window;
}

template <int Tab>
Window NewOptions(const ChessGraphics&) {
  auto window = std::make_unique<ui::OptionsPage>([] {});
  window->ChangeTab(Tab);
  return window;
}

Window NewNotification(const ChessGraphics&) {
  return std::make_unique<ui::NotifyForm>(
      platform::NewMove{"Eva Lindqvist", "Spring tournament", words, false, "8... Ba7", shownGame});
}

Window NewHeldMail(const ChessGraphics&) {
  return std::make_unique<ui::HeldMailForm>(platform::HeldMailQuestion{
      "Eva Lindqvist",
      "eva@example.org",
      "Spring tournament",
      "Eva Lindqvist",
      "eva@example.org",
      "The moves in this mail aren't those of your game.",
      "If you take them, the game goes on from the list in the mail.",
      {{1, "e4", "e4", false}, {2, "e5", "c5", true}, {3, "Nf3", "Nf3", false}},
      "Take his moves",
      "Keep mine"});
}

Window NewStranger(const ChessGraphics&) {
  return std::make_unique<ui::HeldMailForm>(
      platform::HeldMailQuestion{"Bob Achterberg",
                                 "bob@example.org",
                                 "Friendly",
                                 "",
                                 "",
                                 "Somebody with whom you have never played invites you to a game.",
                                 "If you begin it, it stands in your list of games.",
                                 {},
                                 "Begin the game",
                                 "Not wanted"});
}

Window NewChoice(const ChessGraphics&) {
  return std::make_unique<ui::ChooseOpponent>(QStringList{u"Eva Lindqvist"_s, u"Bob Achterberg"_s});
}

Window NewPicker(const ChessGraphics&) {
  return std::make_unique<ui::SelectSound>(ui::SelectSound::Mode::Sound);
}

Window NewAbout(const ChessGraphics&) { return std::make_unique<ui::AboutBox>(); }

Window NewCredits(const ChessGraphics&) { return std::make_unique<ui::Credits>(); }

Window NewSplash(const ChessGraphics&) {
  auto window = std::make_unique<ui::SplashScreen>(std::async(
      std::launch::deferred, ui::StartPicture, platform::Process().ProgramFolder, 24, 2.0));
  window->setAttribute(Qt::WA_DeleteOnClose, false);
  return window;
}

Window NewStatus(const ChessGraphics&) {
  auto window = std::make_unique<ui::StatusWindow>();
  window->Display(u"Retrieving games..."_s);
  return window;
}

Window NewAccount(const ChessGraphics&) {
  ui::AccountHelp help;
  help.hasUsableAddress = [](const ui::MailAccount&) { return true; };
  help.guess = [](const ui::MailAccount& account) { return ui::ProviderGuess{account, true, ""}; };
  help.lookUp = [](const ui::MailAccount&, const ui::AccountHelp::Found&) {};
  help.signInOffer = [](const ui::MailAccount&) {
    return ui::AccountHelp::SignInOffer{"Fastmail", "", true};
  };
  help.giveUp = [] {};
  help.hasKeptPassword = [](const ui::MailAccount&) { return false; };
  help.test = [](const ui::AccountAnswer&, const ui::AccountHelp::Told& told) { told("", false); };
  ui::MailAccount account;
  account.MailKind = "Imap";
  account.MyName = "Eva Lindqvist";
  account.MyAddress = "eva@fastmail.com";
  account.UserName = "eva@fastmail.com";
  account.ImapHost = "imap.fastmail.com";
  account.SmtpHost = "smtp.fastmail.com";
  return std::make_unique<ui::AccountDialog>(account, help);
}

// Anna's friends, in no file.
class SmallBook : public platform::AddressBook {
 public:
  std::vector<platform::BookEntry> People() override {
    return {{{"Bob Achterberg", {"bob@example.org"}}, true},
            {{"Eva Lindqvist", {"eva@example.org", "eva.lindqvist@example.net"}}, true},
            {{"Max", {"max@example.org"}}, false}};
  }
  std::vector<platform::Recipient> Matches(const std::string&) override { return {}; }
  void Add(const platform::Person&) override {}
  void Change(const platform::Person&, const platform::Person&) override {}
  void Remove(const platform::Person&) override {}
  platform::ImportOutcome Import(const std::string&) override { return {}; }
  bool IsUsableAddress(const std::string&) override { return true; }
};

Window NewAddressBook(const ChessGraphics&) {
  static SmallBook book;
  auto window = std::make_unique<ui::AddressBookDialog>(book, u"Whom do you want to play with?"_s,
                                                        ui::AddressBookDialog::Pick::Many);
  return window;
}

Window NewPerson(const ChessGraphics&) {
  return std::make_unique<ui::PersonDialog>(u"Edit a person"_s,
                                            platform::Person{"Eva Lindqvist", {"eva@example"}},
                                            [](const std::string&) { return false; });
}

Window NewWelcome(const ChessGraphics&) { return std::make_unique<ui::Welcome>(ui::WaysToAGame{}); }

Window NewHelp(const ChessGraphics&) {
  QFile file(QString::fromStdString(Process().ProgramFolder) + u"tvchess.hlp"_s);
  if (!file.open(QFile::ReadOnly)) return std::make_unique<QWidget>();
  ui::HelpBook book = ui::ReadHelpBook(QString::fromUtf8(file.readAll()));
  book.folder = QString::fromStdString(Process().ProgramFolder);
  auto window = std::make_unique<ui::HelpWindow>(std::move(book));
  window->Open(ui::NameOfContext(platform::HelpOfBoard));
  return window;
}

}  // namespace

bool Wear(const Look& look, ChessGraphics& graphics) {
  platform::SettingVariables& settings = platform::Settings();
  settings.SimpleUI = *look.skin == '\0';
  if (!settings.SimpleUI) settings.Skin = look.skin;
  return boards::LoadChessGraphics("Classic Wood", look.board, graphics) &&
         ui::ApplySkinToSystemTray();
}

void StoreGames() {
  constexpr std::int64_t now = 1773043500, day = 86400;
  Process().Offline = false;
  Process().CheckTimer.Interval = 20'000;
  ai::LoadDefaultHeuristics();
  mail::MailMemory memory;
  std::int32_t number = 0;
  for (const ShownGame& shown : games) {
    store::GameRecord game = RecordOf(shown, ++number);
    store::SaveGame(game, MovesOf(shown));
    memory.arrivals.push_back(
        {mail::ThreadOf(game), now - shown.daysAgo * day - number * std::int64_t{3700}});
  }
  mail::SaveMailMemory(memory);
}

const std::vector<ShownWindow>& ShownWindows() {
  static const std::vector<ShownWindow> windows{
      {"welcome", NewWelcome},            // to one who has no game
      {"account", NewAccount},            // for a mailbox
      {"games", NewGameList},             // with one of each kind
      {"new-game", NewGame},              // before anything is typed
      {"computer", NewComputerGame},      // the same against the computer
      {"address-book", NewAddressBook},   // while somebody is looked for
      {"person", NewPerson},              // with a wrong address
      {"choice", NewChoice},              // between two
      {"board", NewBoard},                // after sixteen moves
      {"conversation", NewConversation},  // of that game
      {"setup", NewSetup},                // before anything is set up
      {"warnings", NewWarnings},          // about a position
      {"promotion", NewPromotion},        // of White
      {"new-move", NewNotification},      // with a comment
      {"set-aside", NewHeldMail},         // with both lists
      {"stranger", NewStranger},          // and without any
      {"options-general", NewOptions<1>},
      {"options-notification", NewOptions<2>},
      {"options-chess-set", NewOptions<3>},
      {"options-heuristics", NewOptions<4>},
      {"options-saved-ai", NewOptions<5>},
      {"options-skins", NewOptions<6>},
      {"sounds", NewPicker},
      {"help", NewHelp},          // on the board
      {"about", NewAbout},        // the program
      {"credits", NewCredits},    // as they begin
      {"question", NewQuestion},  // two buttons
      {"report", NewReport},      // one button
      {"status", NewStatus},      // while games are fetched
      {"splash", NewSplash},      // the start picture
  };
  return windows;
}

QImage Grabbed(QWidget& window) {
  window.show();
  AwaitPictures(window);
  const QPixmap grabbed = window.grab();
  if (!ui::WindowSkin::Of(window)) return grabbed.toImage();
  QImage shaped(grabbed.size(), QImage::Format_ARGB32_Premultiplied);
  shaped.setDevicePixelRatio(grabbed.devicePixelRatio());
  shaped.fill(Qt::transparent);
  QPainterPath path;
  path.addPolygon(OutlineOf(window));
  QPainter painter(&shaped);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setClipPath(path);
  painter.drawPixmap(0, 0, grabbed);
  return shaped;
}

}  // namespace art

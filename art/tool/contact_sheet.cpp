// SPDX-License-Identifier: GPL-3.0-or-later
// contact_sheet: one picture of all windows in each skin and in the plain look, to look at.
//
//   contact_sheet PROGRAM_FOLDER PICTURE
//
// PROGRAM_FOLDER is a laid out program folder, whose pictures the windows load. Games and settings
// are imaginary. QT_SCALE_FACTOR=2 makes the sheet for a finer screen.
#include <QApplication>
#include <QFile>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

#include "boards/chess_graphics.h"
#include "fakes/fake_desktop.h"
#include "platform/process_state.h"
#include "platform/setting_variables.h"
#include "skin/layouts/outlines.h"
#include "skin/layouts/strips.h"
#include "skin/look.h"
#include "skin/skin.h"
#include "skin/strip_button.h"
#include "skin/window_skin.h"
#include "store/saving.h"
#include "ui/board/board_window.h"
#include "ui/board/exchange_pawn.h"
#include "ui/board/setup_warning.h"
#include "ui/games/choose_opponent.h"
#include "ui/games/game_interface.h"
#include "ui/games/held_mail_form.h"
#include "ui/games/new_game_info.h"
#include "ui/games/notify_form.h"
#include "ui/games/welcome.h"
#include "ui/help/help_window.h"
#include "ui/people/account_dialog.h"
#include "ui/people/address_book_dialog.h"
#include "ui/people/person_dialog.h"
#include "ui/program/about_box.h"
#include "ui/program/credits.h"
#include "ui/program/msg_form.h"
#include "ui/program/select_sound.h"
#include "ui/program/splash_screen.h"
#include "ui/program/status_window.h"

namespace {

using namespace Qt::StringLiterals;

constexpr int kGap = 16;
constexpr int kWidth = 1600;

struct Look {
  const char* skin;  // empty: the plain look
  const char* board;
};
constexpr Look looks[] = {
    {"Tarvolenix Classic", "Plain"}, {"Tarvolenix Night", "Slate"}, {"", "Plain"}};

void StoreGames() {
  store::GameRecord game;
  game.GAME_ID = 1;
  game.GAME_DATESTAMP = "090320260805";
  game.GAME_NAME = "Spring tournament";
  game.GAME_DATE = "09/03/2026";
  game.GAME_OPPONENTS_EMAIL = "eva@example.org";
  game.GAME_OPPONENTS_NAME = game.GAME_BLACK_NAME = "Eva Lindqvist";
  game.GAME_HOST = true;
  game.GAME_STATUS = store::MoveWaiting;
  const char* entries[][2] = {{"5254", "e4"},  {"5755", "e5"},  {"7163", "Nf3"}, {"2836", "Nc6"},
                              {"6134", "Bc4"}, {"6835", "Bc5"}, {"3233", "c3"},  {"7866", "Nf6"}};
  store::MoveRecords moves;
  for (const auto& [coordinates, text] : entries) {
    moves.push_back({static_cast<std::int32_t>(moves.size()) + 1, coordinates, text, ""});
  }
  moves.back().MoveComment = "The quiet line it is. I hope that your garden is past the frost.";
  store::SaveGame(game, moves);

  for (const std::int16_t status : {store::WaitingForOpponent, store::GameWon, store::GameLost,
                                    store::DrawOfferSent, store::GameDrawn}) {
    ++game.GAME_ID;
    game.GAME_NAME = "Friendly " + std::to_string(game.GAME_ID);
    game.GAME_OPPONENTS_NAME = "Bob Achterberg";
    game.GAME_STATUS = status;
    store::SaveGame(game, moves);
  }
}

// A window as it stands on a desktop: only what its outline leaves of it.
QImage Grabbed(QWidget& window) {
  window.show();
  QApplication::processEvents();
  const QPixmap grabbed = window.grab();
  if (!ui::WindowSkin::Of(window)) return grabbed.toImage();
  QImage shaped(grabbed.size(), QImage::Format_ARGB32_Premultiplied);
  shaped.setDevicePixelRatio(grabbed.devicePixelRatio());
  shaped.fill(Qt::transparent);
  QPolygonF outline;
  auto points = ui::layouts::OutlineOf(window.objectName().toStdString());
  if (points.empty()) points = ui::layouts::DialogOutline({window.width(), window.height()});
  for (const auto& point : points) {
    outline << QPointF(point.x, point.y);
  }
  QPainterPath path;
  path.addPolygon(outline);
  QPainter painter(&shaped);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setClipPath(path);
  painter.drawPixmap(0, 0, grabbed);
  return shaped;
}

using Window = std::unique_ptr<QWidget>;
using boards::ChessGraphics;

Window NewBoard(const ChessGraphics& graphics) {
  return std::make_unique<ui::BoardWindow>(graphics);
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

Window NewNotification(const ChessGraphics&) {
  return std::make_unique<ui::NotifyForm>(
      platform::NewMove{"Eva Lindqvist", "Spring tournament",
                        "The quiet line it is. I hope that your garden is past the frost.", false});
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
  auto window = std::make_unique<ui::SplashScreen>([] {});
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
  help.guess = [](const ui::MailAccount& account) {
    return ui::ProviderGuess{account, true, "Your provider wants a password of its own for this."};
  };
  help.hasKeptPassword = [](const ui::MailAccount&) { return false; };
  help.test = [](const ui::AccountAnswer&, const ui::AccountHelp::Told& told) { told(""); };
  ui::MailAccount account;
  account.MailKind = "Imap";
  account.MyName = "Eva Lindqvist";
  account.MyAddress = "eva@example.org";
  account.UserName = "eva@example.org";
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
  window->ImportFrom(u"empty.vcf"_s);
  window->LookFor(u"eva"_s);
  return window;
}

Window NewPerson(const ChessGraphics&) {
  return std::make_unique<ui::PersonDialog>(u"Edit a person"_s,
                                            platform::Person{"Eva Lindqvist", {"eva@example"}},
                                            [](const std::string&) { return false; });
}

Window NewWelcome(const ChessGraphics&) { return std::make_unique<ui::Welcome>(ui::WaysToAGame{}); }

Window NewHelp(const ChessGraphics&) {
  QFile file(QString::fromStdString(platform::Process().ProgramFolder) + u"tvchess.hlp"_s);
  if (!file.open(QFile::ReadOnly)) return std::make_unique<QWidget>();
  auto window =
      std::make_unique<ui::HelpWindow>(ui::ReadHelpBook(QString::fromUtf8(file.readAll())));
  window->Open(ui::NameOfContext(platform::HelpOfBoard));
  return window;
}

constexpr const char* states[] = {"Up", "Hover", "Down", "Disabled", "Focused"};

void Place(QAbstractButton& button, int state, const QRect& place) {
  if (auto* skinned = qobject_cast<ui::SkinButton*>(&button)) {
    skinned->PlaceAt(place);
  } else {
    button.setGeometry(place);
  }
  button.setText(QLatin1StringView(states[state]));
  button.setAttribute(Qt::WA_UnderMouse, state == 1);
  button.setDown(state == 2);
  button.setEnabled(state != 3);
  if (state == 4) button.setFocus();
}

struct Tools {
  const char* file;
  const ui::layouts::Strip& shape;
};
constexpr Tools tools[] = {{"BoardButtons.bmp", ui::layouts::toolbarButtons},
                           {"BoardSetupButtons.bmp", ui::layouts::toolbarButtons},
                           {"InterfaceButtons.bmp", ui::layouts::interfaceButtons}};

void AddTools(QWidget& window, QPoint corner, const Tools& strip) {
  const QString path = u"%1UI Graphics/%2/%3"_s.arg(
      QString::fromStdString(platform::Process().ProgramFolder),
      QString::fromStdString(platform::Settings().Skin), QLatin1StringView(strip.file));
  const QSize cell(strip.shape.cell.width, strip.shape.cell.height);
  for (int row = 0; row < strip.shape.rows; ++row) {
    for (int state = 0; state < 4; ++state) {
      auto* button = new ui::StripButton(u"Tool"_s, strip.shape, row, &window);
      button->SetStrip(QImage(path));
      const QPoint place(state * (cell.width() + 8), row * (cell.height() + 8));
      Place(*button, state, {corner + place, cell});
    }
  }
}

// The system's button, and in a skin those of the strips below it.
Window NewStates(const ChessGraphics&) {
  auto window = std::make_unique<QWidget>();
  for (int state = 0; state < int(std::size(states)); ++state) {
    Place(*ui::NewButton(*window, {"OkButton", "OKButtonS"}, {}), state,
          {kGap + state * 104, kGap, 96, 28});
  }
  window->setFixedSize(QSize(552, 60));
  if (ui::IsSimpleUI()) return window;
  QPoint corner(kGap, 60);
  for (const Tools& strip : tools) {
    AddTools(*window, corner, strip);
    corner.rx() += 4 * (strip.shape.cell.width + 8) + kGap;
  }
  window->setFixedSize(corner.x(), 60 + 7 * 56 + 8);
  return window;
}

// Every window, one a line.
using NewWindow = Window (*)(const ChessGraphics&);
constexpr NewWindow windows[] = {
    NewBoard,         // after eight moves
    NewGameList,      // with some games
    NewGame,          // before anything is typed
    NewNotification,  // with a comment
    NewHeldMail,      // with both lists
    NewStranger,      // and without any
    NewChoice,        // between two
    NewPicker,        // of sounds
    NewAbout,         // the program
    NewCredits,       // as they begin
    NewAccount,       // for a mailbox
    NewAddressBook,   // while somebody is looked for
    NewPerson,        // with a wrong address
    NewWelcome,       // to one who has no game
    NewHelp,          // on the board
    NewQuestion,      // two buttons
    NewReport,        // one button
    NewWarnings,      // about a position
    NewPromotion,     // of White
    NewStatus,        // while games are fetched
    NewSplash,        // the start picture
    NewStates,        // no window, but how buttons look
};

std::vector<QImage> PicturesOf(const Look& look) {
  platform::SettingVariables& settings = platform::Settings();
  settings.SimpleUI = *look.skin == '\0';
  if (!settings.SimpleUI) settings.Skin = look.skin;
  ChessGraphics graphics;
  if (!boards::LoadChessGraphics("Classic Wood", look.board, graphics)) return {};
  if (!ui::ApplySkinToSystemTray()) return {};
  std::vector<QImage> pictures;
  for (const NewWindow& newWindow : windows) pictures.push_back(Grabbed(*newWindow(graphics)));
  return pictures;
}

// One look below the other, its windows side by side in as many lines as they take.
QImage Assembled(const std::vector<std::vector<QImage>>& looksOfWindows) {
  struct Placed {
    const QImage* picture;
    QPointF corner;
  };
  std::vector<Placed> placed;
  QPointF corner(kGap, kGap);
  qreal height = 0;
  const auto newLine = [&] {
    corner = {kGap, corner.y() + height + kGap};
    height = 0;
  };
  for (const auto& pictures : looksOfWindows) {
    for (const QImage& picture : pictures) {
      const QSizeF size = picture.deviceIndependentSize();
      if (corner.x() > kGap && corner.x() + size.width() + kGap > kWidth) newLine();
      placed.push_back({&picture, corner});
      corner.rx() += size.width() + kGap;
      height = std::max(height, size.height());
    }
    newLine();
  }
  const qreal ratio = placed.front().picture->devicePixelRatio();
  QImage sheet((QSizeF(kWidth, corner.y()) * ratio).toSize(), QImage::Format_RGB32);
  sheet.setDevicePixelRatio(ratio);
  sheet.fill(QColor(0x76, 0x80, 0x8c));
  QPainter painter(&sheet);
  for (const auto& [picture, place] : placed) painter.drawImage(place, *picture);
  return sheet;
}

}  // namespace

int main(int argc, char* argv[]) {
  QApplication application(argc, argv);
  if (argc != 3) {
    std::fputs("usage: contact_sheet PROGRAM_FOLDER PICTURE\n", stderr);
    return 1;
  }
  const fakes::FakeDesktop desktop;
  platform::Process().ProgramFolder = std::string(argv[1]) + "/";
  platform::Process().Offline = false;
  platform::Process().CurrentGameID = 1;
  StoreGames();
  std::vector<std::vector<QImage>> pictures;
  for (const Look& look : looks) pictures.push_back(PicturesOf(look));
  const bool complete =
      std::none_of(pictures.begin(), pictures.end(), [](auto& of) { return of.empty(); });
  if (complete && Assembled(pictures).save(QString::fromLocal8Bit(argv[2]))) return 0;
  std::fputs("contact_sheet: a picture is missing or can't be written\n", stderr);
  return 1;
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/program/program_windows.h"

#include <QApplication>
#include <QException>
#include <QScreen>

#include <algorithm>
#include <future>
#include <new>

#include "platform/polling.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "platform/setting_variables.h"
#include "shell/failed_opening.h"
#include "shell/playing.h"
#include "shell/start_up.h"
#include "skin/program_pictures.h"
#include "skin/skin.h"
#include "ui/games/change_address.h"
#include "ui/games/held_mail_form.h"
#include "ui/games/notify_form.h"
#include "ui/options/look_menu.h"
#include "ui/options/options_page.h"
#include "ui/program/about_box.h"
#include "ui/program/select_sound.h"
#include "widgets/dropped_files.h"
#include "widgets/front_window.h"
#include "widgets/pointers.h"
#include "widgets/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;
using platform::Process;

namespace {

/// In this order the windows close and are forgotten, whichever of them are there.
constexpr const char* closingOrder[] = {
    "AboutBox",      "Board",        "ChooseOpponent", "Credits",     "ExchangePawn",
    "GameInterface", "MsgForm",      "NewGameInfo",    "OptionsPage", "SelectSound",
    "SplashScreen",  "StatusWindow", "SystemTray",     "NotifyForm"};

/// Shows one of the program's windows where the other one stands, as far as the screen has room
/// for it there.
void Replace(QWidget& old, QWidget& next) {
  const QRect place = old.frameGeometry();
  const QRect screen = old.screen()->availableGeometry();
  // Next may have had no frame yet; the old one's is the same.
  QRect frame({}, next.size() + place.size() - old.size());
  frame.moveCenter(place.center());
  old.hide();
  next.move(std::max(screen.left(), std::min(frame.left(), screen.right() + 1 - frame.width())),
            std::max(screen.top(), std::min(frame.top(), screen.bottom() + 1 - frame.height())));
  next.show();
}

/// Makes a window. What the toolkit raises is the platform's failure.
template <typename Window, typename... Arguments>
Window* Made(Arguments&&... arguments) {
  try {
    return new Window(std::forward<Arguments>(arguments)...);
  } catch (const QException& error) {
    throw platform::WindowError(error.what());
  }
}

}  // namespace

ProgramWindows::ProgramWindows(std::function<void()> changeAccount,
                               std::function<void()> askAboutHeldMails)
    : errands_{[this](std::unique_ptr<QMenu> menu, QPoint place) {
                 // The last one may still be at the work that was chosen there.
                 if (listMenu_) listMenu_.release()->deleteLater();
                 listMenu_ = std::move(menu);
                 listMenu_->popup(place);
               },
               std::move(changeAccount),
               std::move(askAboutHeldMails),
               [this] { ShowAbout(); },
               [this] { OpenOptions(); },
               LookRows} {}

ProgramWindows::~ProgramWindows() {
  delete board_;
  delete list_;
  delete splash_;
  delete newGame_;
  Process().GameListOpen = false;
}

bool ProgramWindows::ApplySkinToSystemTray() { return ui::ApplySkinToSystemTray(); }

bool ProgramWindows::LoadChessGraphics() {
  const platform::SettingVariables& settings = platform::Settings();
  return boards::LoadChessGraphics(settings.ChessSet, settings.ChessBoard, graphics_);
}

void ProgramWindows::ShowSplash() {
  if (!splash_) {
    splash_ = Made<SplashScreen>(
        std::async(std::launch::deferred, StartPicture, Process().ProgramFolder,
                   platform::TheSeams().screen->Settings().BitsPerPixel, qApp->devicePixelRatio()));
  }
  splash_->Display();
  splash_->BeginStay([] { return Process().StartupComplete; }, [] { shell::HandOver(); });
}

void ProgramWindows::CloseSplash() {
  if (splash_) splash_->CloseAtOnce();
}

void ProgramWindows::ShowGameList() {
  const bool isNew = !list_;
  if (isNew) {
    list_ = Made<GameInterface>(errands_);
    if (!list_->IsOpen()) {
      delete list_;
      return;
    }
    TakeDroppedFiles(*list_, [this](const auto& paths) { files_.Give(paths); });
  }
  if (board_ && board_->isVisible()) {
    Replace(*board_, *list_);
  } else {
    if (isNew) ShowInTheMiddle(*list_);
    BringToFront(*list_);
  }
  list_->repaint();
}

void ProgramWindows::ImportGames(const QStringList& paths) {
  ShowGameList();
  if (list_) list_->ImportPgnFiles(paths);
}

void ProgramWindows::CloseGameList() {
  if (list_) list_->close();
}

void ProgramWindows::HideGameList() {
  if (list_) list_->hide();
}

void ProgramWindows::BringBackGameList() {
  FillGameList(Process().CurrentGameID);
  shell::ShowGameList();
}

void ProgramWindows::FillGameList(std::optional<std::int32_t> selectGame) {
  if (list_) list_->Refill(selectGame);
}

std::optional<std::int32_t> ProgramWindows::SelectedGame() {
  return list_ ? list_->SelectedGame() : std::nullopt;
}

void ProgramWindows::SetGameListFace(int trayPicture, const std::string& caption) {
  if (list_) list_->SetFace(TrayPicture(trayPicture), Shown(caption));
}

void ProgramWindows::ShowMails() {
  if (list_) list_->ShowMails();
}

std::optional<std::string> ProgramWindows::AskAddress(const std::string& name,
                                                      const std::string& address) {
  return AskForAddress(name, address);
}

void ProgramWindows::OpenBoard(bool toFront) {
  QPointer<BoardWindow> board = Made<BoardWindow>(
      graphics_, [this] { OpenOptions(); }, &study_);
  if (!board->IsOpen()) {
    delete board;
    return;
  }
  board_ = board;
  if (list_ && list_->isVisible()) {
    Replace(*list_, *board_);
  } else {
    ShowInTheMiddle(*board_);
  }
  if (toFront) BringToFront(*board_);
}

std::optional<platform::NewGameFields> ProgramWindows::AskNewGame() {
  CloseNewGame();
  const bool fromList = Process().BoardFromGameList && list_ && list_->isVisible();
  newGame_ = Made<NewGameInfo>(fromList ? list_.data() : nullptr);
  auto fields = newGame_->Ask();
  if (!fields) CloseNewGame();
  return fields;
}

void ProgramWindows::CloseNewGame() {
  if (newGame_) newGame_->deleteLater();
  newGame_.clear();
}

void ProgramWindows::HideNewGame() {
  if (newGame_) newGame_->hide();
}

platform::NotifyChoice ProgramWindows::AskAboutNewMove(const platform::NewMove& move) {
  const OtherPointer arrow(Qt::ArrowCursor);
  return ui::AskAboutNewMove(move);
}

bool ProgramWindows::AnswerAboutNewMove(platform::NotifyChoice choice) {
  auto* form = qobject_cast<NotifyForm*>(QApplication::activeModalWidget());
  if (form) form->Answer(choice);
  return form != nullptr;
}

bool ProgramWindows::AreInUse() { return QApplication::activeWindow() != nullptr; }

void ProgramWindows::RaiseFrontWindow() { BringActiveWindowToFront(); }

platform::HeldMailChoice ProgramWindows::AskAboutHeldMail(
    const platform::HeldMailQuestion& question) {
  return ui::AskAboutHeldMail(question);
}

std::optional<std::string> ProgramWindows::PickMoveFile() { return ui::PickMoveFile(); }

void ProgramWindows::CloseAll() {
  for (const char* slot : closingOrder) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->objectName() == QLatin1StringView(slot) && window->isVisible()) window->close();
    }
  }
  // Those of this desktop, from the dialog in front on.
  while (QWidget* dialog = QApplication::activeModalWidget()) {
    if (!dialog->close() || QApplication::activeModalWidget() == dialog) break;
  }
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && IsOfProgram(*window)) window->close();
  }
}

void ProgramWindows::OpenOptions() {
  const auto pickSound = [] {
    SelectSound picker(SelectSound::Mode::Sound, QApplication::activeWindow());
    if (picker.IsOpen()) picker.exec();
  };
  try {
    const platform::PollingHold hold;
    // The window that it belongs to may go, and take it along.
    const QPointer<OptionsPage> options(Made<OptionsPage>(pickSound, QApplication::activeWindow()));
    if (options->IsOpen()) options->exec();
    delete options;
  } catch (const platform::WindowError&) {
    shell::ReportAutomationError();
  } catch (const std::exception&) {
    // There are no options then.
  }
  if (list_) list_->SetToolTips();
  if (board_) board_->SetToolTips();
}

void ProgramWindows::ShowAbout() {
  const platform::PollingHold hold;
  AboutBox().exec();
}

}  // namespace ui

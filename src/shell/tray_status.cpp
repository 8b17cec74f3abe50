// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/tray_status.h"

#include <utility>

#include "platform/process_state.h"
#include "platform/seams.h"
#include "platform/setting_variables.h"
#include "shell/game_list.h"
#include "shell/mail_watch.h"
#include "store/queries.h"

namespace shell {

using platform::Process;
using platform::TrayOperation;

namespace {

constexpr int picturesOfSet = 3;
constexpr std::size_t longestTip = 63;

int PictureOf(int kind) { return (platform::Settings().SysTrayIcons - 1) * picturesOfSet + kind; }

std::string CaptionOf(const std::string& tip) {
  const std::string mark = " - ";
  const auto found = tip.find(mark);
  return "Tarvolenix : " + (found == std::string::npos ? tip : tip.substr(found + mark.size()));
}

bool IsDisconnected() { return Process().Offline && !Process().StandAlone; }

}  // namespace

void SetTrayIcon(TrayOperation operation, int kind, const std::string& tip) {
  // What closes behind the icon has news for it too.
  if (Process().Stopping && operation != TrayOperation::Delete) return;
  platform::Seams& seams = platform::TheSeams();
  if (platform::Settings().SystrayStartup) {
    const std::string line = operation == TrayOperation::Delete ? "" : MailLine();
    seams.tray->Notify(operation, PictureOf(kind),
                       tip.substr(0, longestTip) + (line.empty() ? "" : '\n' + line));
  } else if (operation != TrayOperation::Delete) {
    seams.windows->SetGameListFace(PictureOf(kind), CaptionOf(tip));
  }
}

bool AnyNewArrivals() {
  platform::ProcessState& process = Process();
  if (store::IsGameFileUnchanged(process.ArrivalsStamp)) return process.ArrivalsSeen;
  store::GameRecords games;
  const bool all = platform::Settings().ComputerGamesCount;
  if (!store::SelectGames(games, all ? "Game_status;1" : "Game_status;1;Game_vs_computer;0"))
    process.ArrivalsStamp.clear();
  process.ArrivalsSeen = !games.empty();
  return process.ArrivalsSeen;
}

void UpdateTrayStatus(TrayOperation operation) {
  if (IsDisconnected()) {
    SetTrayIcon(operation, NotConnected, "Tarvolenix - Not connected");
  } else if (AnyNewArrivals()) {
    SetTrayIcon(operation, NewMove, "Tarvolenix - New move arrived");
  } else {
    SetTrayIcon(operation, NothingNew, "Tarvolenix - Nothing new");
  }
}

void CountComputerGames(bool count) {
  if (std::exchange(platform::Settings().ComputerGamesCount, count) == count) return;
  Process().ArrivalsStamp.clear();
  UpdateTrayStatus(TrayOperation::Modify);
}

void RemoveTrayIcon() { SetTrayIcon(TrayOperation::Delete, NothingNew, {}); }

TrayMenuState TrayMenu() {
  const bool listOpen = Process().GameListOpen;
  const auto entry = [](bool possible, const char* whyNot) -> TrayMenuEntry {
    if (Process().CheckTimerHeld) return {false, "Please finish first what is open just now."};
    return {possible, possible ? "" : whyNot};
  };
  return {entry(!listOpen, "The game list is open already."),
          listOpen ? entry(false, "The game list is open: begin the game there.")
                   : entry(MayStartMailGame(), WhyNoMailGame()),
          entry(MayDeliverNow(), "No mail waits to be sent."),
          entry(true, ""),
          !listOpen,
          Process().Offline ? "Logon / Retrieve games" : "Retrieve games"};
}

}  // namespace shell

// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/roles.h"

#include <iterator>
#include <string>
#include <utility>

namespace demo {

namespace {

constexpr const char* trayMenu = "mnuPopup";

/// Scenes are lists of steps; a part is one scene behind the other.
std::vector<Step>& operator+=(std::vector<Step>& part, std::vector<Step> scene) {
  part.insert(part.end(), std::make_move_iterator(scene.begin()),
              std::make_move_iterator(scene.end()));
  return part;
}

Step OpenTrayMenu(const Steps& steps) {
  return steps.RightClick("opens the menu of the icon in the tray", steps.TrayIcon(),
                          steps.IsUp(trayMenu));
}

std::vector<Step> Send(const Steps& steps, const char* told) {
  return {steps.Click(told, steps.Control("Board", "Toolbar1_4"), steps.IsGone("Board"))};
}

/// The dialog that tells of a move comes by itself; one of its buttons is pressed.
std::vector<Step> AnswerNotification(const Steps& steps, const char* picture, const char* told,
                                     const char* button, const char* then) {
  return {
      steps.WaitFor("waits for the opponent's move", steps.IsUp("NotifyForm")),
      steps.TakeHands(),
      steps.Picture(picture, "NotifyForm"),
      steps.Click(told, steps.Control("NotifyForm", button),
                  *then ? steps.IsUp(then) : steps.IsGone("NotifyForm")),
  };
}

std::vector<Step> Exit(const Steps& steps) {
  return {
      OpenTrayMenu(steps),
      steps.Click("ends the program by Exit", steps.Entry(trayMenu, "mnuPopupExit")),
  };
}

std::vector<Step> AnnaBegins(const Steps& steps) {
  return {
      steps.WaitFor("has started the program; it greets her, for she has no games yet",
                    steps.IsUp("Welcome")),
      steps.TakeHands(),
      steps.Picture("01-welcome", "Welcome"),
      steps.Click("presses Later", steps.Control("Welcome", "Later"), steps.IsGone("Welcome")),
      OpenTrayMenu(steps),
      steps.Picture("02-tray-menu", trayMenu),
      steps.Click("chooses New game...", steps.Entry(trayMenu, "mnuPopupNewGame"),
                  steps.IsUp("NewGameInfo")),
      steps.Type("gives the game a title", "NewGameInfo", "Game_name", "Lunch break"),
      steps.Click("opens the address book", steps.Control("NewGameInfo", "Resolve"),
                  steps.IsUp("AddressBookDialog")),
      steps.Type("looks for Bob", "AddressBookDialog", "SearchField", "bob"),
      steps.Picture("03-address-book", "AddressBookDialog"),
      steps.Click("takes him", steps.Control("AddressBookDialog", "OkButton"),
                  steps.IsGone("AddressBookDialog")),
      steps.Picture("04-new-game", "NewGameInfo"),
      steps.Click("presses OK, and the board opens", steps.Control("NewGameInfo", "OkButton"),
                  steps.IsUp("Board")),
      steps.DragPiece("moves e2-e4", 52, 54),
      steps.Type("adds a comment", "Board", "PlayerComment", "Good luck, Bob!"),
      steps.Picture("05-board-of-anna", "Board"),
  };
}

std::vector<Step> AnnaReplies(const Steps& steps, const char* picture, const char* told, int from,
                              int to) {
  std::vector<Step> scene =
      AnswerNotification(steps, picture, "presses Play", "PlayButton", "Board");
  scene.push_back(steps.DragPiece(told, from, to));
  return scene;
}

std::vector<Step> AnnaEnds(const Steps& steps) {
  std::vector<Step> scene{
      steps.TakeHands(),
      steps.Click("clicks the icon in the tray to see her games", steps.TrayIcon(),
                  steps.IsUp("GameInterface")),
      steps.Picture("18-game-list-of-anna", "GameInterface"),
      steps.Click("closes the list", steps.Control("GameInterface", "HideButton"),
                  steps.IsGone("GameInterface")),
  };
  scene += Exit(steps);
  return scene;
}

/// He puts the move off, and finds it in the tray's menu.
std::vector<Step> BobPlaysFromTheTray(const Steps& steps) {
  std::vector<Step> scene =
      AnswerNotification(steps, "06-notification", "presses Later", "LaterButton", "");
  scene += {
      steps.WaitFor("sees in the tray that a move waits", steps.TipSays("New move arrived")),
      OpenTrayMenu(steps),
      steps.PointAt("looks at the games in it", steps.Entry(trayMenu, "mnuPopupGameList"),
                    steps.IsUp("mnuPopupGameList")),
      steps.Picture("07-tray-games", "mnuPopupGameList"),
      steps.Click("opens the game", steps.Entry("mnuPopupGameList", "mnuPopupGameListItem"),
                  steps.IsUp("Board")),
  };
  scene += steps.ClickSquares("moves e7-e5", 57, 55);
  scene.push_back(steps.Picture("08-board-of-bob", "Board"));
  scene += Send(steps, "sends the move");
  scene.push_back(
      steps.WaitFor("sees in the tray that nothing waits any more", steps.TipSays("Nothing new")));
  return scene;
}

std::vector<Step> BobPlaysFromTheList(const Steps& steps) {
  std::vector<Step> scene = AnswerNotification(steps, "10-notification-of-bob", "presses Game list",
                                               "GameListButton", "GameInterface");
  scene += {
      steps.Picture("11-game-list-of-bob", "GameInterface"),
      steps.Click("presses Play in the list", steps.Control("GameInterface", "Toolbar1_1"),
                  steps.IsUp("Board")),
  };
  scene += steps.ClickSquares("moves Nb8-c6", 28, 36);
  scene.push_back(
      steps.Type("answers the comment", "Board", "PlayerComment", "What are you up to, Anna?"));
  scene += Send(steps, "sends the move, and is back in the list");
  scene.push_back(steps.Click("closes the list", steps.Control("GameInterface", "HideButton"),
                              steps.IsGone("GameInterface")));
  return scene;
}

std::vector<Step> BobPlaysAtOnce(const Steps& steps) {
  std::vector<Step> scene =
      AnswerNotification(steps, "13-notification-of-bob", "presses Play", "PlayButton", "Board");
  scene += steps.ClickSquares("moves Ng8-f6", 78, 66);
  scene += Send(steps, "sends the move");
  return scene;
}

/// What the board tells at the end of a game.
std::vector<Step> ReadTheEnd(const Steps& steps, const char* picture, const char* button) {
  return {
      steps.Picture(picture, "MsgForm"),
      steps.Click("has read how the game ended", steps.Control("MsgForm", button),
                  steps.IsGone("MsgForm")),
  };
}

std::vector<Step> BobIsMated(const Steps& steps) {
  std::vector<Step> scene = AnswerNotification(steps, "16-notification-of-the-mate", "presses Play",
                                               "PlayButton", "Board");
  scene.push_back(steps.WaitFor("is checkmate", steps.BoardSays("CHECKMATE! - Anna won.")));
  scene += ReadTheEnd(steps, "16-lost", "OkButton");
  scene += {
      steps.Picture("17-mate", "Board"),
      steps.Click("closes his board", steps.Control("Board", "Toolbar1_7"), steps.IsGone("Board")),
  };
  scene += Exit(steps);
  return scene;
}

std::vector<Step> BobPlaysTheComputer(const Steps& steps) {
  std::vector<Step> scene{
      steps.Click("presses vs. Computer", steps.Control("GameInterface", "Toolbar1S_3"),
                  steps.IsUp("NewGameInfo")),
      steps.Type("gives the game a title", "NewGameInfo", "Game_name", "Consolation"),
      steps.Click("wants to set the pieces up first", steps.Control("NewGameInfo", "SetUpFirst"),
                  steps.IsUp("NewGameInfo")),
      steps.Click("presses OK, and the board opens", steps.Control("NewGameInfo", "OKButtonS"),
                  steps.IsUp("MsgForm")),
      steps.Click("reads that he may set pieces up", steps.Control("MsgForm", "OKButtonS"),
                  steps.IsGone("MsgForm")),
      steps.Picture("21-setup", "Board"),
      steps.Click("presses Play without doing so", steps.Control("Board", "Toolbar1S_6"),
                  steps.BoardSays("Awaiting your move")),
  };
  scene += steps.ClickSquares("moves e2-e4", 52, 54);
  scene += {
      steps.Click("presses Send, and the computer answers", steps.Control("Board", "Toolbar1S_4"),
                  steps.BoardHasMoves(2)),
      steps.Picture("22-computer-game", "Board"),
      steps.Click("closes the board", steps.Control("Board", "Toolbar1S_7"),
                  steps.IsUp("GameInterface")),
  };
  return scene;
}

}  // namespace

std::vector<Step> AnnasPart(const Steps& steps) {
  std::vector<Step> part = AnnaBegins(steps);
  const auto sendAndRest = [&](const char* told) {
    part += Send(steps, told);
    part.push_back(steps.LetHandsGo());
  };
  sendAndRest("sends the move");
  part += AnnaReplies(steps, "09-notification-of-anna", "moves Bf1-c4", 61, 34);
  sendAndRest("sends the move");
  part += AnnaReplies(steps, "12-notification-with-comment", "moves Qd1-h5", 41, 85);
  sendAndRest("sends the move");
  part += AnnaReplies(steps, "14-notification-of-anna", "takes on f7 with the queen", 85, 67);
  part += ReadTheEnd(steps, "15-won", "OkButton");
  part.push_back(steps.Picture("15-mating-move", "Board"));
  sendAndRest("sends the move, which mates");
  part += AnnaEnds(steps);
  return part;
}

std::vector<Step> BobsPart(const Steps& steps) {
  std::vector<Step> part{
      steps.WaitFor("has started the program; it sits in the tray", steps.TipSays("Nothing new"))};
  for (const auto scene : {BobPlaysFromTheTray, BobPlaysFromTheList, BobPlaysAtOnce}) {
    part += scene(steps);
    part.push_back(steps.LetHandsGo());
  }
  part += BobIsMated(steps);
  return part;
}

std::vector<Step> PlainPart(const Steps& steps) {
  std::vector<Step> part{
      steps.Click("has chosen the plain look, and clicks the icon in the tray", steps.TrayIcon(),
                  steps.IsUp("GameInterface")),
      steps.Picture("19-plain-game-list", "GameInterface"),
      steps.Click("presses Play", steps.Control("GameInterface", "Toolbar1S_1"),
                  steps.IsUp("Board")),
  };
  part += ReadTheEnd(steps, "19-plain-message", "OKButtonS");
  part += {
      steps.Picture("20-plain-board", "Board"),
      steps.Click("closes the board", steps.Control("Board", "Toolbar1S_7"),
                  steps.IsUp("GameInterface")),
  };
  part += BobPlaysTheComputer(steps);
  part += {
      steps.Click("opens the File menu", steps.Control("GameInterface", "FileMenu_L"),
                  steps.IsUp("mnuIntFileMenu")),
      steps.Picture("23-plain-file-menu", "mnuIntFileMenu"),
      steps.Click("chooses Exit Tarvolenix", steps.Entry("mnuIntFileMenu", "Exit Tarvolenix")),
  };
  return part;
}

}  // namespace demo

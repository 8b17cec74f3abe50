// SPDX-License-Identifier: GPL-3.0-or-later
// What the tray shows: its icon and tip, and the state of its menu. A program that doesn't live in
// the tray shows the same on its game list window.
#pragma once

#include <string>

#include "platform/tray.h"

namespace shell {

/// The picture within a set of tray icons, from 1.
enum TrayKind { NothingNew = 1, NewMove = 2, NotConnected = 3 };

/// Sends icon and tip to the tray, or in a program that doesn't live there to the game list window.
void SetTrayIcon(platform::TrayOperation operation, int kind, const std::string& tip);

/// True where a game waits for the user's move, one against the computer if the settings want so.
bool AnyNewArrivals();

/// Works out kind and tip from the connection and the game file, and sends them.
void UpdateTrayStatus(platform::TrayOperation operation);

/// From now on the games against the computer count, or don't, and the tray shows it.
void CountComputerGames(bool count);

void RemoveTrayIcon();

/// An entry of the tray's menu that can be disabled.
struct TrayMenuEntry {
  bool enabled = false;
  std::string whyNot;  ///< a sentence, where it isn't
};

/// The changing entries of the tray's menu as they are right now. All are off while a dialog or a
/// board holds polling.
struct TrayMenuState {
  TrayMenuEntry open;     ///< "&Open"
  TrayMenuEntry newGame;  ///< "&New game..."
  TrayMenuEntry deliver;  ///< "&Deliver now"
  TrayMenuEntry others;   ///< all those that are always there
  bool games = false;     ///< "&Games" is visible
  std::string retrieveCaption;
};

TrayMenuState TrayMenu();

}  // namespace shell

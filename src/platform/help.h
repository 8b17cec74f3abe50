// SPDX-License-Identifier: GPL-3.0-or-later
// The seam to the viewer of the program's help file. The class itself shows nothing.
#pragma once

namespace platform {

/// The places of the help file that the windows ask for.
enum HelpContext {
  HelpContents = 1,
  HelpOfGameList = 3,
  HelpOfBoard = 5,
  HelpOfPrintedBoards = 12,
  HelpOfPrintedMoves = 13,
  HelpOfTray = 14,
  HelpOfNewGame = 15,
  HelpOfImport = 16,
  HelpOfSounds = 17,
  HelpOfAddressBook = 18,
  HelpOfAccount = 19,
  HelpOfHeldMail = 20,
  HelpOfSkins = 21,
};

class Help {
 public:
  virtual ~Help() = default;

  virtual void ShowHelp(int /*context*/) {}
  virtual void ShowHelpIndex() {}
  virtual void CloseHelp() {}
};

}  // namespace platform

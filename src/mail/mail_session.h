// SPDX-License-Identifier: GPL-3.0-or-later
// The life of the mail session, with a guard against a mail service that brings the program down
// while it logs on: the setting LogonStatus stands from just before the call until just after it,
// however that ends, and a logon that finds it standing leaves the program offline. All processes
// of a player share the flag: "logon.lock" in the data folder, held meanwhile, tells a crash from a
// process that just logs on.
//
// A retrieve that the user asks for is the way out of that guard: its entry (the tray's, and where
// there is no tray the game list's or the console's) calls SetLogonStatus(false) first.
#pragma once

#include <string>
#include <vector>

#include "mail/received_game.h"

namespace mail {

/// Starts or finds a session, and sends what earlier runs didn't come to; Offline then tells
/// whether there is one. The user hears of the guard always, of a plain failure with `showStatus`
/// only. Takes the status popup down in any case, also one that the caller has put up. Holds
/// polling meanwhile.
void MailLogon(bool showStatus);

/// Tells the user why his mail service can't be used, with a button for a new sign-in where that
/// mends it. True where he has signed in anew, and a logon is worth another try.
bool TellOfNetworkError(const std::string& text);

/// Takes the guard of a crash down. That of another process that just logs on stays.
void ForgetEarlierCrash();

void MailLogoff(bool showStatus);

/// Logs on and takes what has come in: with `importFile` a file that the user picks, else the
/// Inbox (read mails too with `fetchAll`), or the waiting move files of a stand-alone program.
/// Answers what became of each mail or file.
std::vector<MoveArrival> LogonAndCollect(bool importFile, bool showStatus, bool fetchAll);

}  // namespace mail

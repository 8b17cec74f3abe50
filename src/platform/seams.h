// SPDX-License-Identifier: GPL-3.0-or-later
// The record of all seams to the desktop. The program's main installs the real ones, a test its
// recorders; nobody else writes here. The record owns nothing.
#pragma once

#include "platform/address_book.h"
#include "platform/clock.h"
#include "platform/events.h"
#include "platform/files.h"
#include "platform/help.h"
#include "platform/mail_client.h"
#include "platform/mail_state.h"
#include "platform/message_boxes.h"
#include "platform/move_pages.h"
#include "platform/notices.h"
#include "platform/printing.h"
#include "platform/screen.h"
#include "platform/session_start.h"
#include "platform/settings_store.h"
#include "platform/shell_hooks.h"
#include "platform/sounds.h"
#include "platform/tray.h"
#include "platform/windows.h"

namespace platform {

/// What a program has in the place of windows, tray, printers, help and a session that aren't
/// there.
inline Help noHelp;
inline Printers noPrinters;
inline SessionStart noSessionStart;
inline Tray noTray;
inline Windows noWindows;

struct Seams {
  MAPISession* MSess = nullptr;
  MAPIMessages* MMess = nullptr;
  MailState* mailState = &noMailState;
  MovePages* movePages = &noMovePages;
  Notices* notices = &noNotices;
  AddressBook* addressBook = nullptr;
  SettingsStore* settings = nullptr;
  MessageBoxes* messageBoxes = nullptr;
  Sounds* sounds = nullptr;
  Clock* clock = nullptr;
  Events* events = nullptr;
  Files* files = nullptr;
  Help* help = &noHelp;
  Printers* printers = &noPrinters;
  Screen* screen = nullptr;
  SessionStart* sessionStart = &noSessionStart;
  Tray* tray = &noTray;
  Windows* windows = &noWindows;
  ShellHooks hooks;
};

Seams& TheSeams();

inline Files& TheFiles() { return *TheSeams().files; }
inline Windows& TheWindows() { return *TheSeams().windows; }

}  // namespace platform

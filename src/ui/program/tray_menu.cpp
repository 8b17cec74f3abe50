// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/program/tray_menu.h"

#include <QApplication>
#include <QTimer>

#include "platform/process_state.h"
#include "platform/seams.h"
#include "platform/setting_variables.h"
#include "shell/mail_watch.h"
#include "shell/tray_games.h"
#include "shell/tray_status.h"
#include "widgets/front_window.h"
#include "widgets/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;
using platform::Process;

namespace {

constexpr int widestEntryPart = 320;

bool IsHeld() {
  if (!Process().CheckTimerHeld) return false;
  BringActiveWindowToFront();
  QApplication::beep();
  return true;
}

QAction* AddEntry(QMenu& menu, const char* name, const QString& caption,
                  const std::function<void()>& action) {
  QAction* entry = menu.addAction(caption, [action] {
    if (action && !IsHeld()) action();
  });
  entry->setObjectName(QLatin1StringView(name));
  return entry;
}

/// With why it can't be chosen, as its tip.
void SetEnabled(QAction& entry, const shell::TrayMenuEntry& state) {
  entry.setEnabled(state.enabled);
  entry.setToolTip(Shown(state.whyNot));
}

/// Names are not the menu's own text: an "&" in them marks no key, and a long one is cut.
QString EntryText(const std::string& text, const QMenu& menu) {
  const QString fitting =
      menu.fontMetrics().elidedText(ShownLine(text), Qt::ElideRight, widestEntryPart);
  return QString(fitting).replace(u"&"_s, u"&&"_s);
}

/// Opponent and title; only the tab between them parts the columns of the menu.
QString CaptionOf(const std::string& caption, const QMenu& menu) {
  const std::size_t tab = caption.find("\t\"");
  if (tab == std::string::npos) return EntryText(caption, menu);
  return EntryText(caption.substr(0, tab), menu) + u'\t' + EntryText(caption.substr(tab + 1), menu);
}

}  // namespace

TrayMenu::TrayMenu(const TrayMenuActions& actions)
    : playGame_(actions.playGame),
      open_(AddEntry(*this, "mnuPopupOpen", u"&Open"_s, actions.open)),
      newGame_(AddEntry(*this, "mnuPopupNewGame", u"&New game..."_s, actions.newGame)),
      games_(addMenu(u"&Games"_s)) {
  setObjectName(u"mnuPopup"_s);
  games_->setObjectName(u"mnuPopupGameList"_s);
  addSeparator();
  retrieve_ = AddEntry(*this, "mnuPopupRetrieve", u"&Retrieve games"_s, actions.retrieve);
  deliver_ = AddEntry(*this, "mnuPopupDeliver", u"&Deliver now"_s, [] { shell::DeliverNow(); });
  account_ = AddEntry(*this, "mnuPopupAccount", u"Mail account..."_s, actions.changeAccount);
  heldMails_ =
      AddEntry(*this, "mnuPopupHeldMails", u"Mails set aside..."_s, actions.askAboutHeldMails);
  options_ = AddEntry(*this, "mnuPopupOptions", u"O&ptions..."_s, actions.openOptions);
  AddHelp(actions.about);
  addSeparator();
  exit_ = AddEntry(*this, "mnuPopupExit", u"E&xit"_s, actions.exit);
  setDefaultAction(open_);
  connect(this, &QMenu::aboutToShow, this, &TrayMenu::Refresh);
}

void TrayMenu::AddHelp(const std::function<void()>& about) {
  const auto showContext = [](int context) {
    return [context] { platform::TheSeams().help->ShowHelp(context); };
  };
  QMenu& help = *addMenu(u"Help"_s);
  help.setObjectName(u"mnuPopupHelpMenu"_s);
  AddEntry(help, "mnuPopupHelp", u"&Help"_s, showContext(platform::HelpOfTray));
  AddEntry(help, "mnuPopupContents", u"Help &Contents..."_s, showContext(platform::HelpContents));
  AddEntry(help, "mnuPopupTopics", u"Help &Topics"_s,
           [] { platform::TheSeams().help->ShowHelpIndex(); });
  help.addSeparator();
  AddEntry(help, "mnuPopupAbout", u"&About..."_s, about);
}

void TrayMenu::showEvent(QShowEvent* event) {
  QMenu::showEvent(event);
  // The desktop has opened it already: it goes away at once.
  if (IsHeld()) {
    QTimer::singleShot(0, this, &QWidget::hide);
  } else {
    Process().TrayMenuOpen = true;
  }
}

void TrayMenu::hideEvent(QHideEvent* event) {
  Process().TrayMenuOpen = false;
  QMenu::hideEvent(event);
}

void TrayMenu::Refresh() {
  const shell::TrayMenuState state = shell::TrayMenu();
  setToolTipsVisible(platform::Settings().ShowToolTips);
  SetEnabled(*open_, state.open);
  SetEnabled(*newGame_, state.newGame);
  SetEnabled(*deliver_, state.deliver);
  retrieve_->setText(Shown(state.retrieveCaption));
  games_->menuAction()->setVisible(state.games);
  for (QAction* entry : {games_->menuAction(), retrieve_, account_, heldMails_, options_, exit_}) {
    SetEnabled(*entry, state.others);
  }
}

void TrayMenu::BuildGames() {
  const auto entries = shell::NewTrayGameEntries(gameFileStamp_);
  if (!entries) return;
  games_->clear();
  for (const shell::TrayGameEntry& entry : *entries) {
    if (entry.kind == shell::TrayGameEntry::Separator) {
      games_->addSeparator();
      continue;
    }
    QAction* action = games_->addAction(CaptionOf(entry.caption, *games_));
    action->setObjectName(u"mnuPopupGameListItem"_s);
    action->setEnabled(entry.kind == shell::TrayGameEntry::Game);
    connect(action, &QAction::triggered, this, [this, id = entry.gameID] {
      if (!IsHeld()) playGame_(id);
    });
  }
}

}  // namespace ui

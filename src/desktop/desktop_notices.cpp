// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/desktop_notices.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QVariantMap>

#include <utility>

#include "desktop/activation.h"

namespace desktop {

using namespace Qt::StringLiterals;
using platform::NotifyChoice;

namespace {

constexpr auto service = "org.freedesktop.Notifications"_L1;
constexpr auto object = "/org/freedesktop/Notifications"_L1;

constexpr uint inTheOldOnesPlace = 0;  // that one is closed
constexpr int asLongAsTheDesktopLikes = -1;

struct Action {
  QLatin1StringView key;
  QLatin1StringView caption;
  NotifyChoice choice;
};

/// A click on the notice itself, where the desktop tells of it, means to see the move.
constexpr Action actions[] = {{"default"_L1, "Play"_L1, NotifyChoice::Play},
                              {"play"_L1, "Play"_L1, NotifyChoice::Play},
                              {"later"_L1, "Later"_L1, NotifyChoice::Later}};

QDBusMessage Call(QLatin1StringView method, const QVariantList& arguments) {
  QDBusMessage call = QDBusMessage::createMethodCall(service, object, service, method);
  call.setArguments(arguments);
  return call;
}

/// What comes by mail may look like markup, which only the text can hold.
QVariantList NotifyArguments(const platform::Notice& notice, bool showsMarkup) {
  const QString text = QString::fromStdString(notice.text);
  QStringList offered;
  for (const Action& action : actions) offered << action.key << action.caption;
  return {u"Tarvolenix"_s,
          inTheOldOnesPlace,
          u"tarvolenix"_s,  // its icon
          QString::fromStdString(notice.title),
          showsMarkup ? text.toHtmlEscaped() : text,
          offered,
          QVariantMap{{u"desktop-entry"_s, u"tarvolenix"_s}},
          asLongAsTheDesktopLikes};
}

}  // namespace

DesktopNotices::~DesktopNotices() { Withdraw(); }

bool DesktopNotices::ReachesBus() {
  if (bus_.isConnected()) return true;
  bus_ = QDBusConnection::sessionBus();
  showsMarkup_.reset();
  if (!bus_.isConnected()) return false;
  bus_.connect(service, object, service, u"ActionInvoked"_s, this, SLOT(TakeAction(uint, QString)));
  bus_.connect(service, object, service, u"ActivationToken"_s, this,
               SLOT(TakeToken(uint, QString)));
  bus_.connect(service, object, service, u"NotificationClosed"_s, this, SLOT(Forget(uint, uint)));
  const auto* daemon =
      new QDBusServiceWatcher(service, bus_, QDBusServiceWatcher::WatchForOwnerChange, this);
  connect(daemon, &QDBusServiceWatcher::serviceOwnerChanged, this, &DesktopNotices::ForgetDaemon);
  return true;
}

void DesktopNotices::Show(const platform::Notice& notice, const Answered& answered) {
  Withdraw();
  if (!ReachesBus()) return;
  answered_ = answered;
  if (showsMarkup_) return Send(notice);
  AskWhatItShows(notice);
}

QDBusPendingCallWatcher* DesktopNotices::Await(const QDBusMessage& call) {
  coming_ = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
  return coming_;
}

void DesktopNotices::AskWhatItShows(const platform::Notice& notice) {
  const auto take = [this, notice](QDBusPendingCallWatcher* call) {
    call->deleteLater();
    const QDBusPendingReply<QStringList> reply = *call;
    if (!reply.isError()) showsMarkup_ = reply.value().contains(u"body-markup"_s);
    if (call == coming_) Send(notice);
  };
  connect(Await(Call("GetCapabilities"_L1, {})), &QDBusPendingCallWatcher::finished, this, take);
}

void DesktopNotices::Send(const platform::Notice& notice) {
  // Who doesn't tell might take it for markup.
  const auto arguments = NotifyArguments(notice, showsMarkup_.value_or(true));
  connect(Await(Call("Notify"_L1, arguments)), &QDBusPendingCallWatcher::finished, this,
          &DesktopNotices::TakeNumber);
}

void DesktopNotices::TakeNumber(QDBusPendingCallWatcher* call) {
  call->deleteLater();
  const QDBusPendingReply<uint> reply = *call;
  const uint number = reply.isError() ? 0 : reply.value();
  if (call == coming_) {
    coming_ = nullptr;
    number_ = number;
  } else if (number != 0) {
    bus_.send(Call("CloseNotification"_L1, {number}));
  }
}

void DesktopNotices::Withdraw() {
  answered_ = nullptr;
  coming_ = nullptr;  // closed as soon as its number is known
  if (const uint number = std::exchange(number_, 0)) {
    bus_.send(Call("CloseNotification"_L1, {number}));
  }
}

/// Comes ahead of the action that it belongs to.
void DesktopNotices::TakeToken(uint number, const QString& token) {
  if (number_ != 0 && number == number_) LetNextWindowComeToFront(token.toUtf8());
}

void DesktopNotices::TakeAction(uint number, const QString& action) {
  if (number_ == 0 || number != number_) return;
  for (const Action& offered : actions) {
    if (action != offered.key) continue;
    // What is answered may show the next one.
    const Answered answered = std::exchange(answered_, nullptr);
    Withdraw();
    if (answered) answered(offered.choice);
    return;
  }
}

/// What it has shown is gone. The next one begins its numbers anew, also for other programs.
void DesktopNotices::ForgetDaemon() {
  showsMarkup_.reset();
  Forget(number_, 0);
}

void DesktopNotices::Forget(uint number, uint /*reason*/) {
  if (number == 0 || number != number_) return;
  number_ = 0;
  answered_ = nullptr;
}

}  // namespace desktop

// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/tray_host.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusVariant>
#include <QGuiApplication>
#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <string>

namespace desktop {

using namespace Qt::StringLiterals;

namespace {

constexpr auto watcher = "org.kde.StatusNotifierWatcher"_L1;
constexpr int watcherPatience = 300;  // milliseconds

template <typename Reply>
using Owned = std::unique_ptr<Reply, decltype(&std::free)>;

bool IsOnTheBus() {
  QDBusMessage question = QDBusMessage::createMethodCall(
      watcher, u"/StatusNotifierWatcher"_s, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
  question << QString(watcher) << u"IsStatusNotifierHostRegistered"_s;
  question.setAutoStartService(false);  // it would be one without a host
  const QDBusReply<QDBusVariant> reply =
      QDBusConnection::sessionBus().call(question, QDBus::Block, watcherPatience);
  return reply.isValid() && reply.value().variant().toBool();
}

int NumberOfScreen() {
  char* host = nullptr;
  int display = 0, screen = 0;
  if (!xcb_parse_display(nullptr, &host, &display, &screen)) return 0;
  std::free(host);
  return screen;
}

/// Each screen has a selection for it, whose owner shows the icons.
bool IsOnTheXServer() {
  if (QGuiApplication::platformName() != u"xcb"_s) return false;
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  if (!x11) return false;
  xcb_connection_t* server = x11->connection();
  const std::string name = "_NET_SYSTEM_TRAY_S" + std::to_string(NumberOfScreen());
  const auto asked =
      xcb_intern_atom(server, 1, static_cast<std::uint16_t>(name.size()), name.data());
  const Owned<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(server, asked, nullptr),
                                            &std::free);
  if (!atom || atom->atom == XCB_ATOM_NONE) return false;
  const Owned<xcb_get_selection_owner_reply_t> owner(
      xcb_get_selection_owner_reply(server, xcb_get_selection_owner(server, atom->atom), nullptr),
      &std::free);
  return owner && owner->owner != XCB_WINDOW_NONE;
}

}  // namespace

// The bus may keep its caller waiting.
bool TrayHostIsThere() { return IsOnTheXServer() || IsOnTheBus(); }

}  // namespace desktop

// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/composited_screen.h"

#include <QGuiApplication>
#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace ui {

using namespace Qt::StringLiterals;

namespace {

/// On an X screen a compositing manager owns the selection that is named for it.
bool HasCompositor(xcb_connection_t* connection) {
  constexpr const char* name = "_NET_WM_CM_S0";
  using Atom = std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)>;
  using Owner = std::unique_ptr<xcb_get_selection_owner_reply_t, decltype(&std::free)>;
  const Atom atom(
      xcb_intern_atom_reply(
          connection,
          xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(std::strlen(name)), name),
          nullptr),
      &std::free);
  if (!atom) return false;
  const Owner owner(xcb_get_selection_owner_reply(
                        connection, xcb_get_selection_owner(connection, atom->atom), nullptr),
                    &std::free);
  return owner && owner->owner != XCB_WINDOW_NONE;
}

}  // namespace

bool ScreenIsComposited() {
  const QString platform = QGuiApplication::platformName();
  if (platform != u"xcb"_s) return platform.startsWith(u"wayland"_s);
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  return x11 && HasCompositor(x11->connection());
}

}  // namespace ui

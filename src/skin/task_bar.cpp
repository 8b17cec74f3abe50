// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/task_bar.h"

#include <QGuiApplication>
#include <xcb/xcb.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <vector>

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr std::uint32_t mostValues = 4096;

template <typename Reply>
using Owned = std::unique_ptr<Reply, decltype(&std::free)>;

/// What the window manager and the panels have written on the X server.
class Desktop {
 public:
  explicit Desktop(xcb_connection_t* connection)
      : connection_(connection),
        root_(xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root) {}

  /// By the window manager, of windows that have become icons.
  bool HidesWindows() const {
    return Holds(Values(root_, "_NET_SUPPORTED", XCB_ATOM_ATOM), Atom("_NET_WM_STATE_HIDDEN"));
  }

  bool HasPanel() const {
    const std::uint32_t panel = Atom("_NET_WM_WINDOW_TYPE_DOCK");
    const auto windows = Values(root_, "_NET_CLIENT_LIST", XCB_ATOM_WINDOW);
    return std::any_of(windows.begin(), windows.end(), [&](xcb_window_t window) {
      return Holds(Values(window, "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM), panel);
    });
  }

 private:
  static bool Holds(const std::vector<std::uint32_t>& values, std::uint32_t value) {
    return value != XCB_ATOM_NONE && std::find(values.begin(), values.end(), value) != values.end();
  }

  std::uint32_t Atom(std::string_view name) const {
    const auto asked =
        xcb_intern_atom(connection_, 1, static_cast<std::uint16_t>(name.size()), name.data());
    const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection_, asked, nullptr),
                                               &std::free);
    return reply ? reply->atom : std::uint32_t{XCB_ATOM_NONE};
  }

  std::vector<std::uint32_t> Values(xcb_window_t window, std::string_view name,
                                    xcb_atom_t type) const {
    const auto asked = xcb_get_property(connection_, 0, window, Atom(name), type, 0, mostValues);
    const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection_, asked, nullptr),
                                                &std::free);
    if (!reply || reply->format != 32) return {};
    const auto* values = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {values, values + xcb_get_property_value_length(reply.get()) / sizeof(*values)};
  }

  xcb_connection_t* connection_;
  xcb_window_t root_;
};

}  // namespace

bool TaskBarShowsWindows() {
  if (QGuiApplication::platformName() != u"xcb"_s) return true;
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  if (!x11) return true;
  const Desktop desktop(x11->connection());
  return desktop.HidesWindows() && desktop.HasPanel();
}

}  // namespace ui

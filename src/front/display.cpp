// SPDX-License-Identifier: GPL-3.0-or-later
#include "front/display.h"

#include <QDir>
#include <QLibraryInfo>
#include <sys/stat.h>
#include <xcb/xcb.h>

#include <cstdlib>
#include <string>

namespace front {

namespace {

std::string Variable(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

/// The toolkit may lack its part for that.
bool KnowsWayland() {
  const QDir plugins(QLibraryInfo::path(QLibraryInfo::PluginsPath) + QStringLiteral("/platforms"));
  return !plugins.entryList({QStringLiteral("libqwayland*")}, QDir::Files).isEmpty();
}

bool WaylandIsThere() {
  std::string socket = Variable("WAYLAND_DISPLAY");
  if (socket.empty()) return false;
  if (!socket.starts_with('/')) socket.insert(0, Variable("XDG_RUNTIME_DIR") + "/");
  struct stat status = {};
  return ::stat(socket.c_str(), &status) == 0 && S_ISSOCK(status.st_mode) && KnowsWayland();
}

bool XServerIsThere() {
  xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
  const bool isThere = xcb_connection_has_error(connection) == 0;
  xcb_disconnect(connection);
  return isThere;
}

}  // namespace

bool DisplayIsThere() {
  const std::string chosen = Variable("QT_QPA_PLATFORM");
  const auto names = [&chosen](const char* kind) { return chosen.find(kind) != std::string::npos; };
  const bool isOpen = chosen.empty();
  // Whoever names another kind of screen knows what he does.
  if (!isOpen && !names("xcb") && !names("wayland")) return true;
  return ((isOpen || names("wayland")) && WaylandIsThere()) ||
         ((isOpen || names("xcb")) && XServerIsThere());
}

}  // namespace front

// SPDX-License-Identifier: GPL-3.0-or-later
#include "front/display.h"

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

bool WaylandIsThere() {
  std::string socket = Variable("WAYLAND_DISPLAY");
  if (socket.empty()) return false;
  if (!socket.starts_with('/')) socket.insert(0, Variable("XDG_RUNTIME_DIR") + "/");
  struct stat status = {};
  return ::stat(socket.c_str(), &status) == 0 && S_ISSOCK(status.st_mode);
}

bool XServerIsThere() {
  xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
  const bool isThere = xcb_connection_has_error(connection) == 0;
  xcb_disconnect(connection);
  return isThere;
}

}  // namespace

bool DisplayIsThere() {
  // Whoever names another kind of screen knows what he does.
  const std::string chosen = Variable("QT_QPA_PLATFORM");
  if (!chosen.empty() && !chosen.starts_with("xcb") && !chosen.starts_with("wayland")) return true;
  return WaylandIsThere() || XServerIsThere();
}

}  // namespace front

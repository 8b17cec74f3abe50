// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/failed_opening.h"

#include <system_error>

#include "platform/messages.h"
#include "platform/windows.h"

namespace shell {
namespace {

/// Only the system numbers its errors.
int NumberOf(const std::exception& error) {
  const auto* system = dynamic_cast<const std::system_error*>(&error);
  return system ? system->code().value() : 0;
}

}  // namespace

void ReportAutomationError() {
  platform::ShowMessage(
      platform::ErrorIcon, "Automation error",
      "There is a problem with Windows and OLE Automation.  Please visit https://www.debian.org or "
      "my website and download and install either DCOM95 for Windows 95 or DCOM98 for Windows 98.",
      "Ok");
}

void ReportFailedOpening(const std::exception& error, const std::string& window) {
  if (dynamic_cast<const platform::WindowError*>(&error)) {
    ReportAutomationError();
    return;
  }
  platform::ShowMessage(platform::ErrorIcon, "Options error",
                        "The following error prevented " + window + " from opening:||" +
                            std::to_string(NumberOf(error)) + ": " + error.what(),
                        "OK");
}

}  // namespace shell

// SPDX-License-Identifier: GPL-3.0-or-later
// How a window that can't be opened is reported.
#pragma once

#include <exception>
#include <string>

namespace shell {

/// The desktop can't make windows as it should.
void ReportAutomationError();

/// `window` is called as in "the game board". An error of the desktop is told as such.
void ReportFailedOpening(const std::exception& error, const std::string& window);

}  // namespace shell

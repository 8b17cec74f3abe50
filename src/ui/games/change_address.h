// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog for an opponent's address.
#pragma once

#include <optional>
#include <string>

namespace ui {

/// Modal. Nothing where the user cancelled.
std::optional<std::string> AskForAddress(const std::string& name, const std::string& address);

}  // namespace ui

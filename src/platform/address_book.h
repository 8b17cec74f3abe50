// SPDX-License-Identifier: GPL-3.0-or-later
// The seam to the user's address book: the people he has played with, and those he has written into
// it or imported.
#pragma once

#include <string>
#include <vector>

namespace platform {

struct Person {
  std::string name;
  std::vector<std::string> addresses;
};

}  // namespace platform

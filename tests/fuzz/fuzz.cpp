// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/fuzz.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  TryInput({reinterpret_cast<const char*>(data), size});
  return 0;
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/fingerprint.h"

#include <cstdint>

namespace platform {

std::string Fingerprint(std::string_view bytes) {
  // FNV-1a, 64 bits (Fowler, Noll, Vo).
  std::uint64_t hash = 14695981039346656037U;
  for (const char c : bytes) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
  std::string digits(16, '0');
  for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit, hash >>= 4) {
    *digit = "0123456789abcdef"[hash & 15];
  }
  return digits;
}

}  // namespace platform

// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/accounts/local_address.h"

#include "platform/mail_client.h"

namespace post {

std::string LocalAddress(std::string_view address) {
  const auto first = address.find_first_not_of(' ');
  if (first == std::string_view::npos) throw platform::MailError("no address");
  const std::string trimmed(address.substr(first, address.find_last_not_of(' ') - first + 1));
  return trimmed.find('@') == std::string::npos ? trimmed + "@localhost" : trimmed;
}

std::string FileNameOf(std::string_view text) {
  constexpr std::string_view plain = "abcdefghijklmnopqrstuvwxyz0123456789@.+_-";
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string name;
  for (const char c : text) {
    const bool hiding = c == '.' && name.empty();
    if (plain.find(c) != std::string_view::npos && !hiding) {
      name += c;
    } else {
      const auto code = static_cast<unsigned char>(c);
      name += {'%', digits[code >> 4], digits[code & 15]};
    }
  }
  return name;
}

std::string BoxName(std::string_view address) {
  std::string local = LocalAddress(address);
  for (char& c : local) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return FileNameOf(local);
}

}  // namespace post

// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/accounts/domain_names.h"

#include "platform/ascii.h"

namespace post {

std::string DomainOf(std::string_view address) {
  const auto at = address.rfind('@');
  return at == std::string_view::npos ? std::string{} : platform::Lowered(address.substr(at + 1));
}

bool IsWithin(std::string_view host, std::string_view domain) {
  if (host.size() < domain.size()) return false;
  const std::size_t start = host.size() - domain.size();
  return platform::SameWithoutCase(host.substr(start), domain) &&
         (start == 0 || host[start - 1] == '.');
}

bool IsServerName(std::string_view text) {
  return text.size() <= 253 && text.find('.') != std::string_view::npos && text.front() != '.' &&
         platform::Lowered(text).find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789-_.") ==
             std::string::npos;
}

}  // namespace post

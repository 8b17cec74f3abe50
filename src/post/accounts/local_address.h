// SPDX-License-Identifier: GPL-3.0-or-later
// Addresses where no server is, and an address as a name on the disk.
#pragma once

#include <string>
#include <string_view>

namespace post {

/// `address` without blanks around it. A name without "@" is one of this machine's users. Raises
/// MailError for a blank address.
std::string LocalAddress(std::string_view address);

/// Any text as a file's name: all but small letters, digits and "@.+_-" as "%" and two hexadecimal
/// digits. It is never a path and never hidden.
std::string FileNameOf(std::string_view text);

/// The local address as a folder's name, in lower case: an address doesn't tell cases apart.
std::string BoxName(std::string_view address);

}  // namespace post

// SPDX-License-Identifier: GPL-3.0-or-later
// Which of a server's folders is for what: the one that the server calls so itself (RFC 6154), else
// one with a usual name. Nothing where there is none.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "post/servers/imap_client.h"

namespace post {

using Folders = std::vector<ImapClient::Folder>;

std::optional<std::string> SentFolder(const Folders& folders);
std::optional<std::string> JunkFolder(const Folders& folders);
std::optional<std::string> TrashFolder(const Folders& folders);

}  // namespace post

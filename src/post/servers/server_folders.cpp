// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/servers/server_folders.h"

#include <algorithm>
#include <initializer_list>
#include <string_view>

#include "platform/ascii.h"

namespace post {
namespace {

using Names = std::initializer_list<std::string_view>;

std::optional<std::string> FolderFor(const Folders& folders, std::string_view flag, Names names) {
  for (const auto& folder : folders) {
    const auto isIt = [flag](const auto& own) { return platform::SameWithoutCase(own, flag); };
    if (std::any_of(folder.flags.begin(), folder.flags.end(), isIt)) return folder.name;
  }
  for (const std::string_view name : names) {
    for (const auto& folder : folders) {
      if (platform::SameWithoutCase(folder.leaf, name)) return folder.name;
    }
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::string> SentFolder(const Folders& folders) {
  return FolderFor(folders, "\\Sent",
                   {"Sent", "Sent Items", "Sent Messages", "Sent Mail", "Gesendet"});
}

std::optional<std::string> JunkFolder(const Folders& folders) {
  return FolderFor(
      folders, "\\Junk",
      {"Junk", "Spam", "Junk E-mail", "Junk-E-Mail", "Bulk", "Bulk Mail", "Spamverdacht"});
}

std::optional<std::string> TrashFolder(const Folders& folders) {
  return FolderFor(folders, "\\Trash",
                   {"Trash", "Deleted Items", "Deleted Messages", "Deleted", "Papierkorb"});
}

}  // namespace post

// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/whole_file.h"

#include <exception>

#include "platform/seams.h"

namespace platform {

void ReplaceFile(const std::string& path, std::string_view content, std::string unfinished) {
  Files& files = *TheSeams().files;
  if (unfinished.empty()) unfinished = path + ".new";
  try {
    files.Write(unfinished, content);
    files.Rename(unfinished, path);
  } catch (const std::exception&) {
    try {
      if (files.Exists(unfinished)) files.Remove(unfinished);
    } catch (const std::exception&) {
      // It stays behind, and the next one replaces it.
    }
    throw;
  }
}

}  // namespace platform

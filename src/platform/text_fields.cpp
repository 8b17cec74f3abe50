// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text_fields.h"

#include <algorithm>
#include <cassert>

namespace platform {

int CountFields(std::string_view text, char delimiter) {
  if (text.empty()) return 0;
  return static_cast<int>(std::count(text.begin(), text.end(), delimiter)) + 1;
}

std::string_view GetField(std::string_view text, int n, char delimiter) {
  FieldWalk walk(text, delimiter);
  std::string_view field = walk.Next();
  for (int i = 1; i < n; ++i) field = walk.Next();
  return field;
}

std::string_view FieldWalk::Next() {
  const auto end = rest_.find(delimiter_);
  const std::string_view field = rest_.substr(0, end);
  rest_ = end == std::string_view::npos ? std::string_view{} : rest_.substr(end + 1);
  return field;
}

std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view with) {
  assert(!what.empty());
  std::string result;
  result.reserve(text.size());
  for (std::size_t found = text.find(what); found != std::string_view::npos;
       found = text.find(what)) {
    result.append(text.substr(0, found)).append(with);
    text.remove_prefix(found + what.size());
  }
  return result.append(text);
}

}  // namespace platform

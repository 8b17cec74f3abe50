// SPDX-License-Identifier: GPL-3.0-or-later
// The text routines through which all "|"- and ";"-separated text of the program passes: the game
// file, move mails, board texts, selection strings and message texts. Fields have no escapes and no
// quoting; they count from 1.
#pragma once

#include <string>
#include <string_view>

namespace platform {

/// 0 for an empty text, else the number of delimiters plus 1: a text that ends in its delimiter
/// counts the empty field behind it.
int CountFields(std::string_view text, char delimiter);

/// The n-th field, counting from 1 (0 acts as 1). Empty where the text has no such field.
std::string_view GetField(std::string_view text, int n, char delimiter);

/// Walks the fields of one text from the first to the last, each character looked at once.
/// Yields what GetField yields for 1, 2, 3, ...; past the end every field is empty.
class FieldWalk {
 public:
  FieldWalk(std::string_view text, char delimiter) : rest_(text), delimiter_(delimiter) {}

  std::string_view Next();

 private:
  std::string_view rest_;
  char delimiter_;
};

/// `text` with every occurrence of `what` replaced by `with`. `what` must not be empty.
std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view with);

}  // namespace platform

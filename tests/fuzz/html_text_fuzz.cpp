// SPDX-License-Identifier: GPL-3.0-or-later
// HTML mails turned into text: what is escaped as it should be comes out as it was.
#include "fuzz/fuzz.h"
#include "letters/html_text.h"
#include "platform/text_fields.h"

void TryInput(std::string_view input) {
  using platform::ReplaceAll;
  letters::HtmlToText(input);
  const std::string text = ReplaceAll(input, "\u00A0", " ");
  const std::string escaped = ReplaceAll(ReplaceAll(text, "&", "&amp;"), "<", "&lt;");
  Require(letters::HtmlToText("<pre>" + escaped) == text);
}

// SPDX-License-Identifier: GPL-3.0-or-later
// The parts of a mail that goes out: its text, and beside it a page for people. A part is the
// header fields that describe it, a blank line and its content.
#pragma once

#include <string>
#include <string_view>

#include "letters/mail_text.h"
#include "platform/move_pages.h"

namespace letters {

/// The text stands there as it is where that may be, and as quoted-printable elsewhere. `subtype`
/// is "plain" or "html".
std::string TextPart(std::string_view subtype, const std::string& text, Lines lines);

/// The text's part and the page as alternatives, so that each reader takes what it knows to show;
/// the text's part alone where there is no page.
std::string WithPage(const std::string& textPart, const platform::MovePage& page, Lines lines);

}  // namespace letters

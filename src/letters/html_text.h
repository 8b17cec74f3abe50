// SPDX-License-Identifier: GPL-3.0-or-later
// The plain text of a mail that came as HTML only.
#pragma once

#include <string>
#include <string_view>

namespace letters {

/// Drops tags, comments, scripts and style sheets, resolves character references and begins a line
/// where a block does. `html` is UTF-8, and so is the result; what makes no sense stays as it is.
std::string HtmlToText(std::string_view html);

}  // namespace letters

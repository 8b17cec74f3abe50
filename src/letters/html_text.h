// SPDX-License-Identifier: GPL-3.0-or-later
// Text as HTML, and the plain text of a mail that came as HTML only.
#pragma once

#include <string>
#include <string_view>

namespace letters {

/// Drops tags, comments, scripts and style sheets, resolves character references and begins a line
/// where a block does. `html` is UTF-8, and so is the result; what makes no sense stays as it is.
std::string HtmlToText(std::string_view html);

/// `text`, which is UTF-8, as HTML in ASCII that reads the same: line ends break the line, and each
/// of several blanks counts.
std::string TextToHtml(std::string_view text);

}  // namespace letters

// SPDX-License-Identifier: GPL-3.0-or-later
// Which of the installed fonts prints diagrams.
#pragma once

#include <QString>

#include <string>

namespace desktop {

/// The family of the font for diagrams, or of the program's own, which has the same letters and
/// lies in the program folder. Empty where neither is there: its letters must not be printed then.
QString DiagramFamily();

/// What to tell the user in that case.
std::string DiagramFontMissing();

}  // namespace desktop

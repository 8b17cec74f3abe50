// SPDX-License-Identifier: GPL-3.0-or-later
// Printing into a PDF file.
#pragma once

#include <QString>

#include "platform/printing.h"

namespace desktop {

struct PdfOutcome {
  platform::PrintOutcome outcome;
  int pages = 0;
};

/// Needs an application with fonts. Where it fails, a file that was there before is as it was.
PdfOutcome WritePdf(const platform::Document& document, const QString& path);

}  // namespace desktop

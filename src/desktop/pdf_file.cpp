// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/pdf_file.h"

#include <QPdfWriter>
#include <QSaveFile>

#include "desktop/diagram_font.h"
#include "desktop/painted_pages.h"

namespace desktop {
namespace {

PdfOutcome Failure(const std::string& why) { return {{false, why}}; }

PdfOutcome CantBeWritten(const QSaveFile& file) {
  return Failure("The file " + file.fileName().toStdString() +
                 " can't be written: " + file.errorString().toStdString() + ".");
}

}  // namespace

PdfOutcome WritePdf(const platform::Document& document, const QString& path) {
  const QString family = DiagramFamily();
  if (document.hasDiagrams && family.isEmpty()) return Failure(DiagramFontMissing());
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly)) return CantBeWritten(file);
  QPdfWriter writer(&file);
  writer.setTitle(QString::fromStdString(document.title));
  writer.setCreator(QStringLiteral("Tarvolenix"));
  writer.setPageLayout(LayoutFor(document.paper));
  PaintedPages pages(writer, family);
  document.write(pages);
  if (!pages.IsWell()) return Failure({});
  if (!file.commit()) return CantBeWritten(file);
  return {{}, pages.Pages()};
}

}  // namespace desktop

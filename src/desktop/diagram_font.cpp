// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/diagram_font.h"

#include <QFontDatabase>

#include "platform/printing.h"
#include "platform/process_state.h"

namespace desktop {

using namespace Qt::StringLiterals;

namespace {

const QString ownFamily = u"Tarvolenix Diagrams"_s;
constexpr const char* ownFile = "Fonts/Tarvolenix Diagrams.ttf";

}  // namespace

QString DiagramFamily() {
  QString family = QString::fromStdString(platform::diagramFont);
  if (QFontDatabase::hasFamily(family)) return family;
  if (!QFontDatabase::hasFamily(ownFamily)) {
    QFontDatabase::addApplicationFont(
        QString::fromStdString(platform::Process().ProgramFolder + ownFile));
  }
  return QFontDatabase::hasFamily(ownFamily) ? ownFamily : QString();
}

std::string DiagramFontMissing() {
  return "Boards can't be printed: the chess font \"" + platform::diagramFont +
         "\" isn't installed, and the program's own is missing in its folder (" + ownFile + ").";
}

}  // namespace desktop

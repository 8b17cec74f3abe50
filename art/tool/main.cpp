// SPDX-License-Identifier: GPL-3.0-or-later
// render_art: turns the drawings and parameters of this folder into the program's pictures.
//
//   render_art SOURCE OUTPUT
//
// SOURCE is the folder that holds pieces/, sets/, messages/ and program/. Every set goes to
// OUTPUT/Graphics/<its folder>/. The result is 0, or 1 after a line that names what failed.
#include <QDir>
#include <QGuiApplication>

#include <cstdio>

#include "chess_set.h"
#include "program_icons.h"
#include "set_parameters.h"

using namespace Qt::StringLiterals;

namespace {

// The set whose lamp, shadow and knight the program's own icons share.
constexpr auto kHouseSet = "classic-wood.ini";

bool RenderAll(const QString& source, const QString& output, QString* error) {
  const QDir sets(source + u"/sets"_s);
  for (const QString& name : sets.entryList({u"*.ini"_s}, QDir::Files, QDir::Name)) {
    const auto set = art::ReadSetParameters(sets.filePath(name), error);
    if (!set) return false;
    if (!art::RenderChessSet(*set, source + u"/pieces"_s, output + u"/Graphics"_s, error)) {
      return false;
    }
  }
  const auto house = art::ReadSetParameters(sets.filePath(QString::fromLatin1(kHouseSet)), error);
  return house && art::RenderProgramIcons(*house, source, output, error);
}

}  // namespace

int main(int argc, char* argv[]) {
  const QGuiApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  if (arguments.size() != 3) {
    std::fputs("usage: render_art SOURCE OUTPUT\n", stderr);
    return 1;
  }
  QString error;
  if (RenderAll(arguments.at(1), arguments.at(2), &error)) return 0;
  std::fprintf(stderr, "render_art: %s\n", qUtf8Printable(error));
  return 1;
}

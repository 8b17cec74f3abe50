// SPDX-License-Identifier: GPL-3.0-or-later
// render_art: turns the drawings and parameters of this folder into the program's pictures.
//
//   render_art set FILE SOURCE OUTPUT      a chess set: FILE is its .ini under SOURCE/sets
//   render_art skin FILE SOURCE OUTPUT     a skin: FILE is its .ini under SOURCE/skins
//   render_art icons SOURCE OUTPUT         the icon family and the program icon
//   render_art splash SOURCE OUTPUT        the pictures shown at the start
//
// SOURCE is the folder that holds pieces/, boards/ and the others. The result is 0, or 1 after a
// line that names what failed.
#include <QGuiApplication>

#include <cstdio>

#include "chess_set.h"
#include "program_icons.h"
#include "set_parameters.h"
#include "skin_folder.h"
#include "skin_parameters.h"
#include "splash.h"

using namespace Qt::StringLiterals;

namespace {

// The set whose lamp, shadow and pieces the program's own pictures share.
constexpr auto kHouseSet = "classic-wood.ini";

using Render = bool (*)(const art::SetParameters& set, const QString& source, const QString& output,
                        QString* error);

template <Render render>
bool FromSet(const QString& file, const QString& source, const QString& output, QString* error) {
  const QString house = u"%1/sets/%2"_s.arg(source, QLatin1StringView(kHouseSet));
  const auto set = art::ReadSetParameters(file.isEmpty() ? house : file, error);
  return set && render(*set, source, output, error);
}

bool FromSkin(const QString& file, const QString& source, const QString& output, QString* error) {
  const auto skin = art::ReadSkinParameters(file, error);
  return skin && art::RenderSkin(*skin, source + u"/skins"_s, output + u"/UI Graphics"_s, error);
}

struct Errand {
  const char* name;
  bool namesFile;
  bool (*run)(const QString& file, const QString& source, const QString& output, QString* error);
};

constexpr Errand errands[] = {
    {"set", true, FromSet<art::RenderChessSet>},
    {"skin", true, FromSkin},
    {"icons", false, FromSet<art::RenderProgramIcons>},
    {"splash", false, FromSet<art::RenderSplash>},
};

bool Run(const QStringList& arguments, QString* error) {
  for (const Errand& errand : errands) {
    const qsizetype count = errand.namesFile ? 5 : 4;
    if (arguments.value(1) != QLatin1StringView(errand.name) || arguments.size() != count) continue;
    const QString file = errand.namesFile ? arguments.at(2) : QString();
    return errand.run(file, arguments.at(count - 2), arguments.at(count - 1), error);
  }
  *error = u"usage: render_art set|skin FILE SOURCE OUTPUT | icons|splash SOURCE OUTPUT"_s;
  return false;
}

}  // namespace

int main(int argc, char* argv[]) {
  const QGuiApplication application(argc, argv);
  QString error;
  if (Run(QCoreApplication::arguments(), &error)) return 0;
  std::fprintf(stderr, "render_art: %s\n", qUtf8Printable(error));
  return 1;
}

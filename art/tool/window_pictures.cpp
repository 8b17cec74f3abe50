// SPDX-License-Identifier: GPL-3.0-or-later
// window_pictures: a picture of each window that is named.
//
//   window_pictures PROGRAM_FOLDER SKIN FOLDER NAME...
//
// PROGRAM_FOLDER is a laid out program folder, whose pictures the windows load; FOLDER gets a file
// NAME.png of each. A blank SKIN is the plain look.
#include <QApplication>

#include <algorithm>
#include <cstdio>

#include "boards/chess_graphics.h"
#include "fakes/fake_desktop.h"
#include "platform/process_state.h"
#include "shown_windows.h"

namespace {

using namespace Qt::StringLiterals;

bool Save(const QString& name, const boards::ChessGraphics& graphics, const QString& folder) {
  const auto& windows = art::ShownWindows();
  const auto found = std::find_if(windows.begin(), windows.end(), [&](const auto& window) {
    return name == QLatin1StringView(window.name);
  });
  return found != windows.end() &&
         art::Grabbed(*found->make(graphics)).save(u"%1/%2.png"_s.arg(folder, name));
}

}  // namespace

int main(int argc, char* argv[]) {
  QApplication application(argc, argv);
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() < 5) {
    std::fputs("usage: window_pictures PROGRAM_FOLDER SKIN FOLDER NAME...\n", stderr);
    return 1;
  }
  const fakes::FakeDesktop desktop;
  platform::Process().ProgramFolder = arguments[1].toStdString() + "/";
  art::StoreGames();
  const std::string skin = arguments[2].toStdString();
  boards::ChessGraphics graphics;
  const bool isWorn = art::Wear({skin.c_str(), "Plain"}, graphics);
  for (const QString& name : arguments.mid(4)) {
    if (isWorn && Save(name, graphics, arguments[3])) continue;
    std::fprintf(stderr, "window_pictures: %s is missing or can't be written\n", qPrintable(name));
    return 1;
  }
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>

#include <iostream>
#include <string>

#include "app/display.h"
#include "app/end_requests.h"
#include "app/program.h"
#include "app/screen_scale.h"
#include "desktop/folders.h"
#include "platform/process_state.h"
#include "post/accounts/passwords.h"
#include "widgets/contrast.h"

namespace {

/// Options are looked for anywhere in the whole command line.
std::string CommandLine(int argc, char** argv) {
  std::string line;
  for (int i = 1; i < argc; ++i) line.append(argv[i]).append(" ");
  return line;
}

}  // namespace

int main(int argc, char** argv) {
  post::ForbidCoreDumps();
  if (!app::DisplayIsThere()) {
    std::cerr << "Tarvolenix shows windows and needs a graphical desktop: there is no display that "
                 "it can reach.\n";
    return 1;
  }
  const std::string commandLine = CommandLine(argc, argv);
  const desktop::Folders folders = desktop::FoldersFor(desktop::ProgramFolder());
  app::ScaleWindows(folders.settingsFile, argc, argv);
  QApplication application(argc, argv);
  app::KeepScaleToOneself();
  ui::KeepPlaceholdersLegible();
  QApplication::setApplicationName(QStringLiteral("Tarvolenix"));
  QApplication::setApplicationVersion(QString::fromStdString(platform::GetVersionText()));

  app::Program program(folders, commandLine);
  const app::EndRequests requests([&program] { program.End(); });
  QObject::connect(
      &application, &QGuiApplication::commitDataRequest, &application,
      [&program] { program.End(); }, Qt::DirectConnection);
  // One who ends the program while it starts has had his way.
  if (!program.Start()) return platform::Process().ShuttingDown ? 1 : 0;
  const int result = QApplication::exec();
  program.Stop();
  return platform::Process().ShuttingDown ? 1 : result;
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>

#include <string>

#include "app/program.h"
#include "desktop/folders.h"
#include "desktop/passwords.h"
#include "platform/process_state.h"

namespace {

/// Options are looked for anywhere in the whole command line.
std::string CommandLine(int argc, char** argv) {
  std::string line;
  for (int i = 1; i < argc; ++i) line.append(argv[i]).append(" ");
  return line;
}

}  // namespace

int main(int argc, char** argv) {
  desktop::ForbidCoreDumps();
  const std::string commandLine = CommandLine(argc, argv);
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Tarvolenix"));
  QApplication::setApplicationVersion(QString::fromStdString(platform::GetVersionText()));

  app::Program program(desktop::ProgramFolder(), commandLine);
  QObject::connect(&program.Windows(), &ui::GameWindows::Finished, &application,
                   &QApplication::quit, Qt::QueuedConnection);
  if (!program.Start()) return 1;
  const int result = QApplication::exec();
  program.Stop();
  return result;
}

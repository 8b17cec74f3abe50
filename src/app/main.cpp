// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <QFileInfo>
#include <QUrl>

#include <iostream>
#include <string>

#include "app/display.h"
#include "app/end_requests.h"
#include "app/program.h"
#include "app/scaled_application.h"
#include "desktop/folders.h"
#include "desktop/instance_channel.h"
#include "platform/process_state.h"
#include "post/accounts/passwords.h"
#include "skin/program_pictures.h"
#include "widgets/contrast.h"
#include "widgets/readable_windows.h"
#include "widgets/visible_boxes.h"

namespace {

/// Options are looked for anywhere in the whole command line, but for the names of files.
std::string CommandLine(int argc, char** argv) {
  std::string line;
  for (int i = 1; i < argc; ++i) {
    if (!QFileInfo(QString::fromLocal8Bit(argv[i])).isFile()) line.append(argv[i]).append(" ");
  }
  return line;
}

/// Without what the toolkit has taken for itself, and words that can only be meant otherwise. A
/// file manager may know them by their addresses.
desktop::GivenFiles FilesGiven() {
  desktop::GivenFiles files;
  for (const QString& argument : QCoreApplication::arguments().mid(1)) {
    if (argument.startsWith(u'-')) continue;
    const QUrl url(argument);
    const QFileInfo file(url.isLocalFile() ? url.toLocalFile() : argument);
    if (!file.exists() && !argument.contains(u'/') && !argument.contains(u'.')) continue;
    files.push_back(file.absoluteFilePath().toStdString());
  }
  return files;
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
  app::ScaledApplication application(folders.settingsFile, argc, argv);
  ui::ReadPicturesOfStart(folders.program);
  ui::KeepBoxesVisible();
  ui::KeepFaintTextLegible();
  ui::LetWindowsBeRead();
  QApplication::setApplicationName(QStringLiteral("Tarvolenix"));
  QApplication::setApplicationVersion(QString::fromStdString(platform::GetVersionText()));

  app::Program program(folders, commandLine);
  if (program.HandOver(FilesGiven())) return 0;
  const app::EndRequests requests([&program] { program.End(); });
  QObject::connect(
      &*application, &QGuiApplication::commitDataRequest, &*application,
      [&program] { program.End(); }, Qt::DirectConnection);
  // One who ends the program while it starts has had his way.
  if (!program.Start()) return platform::Process().ShuttingDown ? 1 : 0;
  ui::StartIsOver();
  application.RememberScale();
  const int result = QApplication::exec();
  program.Stop();
  return platform::Process().ShuttingDown ? 1 : result;
}

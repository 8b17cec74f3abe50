// SPDX-License-Identifier: GPL-3.0-or-later
// The door of the module: the program from its first window to its end.
#include <QApplication>
#include <QFileInfo>
#include <QUrl>

#include "app/end_requests.h"
#include "app/program.h"
#include "front/begun_start.h"
#include "front/start_wishes.h"
#include "platform/process_state.h"
#include "post/accounts/passwords.h"
#include "skin/program_pictures.h"
#include "widgets/contrast.h"
#include "widgets/readable_windows.h"
#include "widgets/visible_boxes.h"

namespace {

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

extern "C" __attribute__((visibility("default"))) int TarvolenixRunProgram(
    front::BegunStart& start) {
  post::ForbidCoreDumps();
  ui::ReadIconAhead(start.folders.program);
  ui::KeepBoxesVisible();
  ui::KeepFaintTextLegible();
  ui::LetWindowsBeRead();
  QApplication::setApplicationVersion(QString::fromStdString(platform::GetVersionText()));

  app::Program program(start.folders, start.commandLine, std::move(start.instance));
  if (program.HandOver(FilesGiven())) return 0;
  const app::EndRequests requests([&program] { program.End(); });
  QObject::connect(
      qApp, &QGuiApplication::commitDataRequest, qApp, [&program] { program.End(); },
      Qt::DirectConnection);
  program.Windows().Adopt(start.splash);
  // One who ends the program while it starts has had his way.
  if (!program.Start()) return platform::Process().ShuttingDown ? 1 : 0;
  front::RememberScale(start.windowScale);
  const int result = QApplication::exec();
  program.Stop();
  return platform::Process().ShuttingDown ? 1 : result;
}

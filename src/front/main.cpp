// SPDX-License-Identifier: GPL-3.0-or-later
// The front of the program: it is small, so that the start picture shows at once, and loads the
// program proper behind it.
#include <QApplication>
#include <QFileInfo>
#include <QMessageBox>
#include <QScreen>

#include <filesystem>
#include <future>
#include <iostream>
#include <optional>
#include <string>
#include <system_error>

#include "desktop/modules.h"
#include "front/begun_start.h"
#include "front/display.h"
#include "front/scaled_application.h"
#include "front/start_wishes.h"
#include "skin/program_pictures.h"

namespace {

/// Options are looked for anywhere in the whole command line, but for the names of files.
std::string CommandLine(int argc, char** argv) {
  std::string line;
  for (int i = 1; i < argc; ++i) {
    if (!QFileInfo(QString::fromLocal8Bit(argv[i])).isFile()) line.append(argv[i]).append(" ");
  }
  return line;
}

/// The picture is read while it is found out whether it may show; null where it may not.
QPointer<ui::SplashScreen> ShownSplash(front::BegunStart& start) {
  const QScreen* const screen = QGuiApplication::primaryScreen();
  const std::optional<int> depth = screen ? std::optional(screen->depth()) : std::nullopt;
  auto picture = std::async(std::launch::async, ui::StartPicture, start.folders.program, depth,
                            qGuiApp->devicePixelRatio());
  start.instance = std::make_unique<desktop::SingleInstance>(start.folders.user);
  if (start.instance->IsAnotherRunning()) return nullptr;
  QPointer<ui::SplashScreen> splash = new ui::SplashScreen(std::move(picture));
  splash->Display();
  return splash;
}

void TellThatItIsNotWhole(const QString& failure) {
  QMessageBox::critical(nullptr, QStringLiteral("Tarvolenix"),
                        QStringLiteral("Tarvolenix isn't whole and can't start: a part of it can't "
                                       "be loaded. Please install it again.\n\n") +
                            failure);
}

}  // namespace

int main(int argc, char** argv) {
  if (!front::DisplayIsThere()) {
    std::cerr << "Tarvolenix shows windows and needs a graphical desktop: there is no display that "
                 "it can reach.\n";
    return 1;
  }
  front::BegunStart start;
  start.folders = desktop::FoldersFor(desktop::ProgramFolder());
  start.commandLine = CommandLine(argc, argv);
  const front::StartWishes wishes = front::ReadStartWishes(start.folders.settingsFile);
  const front::ScaledApplication application(wishes, argc, argv);
  start.windowScale = application.Scale();
  // Ahead of the first window, whose class it is.
  QApplication::setApplicationName(QStringLiteral("Tarvolenix"));
  std::error_code unreadable;  // the program itself tells of it
  if (wishes.splash && std::filesystem::is_directory(start.folders.user, unreadable)) {
    start.splash = ShownSplash(start);
  }
  QString failure;
  const auto run = reinterpret_cast<front::RunProgram*>(
      desktop::ModuleFunction(front::programModule, front::runProgram, failure));
  if (!run) {
    TellThatItIsNotWhole(failure);
    return 1;
  }
  return run(start);
}

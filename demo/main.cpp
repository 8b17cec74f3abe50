// SPDX-License-Identifier: GPL-3.0-or-later
// A user for the real program: it runs in this process, and what is done with it comes by mouse and
// keyboard through the X server.
//
//   demo_player anna|bob|plain PROGRAM_FOLDER PICTURE_FOLDER
//   demo_player compare WINNERS_PROGRAM_FOLDER LOSERS_PROGRAM_FOLDER
#include <QApplication>

#include <chrono>
#include <cstdlib>
#include <iostream>
#include <map>
#include <string>

#include "app/program.h"
#include "demo/roles.h"
#include "demo/stores.h"

namespace {

using namespace std::chrono_literals;

constexpr auto patience = 55s;
constexpr auto patienceWithTray = 9s;

struct Role {
  const char* name;
  std::vector<demo::Step> (*part)(const demo::Steps& steps);
};

const std::map<std::string, Role> roles{{"anna", {"Anna", demo::AnnasPart}},
                                        {"bob", {"Bob", demo::BobsPart}},
                                        {"plain", {"Bob", demo::PlainPart}}};

int Perform(const Role& role, const std::string& folder, const std::string& pictures) {
  app::Program program(desktop::FoldersFor(folder), "-nosound");
  demo::Hands hands;
  const demo::Steps steps(program, hands, QString::fromStdString(pictures));
  const demo::Performance performance(role.name, role.part(steps),
                                      [&hands] { return hands.AreBusy(); });
  const auto giveUp = [&] {
    performance.TellWhereItStopped();
    steps.SavePicture(QStringLiteral("failed-") + QLatin1StringView(role.name));
    std::_Exit(EXIT_FAILURE);  // whatever dialog waits
  };
  QTimer::singleShot(patienceWithTray, qApp, [&] {
    if (steps.TrayIcon()()) return;
    std::cout << "The icon is in no tray whose place can be told. Without DISPLAY the demo brings "
                 "a tray of its own.\n";
    giveUp();
  });
  QTimer::singleShot(patience, qApp, giveUp);
  if (!program.Start()) return EXIT_FAILURE;
  QApplication::exec();
  program.Stop();
  if (performance.IsOver()) return EXIT_SUCCESS;
  performance.TellWhereItStopped();
  return EXIT_FAILURE;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::cerr << "demo_player anna|bob|plain|compare FOLDER FOLDER\n";
    return EXIT_FAILURE;
  }
  const std::string what = argv[1];
  if (what == "compare") return demo::EndEqual(argv[2], argv[3]) ? EXIT_SUCCESS : EXIT_FAILURE;
  QApplication application(argc, argv);
  return Perform(roles.at(what), argv[2], argv[3]);
}

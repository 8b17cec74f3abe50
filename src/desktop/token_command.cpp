// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/token_command.h"

#include <QProcess>

#include "platform/mail_client.h"

namespace desktop {

using namespace Qt::StringLiterals;

std::string TokenFrom(const std::string& command, const Patience& patience) {
  constexpr int slice = 100;  // ms: how soon a hurry is noticed
  QProcess process;
  process.start(u"/bin/sh"_s, {u"-c"_s, QString::fromStdString(command)});
  const auto end = Patience::Clock::now() + patience.Silence();
  while (!process.waitForFinished(slice) && process.state() != QProcess::NotRunning) {
    if (Patience::Clock::now() > end || patience.IsOver()) {
      process.kill();
      process.waitForFinished();
      throw platform::MailError("The command that gives a token doesn't come to an end.");
    }
  }
  const std::string output = process.readAllStandardOutput().toStdString();
  std::string token = output.substr(0, output.find_first_of("\r\n"));
  if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0 || token.empty()) {
    throw platform::MailError("The command that should give a token gave none.");
  }
  return token;
}

}  // namespace desktop

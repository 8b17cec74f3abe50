// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/child_process.h"

#include <QProcess>
#include <signal.h>
#include <unistd.h>

#include "platform/mail_client.h"

namespace post {
namespace {

constexpr int slice = 50;  // ms: how soon a hurry is noticed
constexpr qint64 greatestOutput = 1 << 20;

bool TalksTooMuch(QProcess& process) {
  process.setReadChannel(QProcess::StandardError);
  const qint64 errors = process.bytesAvailable();
  process.setReadChannel(QProcess::StandardOutput);
  return errors + process.bytesAvailable() > greatestOutput;
}

}  // namespace

ChildEnd RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                    const std::string& input, const Patience& patience) {
  QStringList words;
  for (const std::string& argument : arguments) words += QString::fromStdString(argument);
  QProcess process;
  // A process group of its own, so that all that it starts can be ended with it.
  process.setChildProcessModifier([] { ::setpgid(0, 0); });
  process.start(QString::fromStdString(program), words);
  if (!process.waitForStarted()) throw platform::MailError("Can't run " + program + ".");
  const auto group = static_cast<pid_t>(process.processId());
  process.write(QByteArray::fromStdString(input));
  process.closeWriteChannel();
  const auto end = Patience::Clock::now() + patience.Silence();
  while (!process.waitForFinished(slice) && process.state() != QProcess::NotRunning) {
    if (Patience::Clock::now() > end || patience.IsOver() || TalksTooMuch(process)) {
      ::kill(-group, SIGKILL);
      process.waitForFinished();
      throw platform::MailError(program + " takes too long.");
    }
  }
  const bool crashed = process.exitStatus() == QProcess::CrashExit;
  return {process.exitCode() + (crashed ? 128 : 0), process.readAllStandardOutput().toStdString(),
          process.readAllStandardError().toStdString()};
}

}  // namespace post

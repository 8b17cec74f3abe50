// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/instance_channel.h"

#include <QDeadlineTimer>
#include <QLocalSocket>
#include <QThread>
#include <QTimer>

#include <utility>

#include "desktop/activation.h"

namespace desktop {
namespace {

constexpr int answerPatience = 3000;  // milliseconds
constexpr qint64 longestMessage = 1 << 20;
constexpr QByteArrayView end("\0\0", 2);

struct Message {
  QByteArray activation;
  GivenFiles files;
};

/// Paths are whole ones; the rest is the token of the start that they come from.
Message Understood(const QByteArray& text) {
  Message message;
  for (const QByteArray& part : text.split('\0')) {
    if (part.startsWith('/')) {
      message.files.push_back(part.toStdString());
    } else if (!part.isEmpty()) {
      message.activation = part;
    }
  }
  return message;
}

}  // namespace

InstanceChannel::InstanceChannel(const std::string& socket,
                                 std::function<void(const GivenFiles&)> take)
    : take_(std::move(take)) {
  const QString name = QString::fromStdString(socket);
  QLocalServer::removeServer(name);
  server_.setSocketOptions(QLocalServer::UserAccessOption);
  connect(&server_, &QLocalServer::newConnection, this, [this] {
    QLocalSocket* caller = server_.nextPendingConnection();
    connect(caller, &QLocalSocket::disconnected, caller, &QObject::deleteLater);
    connect(caller, &QLocalSocket::readyRead, this, [this, caller] { Read(*caller); });
    Read(*caller);
  });
  server_.listen(name);
}

void InstanceChannel::Read(QLocalSocket& caller) {
  if (caller.bytesAvailable() > longestMessage) return caller.abort();
  if (!caller.peek(longestMessage).endsWith(end)) return;
  const Message message = Understood(caller.readAll());
  caller.write("\1");
  const bool isHeard = caller.waitForBytesWritten(answerPatience);
  caller.disconnectFromServer();
  if (!isHeard) return;  // who waits no longer has told his user that nothing was taken
  // Behind the answer: to take them may last as long as the user reads.
  QTimer::singleShot(0, this, [this, message] {
    LetNextWindowComeToFront(message.activation);
    take_(message.files);
  });
}

bool HandOverFiles(const std::string& socket, const GivenFiles& files,
                   std::chrono::milliseconds patience) {
  QByteArray message = OwnActivation() + '\0';
  for (const std::string& path : files) message += QByteArray::fromStdString(path) + '\0';
  const QDeadlineTimer deadline(patience);
  const auto left = [&deadline] { return static_cast<int>(deadline.remainingTime()); };
  QLocalSocket running;
  running.connectToServer(QString::fromStdString(socket));
  while (!running.waitForConnected(left())) {
    if (deadline.hasExpired()) return false;
    QThread::msleep(20);
    running.connectToServer(QString::fromStdString(socket));
  }
  running.write(message + '\0');
  return running.waitForReadyRead(left()) && running.readAll() == "\1";
}

}  // namespace desktop

// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/instance_channel.h"

#include <QLocalSocket>
#include <QTimer>

#include <utility>

namespace desktop {
namespace {

constexpr int patience = 3000;  // milliseconds
constexpr qint64 longestMessage = 1 << 20;
constexpr QByteArrayView end("\0\0", 2);

GivenFiles FilesIn(const QByteArray& message) {
  GivenFiles files;
  for (const QByteArray& path : message.split('\0')) {
    if (!path.isEmpty()) files.push_back(path.toStdString());
  }
  return files;
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
  const GivenFiles files = FilesIn(caller.readAll());
  caller.write("\1");
  caller.disconnectFromServer();
  // Behind the answer: to take them may last as long as the user reads.
  QTimer::singleShot(0, this, [this, files] { take_(files); });
}

bool HandOverFiles(const std::string& socket, const GivenFiles& files) {
  QByteArray message = files.empty() ? QByteArray(1, '\0') : QByteArray();
  for (const std::string& path : files) message += QByteArray::fromStdString(path) + '\0';
  QLocalSocket running;
  running.connectToServer(QString::fromStdString(socket));
  if (!running.waitForConnected(patience)) return false;
  running.write(message + '\0');
  return running.waitForReadyRead(patience) && running.readAll() == "\1";
}

}  // namespace desktop

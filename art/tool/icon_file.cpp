// SPDX-License-Identifier: GPL-3.0-or-later
#include "icon_file.h"

#include <QBuffer>
#include <QDataStream>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

namespace art {

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 kHeaderBytes = 6;
constexpr quint32 kEntryBytes = 16;

QByteArray PngOf(const QImage& picture) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  picture.save(&buffer, "PNG");
  return buffer.data();
}

}  // namespace

bool SaveIcon(const std::vector<QImage>& pictures, const QString& path, QString* error) {
  QDir().mkpath(QFileInfo(path).path());
  QSaveFile file(path);
  file.open(QIODevice::WriteOnly);
  QDataStream out(&file);
  out.setByteOrder(QDataStream::LittleEndian);
  out << quint16{0} << quint16{1} << static_cast<quint16>(pictures.size());
  quint32 offset = kHeaderBytes + kEntryBytes * static_cast<quint32>(pictures.size());
  QByteArray body;
  for (const QImage& picture : pictures) {
    const QByteArray png = PngOf(picture);
    const auto side = static_cast<quint8>(picture.width() % 256);
    out << side << side << quint8{0} << quint8{0} << quint16{1} << quint16{32};
    out << static_cast<quint32>(png.size()) << offset;
    offset += static_cast<quint32>(png.size());
    body += png;
  }
  file.write(body);
  if (file.commit()) return true;
  *error = u"%1: %2"_s.arg(path, file.errorString());
  return false;
}

}  // namespace art

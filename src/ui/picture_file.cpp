// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/picture_file.h"

#include <QFile>
#include <QtEndian>

#include "ui/shown_text.h"

namespace ui {
namespace {

constexpr int largestSide = 16384;
constexpr qint64 largestFile = 64 << 20;

quint32 NumberAt(const QByteArray& bytes, int place) {
  return qFromLittleEndian<quint32>(bytes.constData() + place);
}

/// The readers of these formats fill up what a file lacks at its end, and say nothing.
bool IsWhole(const QByteArray& bytes) {
  if (bytes.startsWith("BM")) {
    return bytes.size() >= 6 && NumberAt(bytes, 2) <= quint64(bytes.size());
  }
  if (bytes.startsWith("\xff\xd8")) {
    qsizetype end = bytes.size();
    while (end > 0 && bytes[end - 1] == '\0') --end;
    return bytes.first(end).endsWith("\xff\xd9");
  }
  return true;
}

}  // namespace

PictureFile::PictureFile(const std::string& path) {
  QFile file(Shown(path));
  if (!file.open(QFile::ReadOnly) || file.size() > largestFile) throw PictureError(path);
  bytes_ = file.readAll();
  buffer_.setBuffer(&bytes_);
  if (!IsWhole(bytes_) || !buffer_.open(QBuffer::ReadOnly)) throw PictureError(path);
  reader_.setDecideFormatFromContent(true);
  reader_.setDevice(&buffer_);
  const QSize size = reader_.size();
  if (size.width() > largestSide || size.height() > largestSide) throw PictureError(path);
}

QImage ReadPicture(const std::string& path) {
  PictureFile file(path);
  QImage picture = file.Reader().read();
  if (picture.isNull()) throw PictureError(path);
  return picture;
}

}  // namespace ui

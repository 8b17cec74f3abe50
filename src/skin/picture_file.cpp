// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/picture_file.h"

#include <QFile>
#include <QtEndian>

#include <algorithm>
#include <cstdlib>

#include "widgets/shown_text.h"

namespace ui {
namespace {

constexpr int largestSide = 16384;
constexpr qint64 largestFile = 64 << 20;

template <typename Number>
Number NumberAt(const QByteArray& bytes, qsizetype place) {
  return qFromLittleEndian<Number>(bytes.constData() + place);
}

/// The header tells where the file ends. Some programs leave that out, so the end of the pixels
/// counts too.
bool IsWholeBitmap(const QByteArray& bytes) {
  constexpr qint64 fileHeader = 14, usualHeader = 40;
  if (bytes.size() < fileHeader + usualHeader) return false;
  const qint64 told = NumberAt<quint32>(bytes, 2);
  if (told > bytes.size()) return false;
  if (NumberAt<quint32>(bytes, fileHeader) < usualHeader) return told > 0;  // an old, short header
  const qint64 width = std::abs(qint64{NumberAt<qint32>(bytes, 18)});
  const qint64 height = std::abs(qint64{NumberAt<qint32>(bytes, 22)});
  if (std::max(width, height) > largestSide) return false;
  const quint16 depth = NumberAt<quint16>(bytes, 28);
  const quint32 compression = NumberAt<quint32>(bytes, 30),
                toldPixels = NumberAt<quint32>(bytes, 34);
  const bool isPlain = compression == 0 || compression == 3;  // lines of whole 32-bit words
  const qint64 pixels = isPlain ? (width * depth + 31) / 32 * 4 * height : qint64{toldPixels};
  return NumberAt<quint32>(bytes, 10) + pixels <= bytes.size();
}

/// Goes from marker to marker up to that of the end, of which a preview in a segment has its own.
/// What stands behind it doesn't matter.
bool IsWholeJpeg(const QByteArray& bytes) {
  constexpr quint8 restart = 0xd0, start = 0xd8, end = 0xd9;  // markers without a segment
  qsizetype at = bytes.indexOf('\xff');
  while (at >= 0 && at + 1 < bytes.size()) {
    const auto marker = static_cast<quint8>(bytes[at + 1]);
    if (marker == end) return true;
    qsizetype length = 2;
    if (marker == 0xff) {
      length = 1;  // a filler
    } else if (marker > 1 && (marker < restart || marker > start)) {
      if (at + 4 > bytes.size()) return false;
      length += qFromBigEndian<quint16>(bytes.constData() + at + 2);
    }
    at = bytes.indexOf('\xff', at + length);
  }
  return false;
}

/// The directory's entries tell where their pictures lie.
bool IsWholeIcon(const QByteArray& bytes) {
  constexpr qsizetype header = 6, entry = 16;
  if (bytes.size() < header) return false;
  const qsizetype directoryEnd = header + entry * NumberAt<quint16>(bytes, 4);
  if (bytes.size() < directoryEnd) return false;
  for (qsizetype at = header; at < directoryEnd; at += entry) {
    const qint64 size = NumberAt<quint32>(bytes, at + 8);
    if (NumberAt<quint32>(bytes, at + 12) + size > bytes.size()) return false;
  }
  return true;
}

/// The readers of these formats fill up or leave out what a file lacks at its end, and say nothing.
bool IsWhole(const QByteArray& bytes) {
  if (bytes.startsWith("BM")) return IsWholeBitmap(bytes);
  if (bytes.startsWith("\xff\xd8")) return IsWholeJpeg(bytes);
  if (bytes.startsWith(QByteArray("\0\0\1\0", 4))) return IsWholeIcon(bytes);
  return true;
}

}  // namespace

PictureFile::PictureFile(const std::string& path) {
  QFile file(AsItIs(path));
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

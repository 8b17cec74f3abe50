// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/picture_file.h"

namespace desktop {
namespace {

constexpr int largestSide = 16384;
constexpr qint64 largestFile = 64 << 20;

}  // namespace

PictureFile::PictureFile(const std::string& path) : file_(QString::fromStdString(path)) {
  if (!file_.open(QFile::ReadOnly) || file_.size() > largestFile) throw PictureError(path);
  reader_.setDecideFormatFromContent(true);
  reader_.setDevice(&file_);
  const QSize size = reader_.size();
  if (size.width() > largestSide || size.height() > largestSide) throw PictureError(path);
}

QImage ReadPicture(const std::string& path) {
  PictureFile file(path);
  QImage picture = file.Reader().read();
  if (picture.isNull()) throw PictureError(path);
  return picture;
}

}  // namespace desktop

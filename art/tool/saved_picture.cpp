// SPDX-License-Identifier: GPL-3.0-or-later
#include "saved_picture.h"

#include <QDir>
#include <QFileInfo>
#include <QImageWriter>

namespace art {

using namespace Qt::StringLiterals;

bool SavePicture(const QImage& picture, const QString& path, QString* error, int quality) {
  QDir().mkpath(QFileInfo(path).path());
  QImageWriter writer(path);
  writer.setQuality(quality);
  if (writer.write(picture)) return true;
  *error = u"%1: %2"_s.arg(path, writer.errorString());
  return false;
}

}  // namespace art

// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/program_pictures.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QStyle>

#include <future>
#include <vector>

#include "platform/messages.h"
#include "platform/process_state.h"
#include "widgets/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

QString PathOf(const std::string& programFolder, const QString& name) {
  return AsItIs(programFolder) + u"Pictures/"_s + name;
}

QString OwnPath(const QString& name) { return PathOf(platform::Process().ProgramFolder, name); }

using Sizes = std::vector<QImage>;

/// What came with the program is what its name says: to ask all that the toolkit can read about its
/// content would take longer than the picture itself.
Sizes Read(const QString& path) {
  QImageReader file(path, QFileInfo(path).suffix().toLatin1());
  file.setAutoDetectImageFormat(false);
  Sizes sizes;
  do {
    sizes.push_back(file.read());
  } while (file.jumpToNextImage());
  return sizes;
}

/// The icon, while it is being read ahead.
std::future<Sizes> iconAhead;

Sizes PictureOf(const QString& name) {
  return name == QLatin1StringView(programIcon) && iconAhead.valid() ? iconAhead.get()
                                                                     : Read(OwnPath(name));
}

}  // namespace

void ReadIconAhead(const std::string& programFolder) {
  iconAhead =
      std::async(std::launch::async, Read, PathOf(programFolder, QLatin1StringView(programIcon)));
}

QIcon ProgramPicture(const QString& name) {
  QIcon icon;
  for (const QImage& size : PictureOf(name)) icon.addPixmap(QPixmap::fromImage(size));
  return icon;
}

QImage StartPicture(const std::string& programFolder, std::optional<int> bitsPerPixel,
                    double pixelRatio) {
  constexpr int unknownDepth = 8;
  constexpr int highColour = 16;
  const QString start = AsItIs(programFolder) + u"UI Graphics/Splash"_s;
  if (bitsPerPixel.value_or(unknownDepth) < highColour) return Read(start + u"8.bmp"_s).front();
  const QString large = start + u"16@2x.bmp"_s;
  return Read(pixelRatio > 1 && QFile::exists(large) ? large : start + u"16.bmp"_s).front();
}

QPixmap MessagePicture(int icon, int size) {
  const QIcon own = ProgramPicture(u"messages/message-%1.png"_s.arg(icon));
  if (QPixmap picture = own.pixmap(size); !picture.isNull()) return picture;
  const QStyle::StandardPixmap standard = icon == platform::InformationIcon
                                              ? QStyle::SP_MessageBoxInformation
                                              : QStyle::SP_MessageBoxWarning;
  return QApplication::style()->standardIcon(standard).pixmap(size);
}

namespace {

QString TrayPictureName(int index) {
  static constexpr const char* kinds[] = {"normal", "new-move", "no-network"};
  return u"tray/set-%1-%2.ico"_s.arg(index / 3 + 1)
      .arg(QLatin1StringView(kinds[index < 0 ? 0 : index % 3]));
}

}  // namespace

QIcon TrayPicture(int picture) {
  const QIcon icon = ProgramPicture(TrayPictureName(picture - 1));
  return icon.availableSizes().isEmpty() ? ProgramPicture(QLatin1StringView(programIcon)) : icon;
}

int TrayPictureCount() {
  int count = 0;
  while (QFile::exists(OwnPath(TrayPictureName(count)))) ++count;
  return count;
}

}  // namespace ui

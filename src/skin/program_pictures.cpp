// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/program_pictures.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QStyle>

#include <future>
#include <map>
#include <vector>

#include "platform/messages.h"
#include "platform/process_state.h"
#include "widgets/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

const QString programIcon = u"tarvolenix.png"_s;

QString OwnFolder() { return AsItIs(platform::Process().ProgramFolder); }

QString PathOf(const QString& programFolder, const QString& name) {
  return programFolder + u"Pictures/"_s + name;
}

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

/// What is being read ahead, by its path.
std::map<QString, std::future<Sizes>>& ReadAhead() {
  static std::map<QString, std::future<Sizes>> pictures;
  return pictures;
}

Sizes PictureOn(const QString& path) {
  const auto ahead = ReadAhead().extract(path);
  return ahead ? ahead.mapped().get() : Read(path);
}

QString StartPicturePath(const QString& programFolder, bool inFewColours) {
  return programFolder + u"UI Graphics/"_s + (inFewColours ? u"Splash8.bmp"_s : u"Splash16.bmp"_s);
}

}  // namespace

void ReadPicturesOfStart(const std::string& programFolder) {
  for (const QString& path : {StartPicturePath(AsItIs(programFolder), false),
                              PathOf(AsItIs(programFolder), programIcon)}) {
    ReadAhead()[path] = std::async(std::launch::async, Read, path);
  }
}

void StartIsOver() { ReadAhead().clear(); }

QIcon ProgramPicture(const QString& name) {
  QIcon icon;
  for (const QImage& size : PictureOn(PathOf(OwnFolder(), name))) {
    icon.addPixmap(QPixmap::fromImage(size));
  }
  return icon;
}

QPixmap StartPicture(bool inFewColours) {
  return QPixmap::fromImage(PictureOn(StartPicturePath(OwnFolder(), inFewColours)).front());
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
  return icon.availableSizes().isEmpty() ? ProgramPicture(programIcon) : icon;
}

int TrayPictureCount() {
  int count = 0;
  while (QFile::exists(PathOf(OwnFolder(), TrayPictureName(count)))) ++count;
  return count;
}

}  // namespace ui

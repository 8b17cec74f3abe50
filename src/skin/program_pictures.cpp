// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/program_pictures.h"

#include <QApplication>
#include <QFile>
#include <QIcon>
#include <QStyle>

#include "platform/messages.h"
#include "platform/process_state.h"
#include "widgets/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;

QString ProgramPicturePath(const QString& name) {
  return AsItIs(platform::Process().ProgramFolder) + u"Pictures/"_s + name;
}

QPixmap MessagePicture(int icon, int size) {
  const QIcon own(ProgramPicturePath(u"messages/message-%1.png"_s.arg(icon)));
  if (QPixmap picture = own.pixmap(size); !picture.isNull()) return picture;
  const QStyle::StandardPixmap standard = icon == platform::InformationIcon
                                              ? QStyle::SP_MessageBoxInformation
                                              : QStyle::SP_MessageBoxWarning;
  return QApplication::style()->standardIcon(standard).pixmap(size);
}

namespace {

QString TrayPicturePath(int index) {
  static constexpr const char* kinds[] = {"normal", "new-move", "no-network"};
  return ProgramPicturePath(u"tray/set-%1-%2.ico"_s.arg(index / 3 + 1)
                                .arg(QLatin1StringView(kinds[index < 0 ? 0 : index % 3])));
}

}  // namespace

QIcon TrayPicture(int picture) {
  const QIcon icon(TrayPicturePath(picture - 1));
  return icon.availableSizes().isEmpty() ? QIcon(ProgramPicturePath(u"tarvolenix.png"_s)) : icon;
}

int TrayPictureCount() {
  int count = 0;
  while (QFile::exists(TrayPicturePath(count))) ++count;
  return count;
}

}  // namespace ui

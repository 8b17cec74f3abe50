// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/ini_settings.h"

#include <QSettings>
#include <QStringList>
#include <fcntl.h>
#include <unistd.h>

#include <filesystem>

namespace desktop {
namespace {

/// A slash would make a group of what stands before it.
QString WithoutSlashes(const std::string& name) {
  QString text = QString::fromStdString(name);
  text.replace(u'%', QStringLiteral("%25"));
  text.replace(u'/', QStringLiteral("%2F"));
  return text.replace(u'\\', QStringLiteral("%5C"));
}

std::string WithSlashes(QString text) {
  text.replace(QStringLiteral("%5C"), QStringLiteral("\\"));
  text.replace(QStringLiteral("%2F"), QStringLiteral("/"));
  return text.replace(QStringLiteral("%25"), QStringLiteral("%")).toStdString();
}

QString KeyOf(const std::string& group, const std::string& name) {
  const QString key = WithoutSlashes(name);
  return group.empty() ? key : WithoutSlashes(group) + u'/' + key;
}

/// The file is put in place by renaming, which is only safe when the folder is on the disk too.
void SyncFolderOf(const std::string& path) {
  const std::string folder = std::filesystem::path(path).parent_path().string();
  const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  ::fsync(descriptor);
  ::close(descriptor);
}

/// The file as it stands now, with what other processes have written. It is opened anew for each
/// operation also because an error sticks to it.
QSettings Open(const std::string& path) {
  return QSettings(QString::fromStdString(path), QSettings::IniFormat);
}

std::optional<std::string> TextOf(const QVariant& value) {
  if (!value.isValid()) return std::nullopt;
  // An unquoted comma, written by hand, makes a list of one text.
  if (value.typeId() == QMetaType::QStringList) {
    return value.toStringList().join(u',').toStdString();
  }
  return value.toString().toStdString();
}

}  // namespace

std::optional<std::string> IniSettings::Read(const std::string& group, const std::string& name) {
  return TextOf(Open(path_).value(KeyOf(group, name)));
}

bool IniSettings::Write(const std::string& group, const std::string& name,
                        const std::string& value) {
  QSettings file = Open(path_);
  const QString key = KeyOf(group, name);
  const QVariant before = file.value(key);
  if (TextOf(before) == value) return true;
  file.setValue(key, QString::fromStdString(value));
  file.sync();
  if (file.status() != QSettings::AccessError) {
    SyncFolderOf(path_);
    return true;
  }
  // What isn't in the file must not be read back, nor turn up there later.
  if (before.isValid()) {
    file.setValue(key, before);
  } else {
    file.remove(key);
  }
  return false;
}

bool IniSettings::CreateGroup(const std::string&) { return Open(path_).isWritable(); }

std::vector<std::string> IniSettings::Groups() {
  std::vector<std::string> names;
  for (const QString& group : Open(path_).childGroups()) names.push_back(WithSlashes(group));
  return names;
}

}  // namespace desktop

// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/picture_folders.h"

#include <QDir>

#include <stdexcept>

#include "platform/process_state.h"

namespace desktop {
namespace {

QDir FolderOf(const std::string& owner, const char* kind) {
  return QDir(QString::fromStdString(owner + kind));
}

QStringList NamesIn(const QDir& folder) {
  return folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase);
}

}  // namespace

QStringList PictureFolders(const char* kind) {
  const QDir program = FolderOf(platform::Process().ProgramFolder, kind);
  if (!program.isReadable()) throw std::runtime_error("a folder can't be read");
  QStringList names = NamesIn(program);
  if (const QDir own = FolderOf(platform::Process().UserFolder, kind); own != program) {
    names += NamesIn(own);
    names.removeDuplicates();
    names.sort(Qt::CaseInsensitive);
  }
  return names;
}

QString PictureFolder(const char* kind, const QString& name) {
  const QDir own = FolderOf(platform::Process().UserFolder, kind);
  const bool isOwn = !name.isEmpty() && own.exists(name);
  const QDir folder = isOwn ? own : FolderOf(platform::Process().ProgramFolder, kind);
  return folder.path() + u'/' + name + u'/';
}

}  // namespace desktop

// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/folder_list.h"

#include <QDir>
#include <QFileInfo>
#include <QStyle>

#include "widgets/shown_text.h"

namespace ui {

FolderList::FolderList(QWidget* parent) : QListWidget(parent) {
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setTextElideMode(Qt::ElideMiddle);
  setUniformItemSizes(true);
  connect(this, &QListWidget::itemDoubleClicked, this, &FolderList::EnterCurrent);
}

void FolderList::SetPath(const QString& path) {
  const QFileInfo wanted(path);
  path_ = wanted.isDir() && wanted.isExecutable() ? QDir(path).absolutePath() : QDir::homePath();
  clear();
  QStringList chain{path_};
  for (QDir folder(path_); folder.cdUp();) chain.prepend(folder.absolutePath());
  for (const QString& folder : chain) {
    AddFolder(folder, folder == QDir::rootPath() ? folder : QFileInfo(folder).fileName(), true);
  }
  const int here = count() - 1;
  const QDir folder(path_);
  for (const QString& name : folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot,
                                              QDir::Name | QDir::IgnoreCase | QDir::LocaleAware)) {
    AddFolder(folder.filePath(name), name, false);
  }
  setCurrentRow(here);
  scrollToItem(item(here > 0 ? here - 1 : here), PositionAtTop);  // the way back stays in sight
  Q_EMIT PathChanged();
}

void FolderList::AddFolder(const QString& path, const QString& name, bool isOpen) {
  auto* entry = new QListWidgetItem(ShownLine(name), this);
  entry->setData(Qt::UserRole, path);
  entry->setIcon(style()->standardIcon(isOpen ? QStyle::SP_DirOpenIcon : QStyle::SP_DirClosedIcon));
}

bool FolderList::IsElsewhere() const {
  return currentItem() && currentItem()->data(Qt::UserRole).toString() != path_;
}

void FolderList::EnterCurrent() {
  if (IsElsewhere()) SetPath(currentItem()->data(Qt::UserRole).toString());
}

}  // namespace ui

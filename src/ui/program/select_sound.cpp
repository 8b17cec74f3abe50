// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/program/select_sound.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QListWidget>
#include <QPushButton>
#include <QStorageInfo>

#include "platform/messages.h"
#include "platform/process_state.h"
#include "platform/registry.h"
#include "platform/seams.h"
#include "platform/setting_variables.h"
#include "skin/layouts/select_sound_layout.h"
#include "skin/look.h"
#include "skin/system_button.h"
#include "widgets/cut_text.h"
#include "widgets/folder_list.h"
#include "widgets/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;
using platform::Settings;

namespace {

constexpr const char* firstFolder = "/";
constexpr int margin = 16;
constexpr int listWidth = 220;
constexpr int listHeight = 240;
constexpr int buttonWidth = 88;
constexpr int buttonHeight = 28;

/// Where the desktop mounts what the user plugs in.
bool IsUsersVolume(const QString& root) {
  return root.startsWith(u"/media/"_s) || root.startsWith(u"/mnt/"_s) || root == u"/mnt"_s ||
         root.startsWith(u"/run/media/"_s);
}

}  // namespace

SelectSound::SelectSound(Mode mode, QWidget* parent)
    : QDialog(parent),
      choosesSound_(mode == Mode::Sound),
      drives_(new QComboBox(this)),
      folders_(new FolderList(this)),
      files_(new QListWidget(this)) {
  setObjectName(u"SelectSound"_s);
  setWindowTitle(u"Select a sound file..."_s);
  drives_->setObjectName(u"DriveList"_s);
  drives_->setAccessibleName(u"Drives"_s);
  folders_->setObjectName(u"DirList"_s);
  folders_->setAccessibleName(u"Folders"_s);
  files_->setObjectName(u"FileList"_s);
  files_->setAccessibleName(u"Files"_s);
  files_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  files_->setTextElideMode(Qt::ElideMiddle);
  files_->setUniformItemSizes(true);
  AddButtons();
  hasSkin_ = TakeLook(*this, layouts::selectSound, [this] { SetSimpleUI(); });
  if (!hasSkin_) return;
  connect(drives_, &QComboBox::activated, this,
          [this] { folders_->SetPath(drives_->currentData().toString()); });
  connect(folders_, &FolderList::PathChanged, this, &SelectSound::FillFiles);
  connect(files_, &QListWidget::itemDoubleClicked, ok_, &QAbstractButton::click);
  Start();
}

void SelectSound::AddButtons() {
  const auto add = [this](const ButtonTwins& names, const char* caption, const char* plainCaption,
                          bool ofSound) {
    QAbstractButton* button =
        NewButton(*this, names, QLatin1StringView(caption), QLatin1StringView(plainCaption));
    button->setHidden(ofSound != choosesSound_);
    return button;
  };
  if (!IsSimpleUI()) {
    auto* help = new SystemButton(u"HelpButton"_s, this);
    help->setText(u"?"_s);
    help->setAccessibleName(u"Help"_s);
    connect(help, &QAbstractButton::clicked, this, &SelectSound::ShowHelp);
  }
  play_ = add({"Play", "PlayS"}, "Play", "&Play", true);
  auto* soundCancel = add({"CancelSelect", "CancelSelectS"}, "Cancel", "&Cancel", true);
  auto* soundOk = add({"OkSelect", "OkSelectS"}, "OK", "&OK", true);
  auto* importCancel = add({"ImportCancel", "ImportCancelS"}, "Cancel", "&Cancel", false);
  auto* importOk = add({"ImportOK", "ImportOKS"}, "Import", "&Import", false);
  cancel_ = choosesSound_ ? soundCancel : importCancel;
  ok_ = choosesSound_ ? soundOk : importOk;
  connect(play_, &QAbstractButton::clicked, this, &SelectSound::Play);
  connect(cancel_, &QAbstractButton::clicked, this, &QDialog::reject);
  connect(ok_, &QAbstractButton::clicked, this, &SelectSound::Choose);
}

void SelectSound::SetSimpleUI() {
  auto* lists = new QGridLayout;
  lists->setSpacing(8);
  lists->addWidget(folders_, 0, 0);
  lists->addWidget(drives_, 1, 0);
  lists->addWidget(files_, 0, 1, 2, 1);
  for (QListWidget* list : {static_cast<QListWidget*>(folders_), files_}) {
    list->setMinimumWidth(listWidth);
  }
  files_->setMinimumHeight(listHeight);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  buttons->addStretch();
  for (QAbstractButton* button : {play_, cancel_, ok_}) {
    button->setMinimumSize(buttonWidth, buttonHeight);
    buttons->addWidget(button);
  }
  static_cast<QPushButton*>(ok_)->setDefault(true);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(margin, margin, margin, margin);
  layout->setSpacing(margin);
  layout->addLayout(lists, 1);
  layout->addLayout(buttons);
}

/// Where the sound lies that is chosen now; a file to import is looked for from the top.
void SelectSound::Start() {
  FillDrives();
  const std::string folder =
      choosesSound_ ? platform::ReturnValue(Settings().NotificationSoundPath, firstFolder)
                    : firstFolder;
  folders_->SetPath(AsItIs(folder));
  ShowDriveOf(folders_->Path());
  folders_->setFocus();
  if (!choosesSound_ || Settings().NotificationSoundPath.empty()) return;
  const auto chosen = files_->findItems(ShownLine(Settings().NotificationSoundWav),
                                        Qt::MatchExactly | Qt::MatchCaseSensitive);
  if (chosen.isEmpty()) return;
  files_->setCurrentItem(chosen.front());
  files_->setFocus();
}

void SelectSound::FillDrives() {
  QStringList roots{QDir::rootPath(), QDir::homePath()};
  for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
    if (volume.isReady() && IsUsersVolume(volume.rootPath())) roots << volume.rootPath();
  }
  roots.removeDuplicates();
  for (const QString& root : roots) drives_->addItem(ShownLine(root), root);
}

/// The innermost one in which the folder lies.
void SelectSound::ShowDriveOf(const QString& path) {
  int best = 0;
  for (int i = 0; i < drives_->count(); ++i) {
    const QString root = drives_->itemData(i).toString();
    const bool holds = path == root || path.startsWith(root.endsWith(u'/') ? root : root + u'/');
    if (holds && root.size() > drives_->itemData(best).toString().size()) best = i;
  }
  drives_->setCurrentIndex(best);
}

void SelectSound::FillFiles() {
  files_->clear();
  folders_->setToolTip(WholeAsTip(ShownLine(folders_->Path())));
  // In any case of the letters.
  const QStringList names = QDir(folders_->Path())
                                .entryList({choosesSound_ ? u"*.WAV"_s : u"*"_s}, QDir::Files,
                                           QDir::Name | QDir::IgnoreCase | QDir::LocaleAware);
  for (const QString& name : names) {
    auto* file = new QListWidgetItem(ShownLine(name), files_);
    file->setData(Qt::UserRole, name);
  }
}

std::string SelectSound::Folder() const {
  const QString& path = folders_->Path();
  return (path.endsWith(u'/') ? path : path + u'/').toStdString();
}

std::string SelectSound::SelectedFile() const {
  const QListWidgetItem* file = files_->currentItem();
  return file && file->isSelected() ? file->data(Qt::UserRole).toString().toStdString()
                                    : std::string{};
}

void SelectSound::SetSoundFile() {
  Settings().NotificationSoundPath = Folder();
  Settings().NotificationSoundWav = SelectedFile();
}

std::optional<std::string> SelectSound::Chosen() const {
  const std::string file = SelectedFile();
  return file.empty() ? std::nullopt : std::optional(Folder() + file);
}

void SelectSound::Choose() {
  if (choosesSound_) SetSoundFile();
  if (Chosen()) return accept();
  platform::ShowMessage(platform::ErrorIcon, "File selection error...",
                        choosesSound_
                            ? "You must either select a .WAV file or cancel this dialog."
                            : "You must either select a file to import or cancel this dialog.",
                        "Ok", {}, false, platform::AttentionSound);
}

void SelectSound::Play() { platform::PlayWave(Folder() + SelectedFile()); }

void SelectSound::done(int result) {
  platform::TheSeams().help->CloseHelp();
  QDialog::done(result);
}

void SelectSound::ShowHelp() const {
  platform::TheSeams().help->ShowHelp(choosesSound_ ? platform::HelpOfSounds
                                                    : platform::HelpOfImport);
}

void SelectSound::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_F1:
      ShowHelp();
      return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (focusWidget() == folders_ && folders_->IsElsewhere()) {
        folders_->EnterCurrent();
      } else {
        ok_->click();
      }
      return;
    default:
      QDialog::keyPressEvent(event);
  }
}

std::optional<std::string> PickMoveFile() {
  SelectSound picker(SelectSound::Mode::MoveFile, QApplication::activeWindow());
  if (!picker.IsOpen() || picker.exec() != QDialog::Accepted) return std::nullopt;
  return picker.Chosen();
}

}  // namespace ui

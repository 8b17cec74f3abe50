// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/options/skins_page.h"

#include <QComboBox>
#include <QDir>
#include <QLabel>

#include <exception>

#include "desktop/picture_folders.h"
#include "platform/messages.h"
#include "platform/setting_variables.h"
#include "skin/window_scale.h"
#include "ui/options/name_list.h"
#include "widgets/shown_text.h"
#include "widgets/tool_tips.h"

namespace ui {

using namespace Qt::StringLiterals;
using platform::Settings;

namespace {

QLabel* NewLabel(QWidget* page, const char* name, const QString& caption = {}) {
  auto* label = new QLabel(caption, page);
  label->setObjectName(QLatin1StringView(name));
  return label;
}

/// As large as the label can show it; nothing where there is no picture.
void ShowPicture(QLabel& label, const QString& path) {
  const QImage picture(path);
  label.clear();
  if (picture.isNull()) return;
  const qreal ratio = label.devicePixelRatioF();
  QPixmap pixels = QPixmap::fromImage(picture.scaled(
      (QSizeF(label.size()) * ratio).toSize(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
  pixels.setDevicePixelRatio(ratio);
  label.setPixmap(pixels);
}

}  // namespace

SkinsPage::SkinsPage(QWidget* parent)
    : QWidget(parent),
      SkinsList_L_(NewLabel(this, "SkinsList_L", u"Available skins:"_s)),
      opSkinsList_(new NameList("opSkinsList", SkinsList_L_->text(), this)),
      opWindowSize_L_(NewLabel(this, "opWindowSize_L", u"Size of windows:"_s)),
      opWindowSize_(new QComboBox(this)),
      SkinPreview_L_(NewLabel(this, "SkinPreview_L", u"Skin preview:"_s)),
      PreviewBoard_(NewLabel(this, "PreviewBoard")),
      PreviewInterface_(NewLabel(this, "PreviewInterface")) {
  SkinsList_L_->setBuddy(opSkinsList_);
  opWindowSize_L_->setBuddy(opWindowSize_);
  opWindowSize_->setObjectName(u"opWindowSize"_s);
  opWindowSize_->setAccessibleName(opWindowSize_L_->text());
  for (const WindowSize& size : WindowSizes()) {
    opWindowSize_->addItem(QLatin1StringView(size.caption), QLatin1StringView(size.stored));
  }
  for (QLabel* preview : {PreviewBoard_, PreviewInterface_}) preview->setAlignment(Qt::AlignCenter);
  connect(opSkinsList_, &NameList::UserSelected, this, [this] {
    PreviewSkin();
    Q_EMIT ApplyWanted();
  });
  connect(opWindowSize_, &QComboBox::activated, this, [this] {
    Q_EMIT ApplyWanted();
    WarnOfLaterSize();
  });
}

void SkinsPage::LoadOptions() {
  PopulateSkinsList();
  const int stored = opWindowSize_->findData(AsItIs(Settings().WindowSizeSaved));
  opWindowSize_->setCurrentIndex(stored);
}

bool SkinsPage::PopulateSkinsList() {
  opSkinsList_->Clear();
  try {
    const QStringList names = desktop::PictureFolders(desktop::skins);
    opSkinsList_->AddNames(names);
    if (!opSkinsList_->Mark(AsItIs(Settings().Skin)) && !names.isEmpty()) {
      opSkinsList_->Select(names.front());
    }
    return true;
  } catch (const std::exception&) {
    platform::ShowMessage(
        platform::ErrorIcon, "Skin error",
        "There was an error locating your skins.  Please ensure you have a folder called UI "
        "Graphics within your Tarvolenix install folder that contains sub folders with skins in.",
        "OK");
    return false;
  }
}

QString SkinsPage::Selected() const { return opSkinsList_->Selected(); }

bool SkinsPage::HasSkin() const {
  const QString skin = Selected();
  return !skin.isEmpty() && QDir(desktop::PictureFolder(desktop::skins, skin)).exists();
}

void SkinsPage::PreviewSkin() {
  const QString folder = desktop::PictureFolder(desktop::skins, Selected());
  ShowPicture(*PreviewBoard_, folder + u"Board.jpg"_s);
  ShowPicture(*PreviewInterface_, folder + u"Interface.jpg"_s);
}

void SkinsPage::SetWindowSize() {
  if (opWindowSize_->currentIndex() < 0) return;
  Settings().WindowSizeSaved = opWindowSize_->currentData().toString().toStdString();
}

/// Turning back to what the windows have now says nothing.
void SkinsPage::WarnOfLaterSize() {
  if (opWindowSize_->currentData().toString().toStdString() == Settings().WindowSize) return;
  platform::ShowMessage(platform::InformationIcon, "Size of windows",
                        "The windows take their new size the next time you run Tarvolenix.", "OK");
}

void SkinsPage::SetToolTips() {
  SetTip(*opSkinsList_, "A list of all available skins");
  SetTip(*opWindowSize_, "How large the windows are drawn");
}

}  // namespace ui

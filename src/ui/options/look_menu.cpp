// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/options/look_menu.h"

#include <exception>

#include "desktop/picture_folders.h"
#include "platform/messages.h"
#include "platform/setting_variables.h"
#include "skin/skin.h"

namespace ui {

using platform::Settings;

namespace {

/// None where they can't be read: the options tell of that.
QStringList InstalledSkins() {
  try {
    return desktop::PictureFolders(desktop::skins);
  } catch (const std::exception&) {
    return {};
  }
}

void ChooseStyle(bool simple) {
  Settings().SimpleUISaved = simple;
  if (simple != Settings().SimpleUI) TellOfLaterStyle(simple);
}

void ChooseSkin(const std::string& name) {
  if (Settings().SimpleUI) {
    Settings().Skin = name;
  } else if (name != Settings().Skin) {
    ChangeSkin(name);
  }
  ChooseStyle(false);
}

}  // namespace

std::vector<MenuRow> LookRows() {
  std::vector<MenuRow> rows;
  for (const QString& skin : InstalledSkins()) {
    const std::string name = skin.toStdString();
    rows.push_back({name, [name] { ChooseSkin(name); }, true,
                    !Settings().SimpleUISaved && name == Settings().Skin});
  }
  rows.push_back({"Plain windows", [] { ChooseStyle(true); }, true, Settings().SimpleUISaved});
  return rows;
}

void TellOfLaterStyle(bool simple) {
  platform::ShowMessage(
      platform::InformationIcon, "Skin style",
      simple ? "Changing to the Windows style user interface will not take effect until the next "
               "time you run Tarvolenix."
             : "Changing to the Skinned style user interface will not take effect until the next "
               "time you run Tarvolenix.",
      "OK");
}

}  // namespace ui

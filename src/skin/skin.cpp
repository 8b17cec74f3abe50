// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/skin.h"

#include <QApplication>
#include <QFile>
#include <QPointer>
#include <QWindow>

#include <exception>
#include <optional>
#include <utility>
#include <vector>

#include "desktop/picture_file.h"
#include "desktop/picture_folders.h"
#include "platform/messages.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "platform/setting_variables.h"
#include "platform/text_fields.h"
#include "skin/colour_chart.h"
#include "skin/layouts/skin_table.h"
#include "skin/menu_colours.h"
#include "skin/system_button.h"
#include "skin/window_region.h"
#include "skin/window_skin.h"
#include "widgets/shown_text.h"

namespace ui {

namespace {

std::string SkinPath(std::string_view file) {
  return desktop::PictureFolder(desktop::skins, AsItIs(platform::Settings().Skin)).toStdString() +
         std::string(file);
}

QImage ReadBackground(const SkinRow& row) {
  QImage background = desktop::ReadPicture(SkinPath(row.background));
  // The shape is the window's: a picture may be finer or somewhat coarser than it, but is none of
  // the window where more than half of the pixels across are missing.
  const QPointF needed = OutlinePolygon(row.window).boundingRect().bottomRight() / 2;
  if (background.width() < needed.x() || background.height() < needed.y()) {
    throw desktop::PictureError(SkinPath(row.background));
  }
  return background;
}

/// Each cell needs a pixel at least.
QImage ReadStrip(std::string_view file, const layouts::Strip& shape) {
  QImage strip = desktop::ReadPicture(SkinPath(file));
  if (strip.width() < shape.columns || strip.height() < shape.rows) {
    throw desktop::PictureError(SkinPath(file));
  }
  return strip;
}

/// The colours of a chart, one entry for each control of the list.
template <typename Read>
auto ReadChart(std::string_view file, std::string_view controls, Read read) {
  std::vector<decltype(read(QImage(), 1))> colours;
  if (file.empty()) return colours;
  const QImage chart = desktop::ReadPicture(SkinPath(file));
  const int rows = platform::CountFields(controls, ';');
  for (int row = 1; row <= rows; ++row) colours.push_back(read(chart, row));
  return colours;
}

QColor FirstColumn(const QImage& chart, int row) { return SkinColour(chart, 1, row); }

FieldColours ReadField(const QImage& chart, int row) {
  return {SkinColour(chart, 1, row), SkinColour(chart, 2, row)};
}

GridColours ReadGrid(const QImage& chart, int row) {
  return {SkinColour(chart, 1, row), SkinColour(chart, 2, row), SkinColour(chart, 3, row),
          SkinColour(chart, 4, row), SkinColour(chart, 5, row), SkinColour(chart, 6, row)};
}

GridColours ReadGameList() {
  const SkinRow& row = *FindSkinRow("GameInterface");
  return ReadChart(row.gridChart, row.gridControls, ReadGrid).front();
}

/// In the colours of the game list, which every skin has, a window is plain but legible.
SkinPictures PlainPictures(const SkinRow& row) {
  const GridColours list = ReadGameList();
  const auto each = [](std::string_view controls) {
    return static_cast<std::size_t>(platform::CountFields(controls, ';'));
  };
  SkinPictures pictures;
  pictures.background = QImage(1, 1, QImage::Format_RGB32);
  pictures.background.fill(list.BackColor);
  pictures.textColours.assign(each(row.textControls), list.ForeColor);
  pictures.fieldColours.assign(each(row.fieldControls), {list.BackColorFixed, list.ForeColorFixed});
  pictures.gridColours.assign(each(row.gridControls), list);
  return pictures;
}

bool MayLackFiles(const SkinRow& row) { return row.borrows || row.isExtra; }

SkinPictures ReadSkin(const SkinRow& row) {
  if (MayLackFiles(row) && !QFile::exists(QString::fromStdString(SkinPath(row.background)))) {
    return PlainPictures(row);
  }
  SkinPictures pictures;
  if (!row.background.empty()) pictures.background = ReadBackground(row);
  platform::FieldWalk targets(row.stripTargets, ';'), files(row.strips, ';');
  for (int i = platform::CountFields(row.strips, ';'); i > 0; --i) {
    const std::string target(targets.Next());
    pictures.strips[target] = ReadStrip(files.Next(), ShapeOfStrip(target));
  }
  pictures.textColours = ReadChart(row.textChart, row.textControls, FirstColumn);
  pictures.fieldColours = ReadChart(row.fieldChart, row.fieldControls, ReadField);
  pictures.gridColours = ReadChart(row.gridChart, row.gridControls, ReadGrid);
  pictures.tabColours = ReadChart(row.tabChart, row.tabPages, FirstColumn);
  return pictures;
}

/// Messages that come up while the program ends would lack their skin too, so this happens once.
void TellOfLackOf(std::string_view background) {
  static bool telling = false;
  const auto& skinMissing = platform::TheSeams().hooks.skinMissing;
  if (!skinMissing || std::exchange(telling, true)) return;
  skinMissing(SkinPath(background));
  telling = false;
}

/// What the row asks of the skin; nothing where it failed, and the user was told.
std::optional<SkinPictures> Load(const SkinRow& row) {
  try {
    return ReadSkin(row);
  } catch (const std::exception&) {
    TellOfLackOf(row.background);
    return std::nullopt;
  }
}

void Give(SkinPictures pictures, WindowSkin* skin) {
  if (const auto strip = pictures.strips.find("ButtonImages"); strip != pictures.strips.end()) {
    ButtonImages() = strip->second;
  }
  if (skin) skin->Wear(std::move(pictures));
}

/// In the colours of the game list; a skin that lacks them fails where that is opened.
void DressMenus() {
  std::optional<GridColours> colours;
  try {
    if (!platform::Settings().SimpleUI) colours = ReadGameList();
  } catch (const std::exception&) {
  }
  ColourMenus(colours);
}

/// The windows that wear a skin, from the oldest on.
std::vector<QPointer<QWidget>> OpenSkinnedWindows() {
  const QWidgetList widgets = QApplication::topLevelWidgets();
  std::vector<QPointer<QWidget>> open;
  for (const QWindow* window : QGuiApplication::topLevelWindows()) {
    for (QWidget* widget : widgets) {
      if (widget->windowHandle() == window && WindowSkin::Of(*widget)) open.emplace_back(widget);
    }
  }
  return open;
}

}  // namespace

bool ApplySkin(QWidget& window) {
  WindowSkin* skin = WindowSkin::Of(window);
  const std::string name = skin ? std::string(skin->Name()) : window.objectName().toStdString();
  if (name == "SplashScreen") return true;
  const SkinRow* row = FindSkinRow(name);
  if (!row) {
    platform::ShowMessage(platform::ErrorIcon, "Invalid window skin",
                          "No skin file specified for the current window, " + name + ".", "OK");
  } else if (auto pictures = Load(*row)) {
    Give(std::move(*pictures), skin);
    return true;
  }
  if (skin) skin->Fail();
  return false;
}

bool ApplySkinToSystemTray() {
  auto pictures = Load(*FindSkinRow("SystemTray"));
  if (!pictures) return false;
  Give(std::move(*pictures), nullptr);
  DressMenus();
  return true;
}

bool ChangeSkin(const std::string& name) {
  platform::Settings().Skin = name;
  if (!ApplySkinToSystemTray()) return false;
  for (const QPointer<QWidget>& window : OpenSkinnedWindows()) {
    if (window && !ApplySkin(*window)) return false;
  }
  return true;
}

}  // namespace ui

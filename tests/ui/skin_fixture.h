// SPDX-License-Identifier: GPL-3.0-or-later
// Skins made of plain colours, in a program folder of the test's own, and a program that can't end.
#pragma once

#include <QBuffer>
#include <QFile>
#include <QPainter>
#include <QTemporaryDir>

#include <string_view>

#include "platform/text_fields.h"
#include "shell/shut_down.h"
#include "skin/layouts/all_windows.h"
#include "skin/layouts/skin_table.h"
#include "skin/layouts/strips.h"
#include "skin/skin.h"
#include "skin/window_region.h"
#include "skin/window_skin.h"
#include "ui/ui_fixture.h"

namespace ui {

/// Every colour of a skin tells the skin and the place that it comes from.
inline QColor ChartColour(int skin, int column, int row) {
  return {skin * 100 + 20, column * 30, row * 10};
}
inline QColor BackgroundColour(int skin) { return {0, skin * 100 + 20, 255}; }
inline QColor StripColour(int skin, int column, int row) {
  return {200, row * 20, skin * 100 + column * 20};
}

class SkinTest : public testing::Test {
 protected:
  SkinTest() {
    Process().ProgramFolder = folder_.path().toStdString() + "/";
    platform::TheSeams().hooks.skinMissing = shell::QuitForLackOf;
    platform::Settings().NotificationTimeout = 0;
    DrawSkin(0);
    EXPECT_TRUE(ApplySkinToSystemTray());
  }

  static std::string NameOf(int skin) { return skin == 0 ? "First" : "Zweite Häut"; }

  QString PathOf(std::string_view file) const {
    return QString::fromStdString(Process().ProgramFolder + "UI Graphics/" +
                                  platform::Settings().Skin + "/" + std::string(file));
  }

  static std::vector<std::string> FilesOf(std::string_view window) {
    const SkinRow& row = *FindSkinRow(window);
    std::vector<std::string> files;
    for (const auto file :
         {row.background, row.textChart, row.fieldChart, row.gridChart, row.tabChart}) {
      if (!file.empty()) files.emplace_back(file);
    }
    platform::FieldWalk strips(row.strips, ';');
    for (int i = platform::CountFields(row.strips, ';'); i > 0; --i)
      files.emplace_back(strips.Next());
    return files;
  }

  void Save(const QImage& picture, std::string_view file, const char* format) const {
    EXPECT_TRUE(QDir().mkpath(PathOf("")) && picture.save(PathOf(file), format)) << file;
  }

  static QByteArray BytesOf(const QImage& picture, const char* format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    EXPECT_TRUE(picture.save(&buffer, format));
    return bytes;
  }

  void Write(std::string_view file, const QByteArray& content) const {
    QFile target(PathOf(file));
    EXPECT_TRUE(target.open(QFile::WriteOnly) && target.write(content) == content.size());
  }

  /// The charts hold their colours in single pixels and garbage everywhere else.
  void DrawChart(int skin, std::string_view file, int columns, int rows) const {
    QImage chart(107 + 15 * columns, 7 + 15 * rows, QImage::Format_RGB32);
    chart.fill(Qt::magenta);
    for (int column = 1; column <= columns; ++column) {
      for (int row = 1; row <= rows; ++row) {
        chart.setPixelColor(92 + 15 * column, 15 * row - 8, ChartColour(skin, column, row));
      }
    }
    Save(chart, file, "BMP");
  }

  void DrawStrip(int skin, std::string_view file, const layouts::Strip& shape) const {
    QImage strip(shape.cell.width * shape.columns, shape.cell.height * shape.rows,
                 QImage::Format_RGB32);
    QPainter painter(&strip);
    for (int column = 0; column < shape.columns; ++column) {
      for (int row = 0; row < shape.rows; ++row) {
        painter.fillRect(column * shape.cell.width, row * shape.cell.height, shape.cell.width,
                         shape.cell.height, StripColour(skin, column, row));
      }
    }
    painter.end();
    Save(strip, file, "BMP");
  }

  void Draw(int skin, std::string_view window) const {
    const SkinRow& row = *FindSkinRow(window);
    if (!row.background.empty()) {
      // As coarse as one may be.
      const QRectF shape = OutlinePolygon(window).boundingRect();
      QImage background(static_cast<int>(shape.right() / 2) + 1,
                        static_cast<int>(shape.bottom() / 2) + 1, QImage::Format_RGB32);
      background.fill(BackgroundColour(skin));
      Save(background, row.background, "PNG");  // known by its content
    }
    const auto chart = [&](std::string_view file, std::string_view controls, int columns) {
      if (!file.empty()) DrawChart(skin, file, columns, platform::CountFields(controls, ';'));
    };
    chart(row.textChart, row.textControls, 1);
    chart(row.fieldChart, row.fieldControls, 2);
    chart(row.gridChart, row.gridControls, 6);
    chart(row.tabChart, row.tabPages, 1);
    platform::FieldWalk strips(row.strips, ';'), targets(row.stripTargets, ';');
    for (int i = platform::CountFields(row.strips, ';'); i > 0; --i) {
      DrawStrip(skin, strips.Next(), ShapeOfStrip(targets.Next()));
    }
  }

  /// Draws a whole skin, which the settings name then.
  void DrawSkin(int skin) const {
    platform::Settings().Skin = NameOf(skin);
    for (const layouts::Layout& window : layouts::allWindows) Draw(skin, window.window);
    Draw(skin, "SystemTray");
  }

  /// What the user was told of a skin that failed, if he was.
  std::string FileTold() {
    if (desktop_.boxes.plainBoxes.empty()) return "nothing";
    const auto [title, text] = desktop_.boxes.plainBoxes.back();
    desktop_.boxes.plainBoxes.clear();
    EXPECT_EQ(title, "Invalid skin file");
    const std::string before =
        "Tarvolenix could not locate the following skin file and will now quit;\n\n";
    EXPECT_EQ(text.substr(0, before.size()), before);
    return text.substr(before.size());
  }

  fakes::FakeDesktop desktop_;
  QTemporaryDir folder_;
};

/// A point of a window as it is seen.
inline QColor SeenAt(QWidget& window, QPoint point) {
  return window.grab().toImage().pixelColor(point);
}

inline QPoint MiddleOf(const layouts::Layout& window, std::string_view control) {
  const layouts::Rect& rect = layouts::RectOf(window, control);
  return {rect.x + rect.width / 2, rect.y + rect.height / 2};
}

}  // namespace ui

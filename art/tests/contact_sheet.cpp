// SPDX-License-Identifier: GPL-3.0-or-later
// contact_sheet: one picture of all windows in each skin and in the plain look, to look at.
//
//   contact_sheet PROGRAM_FOLDER PICTURE
//
// PROGRAM_FOLDER is a laid out program folder, whose pictures the windows load. Games and settings
// are imaginary. QT_SCALE_FACTOR makes a sheet for a finer screen.
#include <QApplication>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

#include "fakes/fake_desktop.h"
#include "platform/process_state.h"
#include "platform/setting_variables.h"
#include "store/saving.h"
#include "ui/board_window.h"
#include "ui/chess_graphics.h"
#include "ui/exchange_pawn.h"
#include "ui/layouts/outlines.h"
#include "ui/msg_form.h"
#include "ui/skin.h"
#include "ui/status_window.h"

namespace {

using namespace Qt::StringLiterals;

constexpr int kGap = 16;

struct Look {
  const char* skin;  // empty: the plain look
  const char* board;
};
constexpr Look looks[] = {
    {"Tarvolenix Classic", "Plain"}, {"Tarvolenix Night", "Slate"}, {"", "Plain"}};

void StoreGames() {
  store::GameRecord game;
  game.GAME_ID = 1;
  game.GAME_DATESTAMP = "090320260805";
  game.GAME_NAME = "Spring tournament";
  game.GAME_DATE = "09/03/2026";
  game.GAME_OPPONENTS_EMAIL = "eva@example.org";
  game.GAME_OPPONENTS_NAME = game.GAME_BLACK_NAME = "Eva Lindqvist";
  game.GAME_HOST = true;
  game.GAME_STATUS = store::MoveWaiting;
  const char* entries[][2] = {{"5254", "e4"},  {"5755", "e5"},  {"7163", "Nf3"}, {"2836", "Nc6"},
                              {"6134", "Bc4"}, {"6835", "Bc5"}, {"3233", "c3"},  {"7866", "Nf6"}};
  store::MoveRecords moves;
  for (const auto& [coordinates, text] : entries) {
    moves.push_back({static_cast<std::int32_t>(moves.size()) + 1, coordinates, text, ""});
  }
  moves.back().MoveComment = "The quiet line it is. I hope that your garden is past the frost.";
  store::SaveGame(game, moves);
}

// A window as it stands on a desktop: only what its outline leaves of it.
QImage Grabbed(QWidget& window) {
  window.show();
  QApplication::processEvents();
  const QPixmap grabbed = window.grab();
  if (platform::Settings().SimpleUI) return grabbed.toImage();
  QImage shaped(grabbed.size(), QImage::Format_ARGB32_Premultiplied);
  shaped.setDevicePixelRatio(grabbed.devicePixelRatio());
  shaped.fill(Qt::transparent);
  QPolygonF outline;
  for (const auto& point : ui::layouts::OutlineOf(window.objectName().toStdString())) {
    outline << QPointF(point.x, point.y);
  }
  QPainterPath path;
  path.addPolygon(outline);
  QPainter painter(&shaped);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setClipPath(path);
  painter.drawPixmap(0, 0, grabbed);
  return shaped;
}

std::vector<QImage> PicturesOf(const Look& look) {
  platform::SettingVariables& settings = platform::Settings();
  settings.SimpleUI = *look.skin == '\0';
  if (!settings.SimpleUI) settings.Skin = look.skin;
  ui::ChessGraphics graphics;
  if (!ui::LoadChessGraphics("Classic Wood", look.board, graphics)) return {};
  if (!ui::ApplySkinToSystemTray()) return {};
  const platform::Message question{1,
                                   "Delete game.",
                                   "Are you sure you wish to delete the game titled Spring "
                                   "tournament?",
                                   "Yes",
                                   "No",
                                   false};
  const auto board = std::make_unique<ui::BoardWindow>(graphics);
  ui::MsgForm dialog(question);
  ui::ExchangePawn exchange(graphics, rules::White);
  ui::StatusWindow status;
  status.Display(u"Retrieving games..."_s);
  std::vector<QImage> pictures;
  for (QWidget* window :
       std::initializer_list<QWidget*>{board.get(), &dialog, &exchange, &status}) {
    pictures.push_back(Grabbed(*window));
  }
  return pictures;
}

// One look below the other, its windows side by side.
QImage Assembled(const std::vector<std::vector<QImage>>& rows) {
  QSizeF size(0, kGap);
  for (const auto& row : rows) {
    qreal width = kGap, height = 0;
    for (const QImage& picture : row) {
      width += picture.deviceIndependentSize().width() + kGap;
      height = std::max(height, picture.deviceIndependentSize().height());
    }
    size = {std::max(size.width(), width), size.height() + height + kGap};
  }
  const qreal ratio = rows.front().front().devicePixelRatio();
  QImage sheet((size * ratio).toSize(), QImage::Format_RGB32);
  sheet.setDevicePixelRatio(ratio);
  sheet.fill(QColor(0x76, 0x80, 0x8c));
  QPainter painter(&sheet);
  QPointF corner(kGap, kGap);
  for (const auto& row : rows) {
    qreal height = 0;
    for (const QImage& picture : row) {
      painter.drawImage(corner, picture);
      corner.rx() += picture.deviceIndependentSize().width() + kGap;
      height = std::max(height, picture.deviceIndependentSize().height());
    }
    corner = {kGap, corner.y() + height + kGap};
  }
  return sheet;
}

}  // namespace

int main(int argc, char* argv[]) {
  QApplication application(argc, argv);
  if (argc != 3) {
    std::fputs("usage: contact_sheet PROGRAM_FOLDER PICTURE\n", stderr);
    return 1;
  }
  const fakes::FakeDesktop desktop;
  platform::Process().ProgramFolder = std::string(argv[1]) + "/";
  platform::Process().Offline = false;
  platform::Process().CurrentGameID = 1;
  StoreGames();
  std::vector<std::vector<QImage>> rows;
  for (const Look& look : looks) rows.push_back(PicturesOf(look));
  const bool complete =
      std::none_of(rows.begin(), rows.end(), [](auto& row) { return row.empty(); });
  if (complete && Assembled(rows).save(QString::fromLocal8Bit(argv[2]))) return 0;
  std::fputs("contact_sheet: a picture is missing or can't be written\n", stderr);
  return 1;
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "boards/chess_graphics.h"

#include <algorithm>
#include <exception>
#include <stdexcept>
#include <utility>

#include "desktop/picture_file.h"
#include "desktop/picture_folders.h"
#include "platform/messages.h"

namespace boards {
namespace {

constexpr const char* iconFiles[] = {"WhiteRook.ico",  "WhiteKnight.ico", "WhiteBishop.ico",
                                     "WhiteQueen.ico", "WhiteKing.ico",   "WhitePawn.ico",
                                     "BlackRook.ico",  "BlackKnight.ico", "BlackBishop.ico",
                                     "BlackQueen.ico", "BlackKing.ico",   "BlackPawn.ico"};

/// Pixels of a cell beyond which a sheet only costs memory: it is read smaller then.
constexpr int largestCell = 512;

void Report(const std::string& what) {
  platform::ShowMessage(platform::ErrorIcon, "Graphics error.",
                        "Tarvolenix ecountered " + what +
                            ".||Please select a valid chess set before attempting to open the "
                            "chess board.",
                        "OK", {}, false, platform::FailureSound);
}

/// An icon file may hold the picture in several sizes.
QImage ReadLargest(const std::string& path) {
  desktop::PictureFile file(path);
  QImageReader& reader = file.Reader();
  QImage largest;
  do {
    QImage picture = reader.read();
    if (picture.width() > largest.width()) largest = std::move(picture);
  } while (reader.jumpToNextImage());
  if (largest.isNull()) throw desktop::PictureError(path);
  return largest;
}

QImage ReadSheet(const std::string& path) {
  desktop::PictureFile file(path);
  QImageReader& reader = file.Reader();
  const QSize largest(largestCell * ChessGraphics::columns, largestCell * ChessGraphics::rows);
  if (const QSize size = reader.size();
      size.width() > largest.width() || size.height() > largest.height()) {
    reader.setScaledSize(size.boundedTo(largest));
  }
  QImage sheet = reader.read();
  if (sheet.isNull()) throw desktop::PictureError(path);
  if (sheet.width() < ChessGraphics::columns || sheet.height() < ChessGraphics::rows) {
    throw std::length_error("a picture without room for the cells of a sheet");
  }
  return sheet;
}

}  // namespace

const QImage& ChessGraphics::Icon(rules::PieceCode piece) const {
  return IconSet.at(static_cast<std::size_t>(piece - 1));
}

QImage ChessGraphics::Cell(int number) const {
  const int width = ChessSet.width() / columns;
  const int height = ChessSet.height() / rows;
  return ChessSet.copy(number % columns * width, number / columns * height, width, height);
}

ChessGraphics ReadChessGraphics(const std::string& chessSet, const std::string& chessBoard) {
  const std::string folder =
      desktop::PictureFolder(desktop::chessSets, QString::fromStdString(chessSet)).toStdString();
  ChessGraphics graphics;
  std::transform(std::begin(iconFiles), std::end(iconFiles), graphics.IconSet.begin(),
                 [&folder](const char* file) { return ReadLargest(folder + file); });
  graphics.ChessSet = ReadSheet(folder + chessBoard + ".jpg");
  return graphics;
}

bool LoadChessGraphics(const std::string& chessSet, const std::string& chessBoard,
                       ChessGraphics& graphics) {
  try {
    graphics = ReadChessGraphics(chessSet, chessBoard);
    return true;
  } catch (const desktop::PictureError& error) {
    Report(std::string("an error loading the graphics file ") + error.what());
  } catch (const std::exception&) {
    Report("a general error loading the graphics");
  }
  return false;
}

}  // namespace boards

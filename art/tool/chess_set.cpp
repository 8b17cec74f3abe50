// SPDX-License-Identifier: GPL-3.0-or-later
#include "chess_set.h"

#include <QPainter>

#include <array>
#include <utility>
#include <vector>

#include "grain.h"
#include "piece_drawing.h"
#include "piece_picture.h"
#include "saved_picture.h"

namespace art {

using namespace Qt::StringLiterals;

namespace {

constexpr int kColumns = 8;
constexpr int kKinds = 6;
constexpr int kKing = 5;
constexpr int kFallenKing = 7;
// Pieces are painted this large and scaled down for the sheet and the pictures.
constexpr int kPaintedSide = 1024;

constexpr std::array<const char*, kKinds> kPieceNames = {"Rook",  "Knight", "Bishop",
                                                         "Queen", "King",   "Pawn"};

/// One side's pictures by column; column 0 stays empty.
using SidePictures = std::array<QImage, kColumns>;

QImage ScaledTo(const QImage& picture, int side) {
  return picture.scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

SidePictures PaintSide(const std::vector<PieceDrawing>& drawings, const SetParameters& set,
                       const SidePalette& palette) {
  SidePictures pictures;
  for (size_t kind = 0; kind < kKinds; ++kind) {
    pictures[kind + 1] = WithShadow(PaintPiece(drawings[kind], palette, set.lamp), set.shadow);
  }
  pictures[kFallenKing] =
      WithShadow(PaintFallenPiece(drawings[kKing - 1], palette, set.lamp, set.fallen), set.shadow);
  return pictures;
}

SidePictures ScaledTo(SidePictures pictures, int side) {
  for (QImage& picture : pictures) {
    if (!picture.isNull()) picture = ScaledTo(picture, side);
  }
  return pictures;
}

// `white` and `black` are as large as a cell.
QImage ComposeSheet(const BoardParameters& board, const SidePictures& white,
                    const SidePictures& black, int side) {
  QImage sheet(kColumns * side, 4 * side, QImage::Format_RGB32);
  QPainter painter(&sheet);
  const QImage light = PaintGrain(board.light, side), dark = PaintGrain(board.dark, side);
  for (int cell = 0; cell < 4 * kColumns; ++cell) {
    const int column = cell % kColumns;
    const QPoint corner(column * side, cell / kColumns * side);
    painter.drawImage(corner, cell & 8 ? dark : light);
    const QImage& piece = (cell & 16 ? black : white)[static_cast<size_t>(column)];
    if (!piece.isNull()) painter.drawImage(corner, piece);
  }
  return sheet;
}

bool SavePieces(const SidePictures& pictures, const QString& stem, int side, QString* error) {
  for (size_t kind = 0; kind < kKinds; ++kind) {
    const QString path = stem + QString::fromLatin1(kPieceNames[kind]) + u".ico"_s;
    if (!SavePicture(ScaledTo(pictures[kind + 1], side), path, error)) return false;
  }
  return true;
}

bool SaveBoards(const SetParameters& set, const QString& boards, const SidePictures& white,
                const SidePictures& black, const QString& folder, QString* error) {
  for (const QString& name : set.boards) {
    const auto board = ReadBoardParameters(u"%1/%2.ini"_s.arg(boards, name), error);
    if (!board) return false;
    const QImage sheet = ComposeSheet(*board, white, black, set.cell);
    if (!SavePicture(sheet, folder + board->name + u".jpg"_s, error, set.quality)) return false;
  }
  return true;
}

}  // namespace

bool RenderChessSet(const SetParameters& set, const QString& source, const QString& output,
                    QString* error) {
  std::vector<PieceDrawing> pieces;
  for (const char* name : kPieceNames) {
    const QString path = u"%1/pieces/%2.svg"_s.arg(source, QString::fromLatin1(name).toLower());
    std::optional<PieceDrawing> piece = ReadPieceDrawing(path, set.lines, kPaintedSide, error);
    if (!piece) return false;
    pieces.push_back(std::move(*piece));
  }
  const SidePictures white = PaintSide(pieces, set, set.white);
  const SidePictures black = PaintSide(pieces, set, set.black);
  const QString folder = u"%1/Graphics/%2/"_s.arg(output, set.folder);
  return SavePieces(white, folder + u"White"_s, set.iconSide, error) &&
         SavePieces(black, folder + u"Black"_s, set.iconSide, error) &&
         SaveBoards(set, source + u"/boards"_s, ScaledTo(white, set.cell),
                    ScaledTo(black, set.cell), folder, error);
}

}  // namespace art

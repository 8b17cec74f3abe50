// SPDX-License-Identifier: GPL-3.0-or-later
#include "chess_set.h"

#include <QPainter>

#include <array>
#include <vector>

#include "piece_drawing.h"
#include "piece_picture.h"
#include "saved_picture.h"
#include "wood.h"

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

QImage ComposeSheet(const SetParameters& set, const SidePictures& white,
                    const SidePictures& black) {
  QImage sheet(kColumns * set.cell, 4 * set.cell, QImage::Format_RGB32);
  QPainter painter(&sheet);
  const QImage light = PaintWood(set.light, set.cell), dark = PaintWood(set.dark, set.cell);
  for (int cell = 0; cell < 4 * kColumns; ++cell) {
    const int column = cell % kColumns;
    const QPoint corner(column * set.cell, cell / kColumns * set.cell);
    painter.drawImage(corner, cell & 8 ? dark : light);
    const QImage& piece = (cell & 16 ? black : white)[static_cast<size_t>(column)];
    if (!piece.isNull()) painter.drawImage(corner, ScaledTo(piece, set.cell));
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

}  // namespace

bool RenderChessSet(const SetParameters& set, const QString& drawings, const QString& outputFolder,
                    QString* error) {
  std::vector<PieceDrawing> pieces;
  for (const char* name : kPieceNames) {
    const QString path = u"%1/%2.svg"_s.arg(drawings, QString::fromLatin1(name).toLower());
    const std::optional<PieceDrawing> piece = ReadPieceDrawing(path, kPaintedSide, error);
    if (!piece) return false;
    pieces.push_back(*piece);
  }
  const SidePictures white = PaintSide(pieces, set, set.white);
  const SidePictures black = PaintSide(pieces, set, set.black);
  const QString folder = outputFolder + u'/' + set.folder + u'/';
  return SavePieces(white, folder + u"White"_s, set.iconSide, error) &&
         SavePieces(black, folder + u"Black"_s, set.iconSide, error) &&
         SavePicture(ComposeSheet(set, white, black), folder + set.board + u".jpg"_s, error,
                     set.quality);
}

}  // namespace art

// SPDX-License-Identifier: GPL-3.0-or-later
#include "splash.h"

#include <QFont>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <QRadialGradient>
#include <QTransform>

#include "grain.h"
#include "piece_drawing.h"
#include "piece_picture.h"
#include "saved_picture.h"

namespace art {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kSize(960, 600);
constexpr int kPaintedSide = 1024;
constexpr int kCell = 160;
constexpr int kBorder = 72;

// So large, a piece needs thinner lines than on a square.
constexpr Lines kLines{9, 7, 0.7F, 0};

// Where the piece drawings' base line lies, in parts of a cell from the top.
constexpr double kBaseLine = 0.955;

// Pieces from the back of the board to the front: where a base stands, and how large a cell is
// there.
struct Standing {
  const char* piece;
  bool white;
  QPoint base;
  int cell;
};

constexpr Standing pieces[] = {
    {"rook", false, {884, 400}, 196},  {"bishop", false, {556, 396}, 200},
    {"pawn", false, {742, 424}, 226},  {"knight", false, {440, 484}, 304},
    {"queen", false, {816, 504}, 330}, {"king", true, {634, 560}, 480},
};

// The board's far and near corners, seen from a player's seat; the near ones lie out of sight.
const QPolygonF boardOutline({{318, 344}, {1052, 344}, {1560, 1010}, {-190, 1010}});

QLinearGradient Metal(const QRectF& box) {
  QLinearGradient metal(box.topLeft(), box.bottomRight());
  metal.setColorAt(0, QColor(u"#f7e2a4"_s));
  metal.setColorAt(0.5, QColor(u"#c99a45"_s));
  metal.setColorAt(1, QColor(u"#8a611f"_s));
  return metal;
}

// A dark room, with the lamp's warmth from the upper left.
void PaintRoom(QPainter& painter) {
  const QRect all(QPoint(), kSize);
  painter.fillRect(all, QColor(u"#1d120b"_s));
  QRadialGradient glow(QPointF(130, -70), 900);
  glow.setColorAt(0, QColor(196, 132, 74, 190));
  glow.setColorAt(0.35, QColor(128, 78, 42, 120));
  glow.setColorAt(1, QColor(29, 18, 11, 0));
  painter.fillRect(all, glow);
}

// The squares in a frame of dark wood with a brass inlay.
QImage PaintBoard(const BoardParameters& board) {
  const int inner = 8 * kCell, side = inner + 2 * kBorder;
  QImage picture(side, side, QImage::Format_ARGB32_Premultiplied);
  picture.fill(board.dark.deep);
  QPainter painter(&picture);
  const QRectF inlay(kBorder - 16, kBorder - 16, inner + 32, inner + 32);
  painter.setPen(QPen(Metal(inlay), 8));
  painter.drawRect(inlay);
  const QImage squares[] = {PaintGrain(board.light, kCell), PaintGrain(board.dark, kCell)};
  for (int square = 0; square < 64; ++square) {
    const int column = square % 8, row = square / 8;
    painter.drawImage(kBorder + column * kCell, kBorder + row * kCell, squares[(column + row) % 2]);
  }
  return picture;
}

QTransform LyingTransform(double side) {
  const QPolygonF flat({{0, 0}, {side, 0}, {side, side}, {0, side}});
  QTransform lie;
  // The outline is a convex trapezium, so there is always such a transform.
  QTransform::quadToQuad(flat, boardOutline, lie);
  return lie;
}

// The far rows lie in the dark of the room, the near left in the lamp's light.
void PaintBoardInPerspective(QPainter& painter, const BoardParameters& board) {
  const QImage flat = PaintBoard(board);
  painter.save();
  painter.setTransform(LyingTransform(flat.width()));
  painter.drawImage(0, 0, flat);
  painter.restore();

  QLinearGradient depth(0, boardOutline.at(0).y(), 0, kSize.height());
  depth.setColorAt(0, QColor(72, 46, 30));
  depth.setColorAt(0.4, QColor(150, 112, 84));
  depth.setColorAt(1, QColor(255, 240, 222));
  QLinearGradient across(0, 0, kSize.width(), 0);
  across.setColorAt(0, QColor(255, 236, 206));
  across.setColorAt(0.5, QColor(226, 196, 168));
  across.setColorAt(1, QColor(120, 92, 72));
  QPainterPath outline;
  outline.addPolygon(boardOutline);
  outline.closeSubpath();
  painter.save();
  painter.setCompositionMode(QPainter::CompositionMode_Multiply);
  painter.fillPath(outline, depth);
  painter.fillPath(outline, across);
  painter.restore();
}

// A shadow that lies on the board, away from the lamp.
void PaintLyingShadow(QPainter& painter, QPoint base, int cell) {
  painter.save();
  painter.translate(base.x() + 0.16 * cell, base.y() - 0.015 * cell);
  painter.scale(1, 0.22);
  QRadialGradient dark(QPointF(), 0.58 * cell);
  dark.setColorAt(0, QColor(10, 5, 2, 200));
  dark.setColorAt(0.55, QColor(10, 5, 2, 140));
  dark.setColorAt(1, QColor(10, 5, 2, 0));
  painter.setPen(Qt::NoPen);
  painter.setBrush(dark);
  painter.drawEllipse(QPointF(), 0.58 * cell, 0.58 * cell);
  painter.restore();
}

bool PaintPieces(QPainter& painter, const SetParameters& set, const QString& drawings,
                 QString* error) {
  for (const Standing& piece : pieces) {
    const QString path = u"%1/%2.svg"_s.arg(drawings, QLatin1StringView(piece.piece));
    const auto drawing = ReadPieceDrawing(path, kLines, kPaintedSide, error);
    if (!drawing) return false;
    const QImage picture =
        PaintPiece(*drawing, piece.white ? set.white : set.black, set.lamp)
            .scaled(piece.cell, piece.cell, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    PaintLyingShadow(painter, piece.base, piece.cell);
    painter.drawImage(piece.base.x() - piece.cell / 2,
                      piece.base.y() - qRound(kBaseLine * piece.cell), picture);
  }
  return true;
}

QPainterPath Lettering(const QString& text, int pixels, double spacing) {
  QFont font;
  font.setFamilies({u"P052"_s, u"Noto Serif"_s, u"DejaVu Serif"_s});
  font.setStyleHint(QFont::Serif);
  font.setPixelSize(pixels);
  font.setLetterSpacing(QFont::AbsoluteSpacing, spacing);
  QPainterPath path;
  path.addText(0, 0, font, text);
  return path;
}

void PaintTitle(QPainter& painter) {
  painter.save();
  painter.translate(64, 150);
  const QPainterPath name = Lettering(u"Tarvolenix"_s, 96, 2);
  painter.fillPath(name.translated(3, 4), QColor(10, 5, 2, 150));
  painter.fillPath(name, QColor(u"#fbf1d8"_s));
  const QRectF rule(2, 28, name.boundingRect().width(), 3);
  painter.fillRect(rule, Metal(rule));
  painter.fillPath(Lettering(u"Chess by e-mail"_s, 34, 3).translated(2, 76), QColor(u"#dcc08a"_s));
  painter.restore();
}

void PaintFrame(QPainter& painter) {
  const QRectF line = QRectF(QPointF(), QSizeF(kSize)).adjusted(15, 15, -15, -15);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(QColor(10, 5, 2, 120), 3));
  painter.drawRoundedRect(line.translated(1.5, 2), 12, 12);
  painter.setPen(QPen(Metal(line), 3));
  painter.drawRoundedRect(line, 12, 12);
}

}  // namespace

bool RenderSplash(const SetParameters& set, const QString& source, const QString& output,
                  QString* error) {
  const auto board = ReadBoardParameters(source + u"/boards/plain.ini"_s, error);
  if (!board) return false;
  QImage picture(kSize, QImage::Format_RGB32);
  QPainter painter(&picture);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  PaintRoom(painter);
  PaintBoardInPerspective(painter, *board);
  if (!PaintPieces(painter, set, source + u"/pieces"_s, error)) return false;
  PaintTitle(painter);
  PaintFrame(painter);
  painter.end();
  const QString folder = output + u"/UI Graphics/Splash"_s;
  const QImage small = picture.scaled(kSize / 2, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  return SavePicture(picture, folder + u"16@2x.bmp"_s, error) &&
         SavePicture(small, folder + u"16.bmp"_s, error) &&
         SavePicture(small.convertToFormat(QImage::Format_Indexed8, Qt::DiffuseDither),
                     folder + u"8.bmp"_s, error);
}

}  // namespace art

// SPDX-License-Identifier: GPL-3.0-or-later
#include "pages/board_picture.h"

#include <QBuffer>
#include <QHash>
#include <QImageWriter>

#include <stdexcept>

#include "desktop/picture_file.h"
#include "platform/process_state.h"

namespace pages {
namespace {

/// Whatever set the sender likes to play with: this one is clear at any size, and small as a file.
constexpr const char* sheetFile = "Graphics/Flat/Sand.jpg";

/// A mail has room for a small picture, and so many colours have room in a small one.
constexpr int mostColours = 256;

boards::ChessGraphics ReadGraphics() {
  desktop::PictureFile file(platform::Process().ProgramFolder + sheetFile);
  QImageReader& reader = file.Reader();
  reader.setScaledSize({boards::ChessGraphics::columns * BoardPictures::cell,
                        boards::ChessGraphics::rows * BoardPictures::cell});
  boards::ChessGraphics graphics;
  graphics.ChessSet = reader.read();
  if (graphics.ChessSet.isNull()) throw desktop::PictureError(sheetFile);
  return graphics;
}

/// The colour with so many bits of each of its three parts.
QRgb Rounded(QRgb colour, int bits) {
  const auto rounded = [bits](int part) {
    const int most = (1 << bits) - 1;
    return (part >> (8 - bits)) * 255 / most;
  };
  return qRgb(rounded(qRed(colour)), rounded(qGreen(colour)), rounded(qBlue(colour)));
}

/// The picture with a palette; a null one where that has no room for all rounded colours.
QImage WithPalette(const QImage& picture, int bits) {
  QImage result(picture.size(), QImage::Format_Indexed8);
  QHash<QRgb, uchar> indexes;
  QList<QRgb> colours;
  for (int y = 0; y < picture.height(); ++y) {
    const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
    uchar* written = result.scanLine(y);
    for (int x = 0; x < picture.width(); ++x) {
      const QRgb colour = Rounded(line[x], bits);
      auto index = indexes.constFind(colour);
      if (index == indexes.constEnd()) {
        if (colours.size() == mostColours) return {};
        index = indexes.insert(colour, static_cast<uchar>(colours.size()));
        colours.append(colour);
      }
      written[x] = *index;
    }
  }
  result.setColorTable(colours);
  return result;
}

}  // namespace

std::string BoardPictures::PictureOf(const boards::ShownPosition& shown) {
  if (!graphics_) graphics_ = ReadGraphics();
  const QImage board = boards::SmallBoard(shown, *graphics_, edge);
  QImage small;
  for (int bits = 5; small.isNull() && bits > 2; --bits) small = WithPalette(board, bits);
  QByteArray png;
  QBuffer buffer(&png);
  QImageWriter writer(&buffer, "png");
  if (!writer.write(small)) throw std::runtime_error("the board can't be written as a picture");
  return png.toStdString();
}

}  // namespace pages

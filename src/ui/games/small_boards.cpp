// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/games/small_boards.h"

#include <QFuture>
#include <QPromise>

#include <exception>
#include <optional>
#include <string>
#include <utility>

#include "board/stored_positions.h"
#include "boards/small_board.h"
#include "platform/setting_variables.h"
#include "store/queries.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int mostKept = 64;

QString KeyOf(const SmallBoards::Wanted& wanted) {
  return QString::fromStdString(wanted.game.GAME_DATESTAMP) +
         u"|%1|%2|%3"_s.arg(wanted.game.GAME_ID)
             .arg(wanted.moves)
             .arg(qRound(wanted.edge * wanted.pixelRatio)) +
         QString::fromStdString(platform::Settings().ChessSet + '|' +
                                platform::Settings().ChessBoard);
}

std::optional<boards::ShownPosition> PositionOf(const store::GameRecord& game) {
  store::MoveRecords moves;
  if (!store::SelectWholeMoves(moves, game.GAME_ID)) return std::nullopt;
  return boards::ShownPosition{board::LastSquares(game.GAME_ID, moves), board::LastPieceMove(moves),
                               game.GAME_HOST ? rules::White : rules::Black};
}

}  // namespace

/// The set that was read last, for the drawing thread alone.
struct SmallBoards::ChosenSet {
  std::string set, board;
  std::optional<boards::ChessGraphics> graphics;

  const boards::ChessGraphics& Read(const std::string& chessSet, const std::string& chessBoard) {
    if (!graphics || set != chessSet || board != chessBoard) {
      graphics = boards::ReadChessGraphics(chessSet, chessBoard);
      set = chessSet;
      board = chessBoard;
    }
    return *graphics;
  }
};

SmallBoards::SmallBoards(QObject* parent)
    : QObject(parent), kept_(mostKept), set_(std::make_shared<ChosenSet>()) {
  thread_.setMaxThreadCount(1);
}

void SmallBoards::Draw(const Wanted& wanted, const std::function<void(const QPixmap&)>& ready) {
  const QString key = KeyOf(wanted);
  if (const QPixmap* kept = kept_.object(key)) return ready(*kept);
  const auto position = PositionOf(wanted.game);
  if (!position) return;
  auto promise = std::make_shared<QPromise<QImage>>();
  promise->future().then(this, [this, key, ready, ratio = wanted.pixelRatio](const QImage& image) {
    if (image.isNull()) return;
    auto picture = QPixmap::fromImage(image);
    picture.setDevicePixelRatio(ratio);
    kept_.insert(key, new QPixmap(picture));
    ready(picture);
  });
  const platform::SettingVariables& settings = platform::Settings();
  thread_.start([promise, position = *position, set = set_, chessSet = settings.ChessSet,
                 chessBoard = settings.ChessBoard, edge = qRound(wanted.edge * wanted.pixelRatio)] {
    promise->start();
    QImage image;
    try {
      image = boards::SmallBoard(position, set->Read(chessSet, chessBoard), edge);
    } catch (const std::exception&) {
      // A set that can't be read is told of when a board is opened.
    }
    promise->addResult(image);
    promise->finish();
  });
}

}  // namespace ui

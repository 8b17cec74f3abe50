// SPDX-License-Identifier: GPL-3.0-or-later
#include "pages/mail_pages.h"

#include <exception>

#include "board/stored_positions.h"
#include "mail/sending.h"
#include "pages/move_page.h"
#include "pages/move_words.h"
#include "platform/registry.h"

namespace pages {
namespace {

/// The position behind the last move, and the one ahead of it.
struct End {
  rules::BoardSquares before;
  rules::BoardSquares after;
};

End EndOf(const mail::OutgoingGame& game) {
  End end;
  board::WalkStoredGame(game.record.GAME_ID, game.moves, [&end] {
    end.before = std::exchange(end.after, rules::ThePosition().BoardState);
  });
  return end;
}

/// As the mail's own sender is called, if possible.
std::string SendersName(const store::GameRecord& game) {
  const std::string name = game.GAME_HOST ? game.GAME_WHITE_NAME : game.GAME_BLACK_NAME;
  const auto own = platform::ReadRegistry(platform::mailSection, "MyName");
  return platform::ReturnValue(own, name.empty() ? "Your opponent" : name);
}

}  // namespace

platform::MovePage MailPages::PageOf(std::int32_t gameID) {
  const mail::OutgoingGame game = mail::LoadOutgoingGame(gameID);
  const End end = EndOf(game);
  const rules::Side reader = game.record.GAME_HOST ? rules::Black : rules::White;
  platform::MovePage page;
  try {
    page.picture = pictures_.PictureOf({end.after, board::LastPieceMove(game.moves), reader});
  } catch (const std::exception&) {
    // the words say it, too
  }
  page.html =
      PageHtml({game.record, game.moves, SendersName(game.record), end.before}, page.picture);
  return page;
}

std::string MailPages::WordsOf(std::int32_t gameID) {
  try {
    const mail::OutgoingGame game = mail::LoadOutgoingGame(gameID);
    return MoveWords(game.moves.back(), EndOf(game).before);
  } catch (const std::exception&) {
    return {};
  }
}

}  // namespace pages

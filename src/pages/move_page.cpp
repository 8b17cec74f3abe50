// SPDX-License-Identifier: GPL-3.0-or-later
#include "pages/move_page.h"

#include <algorithm>
#include <string_view>

#include "letters/html_text.h"
#include "letters/message_ids.h"
#include "mail/move_mail.h"
#include "pages/board_picture.h"
#include "pages/move_words.h"

namespace pages {
namespace {

using letters::TextToHtml;
using std::string_view;

/// What the last entry means to the one who reads of it, by how its text ends.
struct Event {
  string_view ending;
  string_view headline;  ///< behind the sender's name
  string_view state;
  bool isOver = false;
};

constexpr Event events[] = {
    {" 1/2-1/2", " has moved, and the game is a draw", "Nobody can win any more.", true},
    {"1/2-1/2", " accepts the draw", "The game has ended in a draw.", true},
    {"Draw offer", " offers you a draw", "It is for you to accept or to decline."},
    {"Decline", " declines the draw", "The game goes on, and it is your turn."},
    {"0-1", " gives up", "You have won.", true},
    {"1-0", " gives up", "You have won.", true},
    {"Surrender", " gives up", "You have won.", true},
    {"++", " has won", "Your king is in checkmate.", true},
    {"+", " has moved", "Your king is in check, and it is your turn."},
    {"", " has moved", "It is your turn."},
};

const Event& EventOf(const store::MoveRecord& entry) {
  return *std::find_if(std::begin(events), std::end(events), [&entry](const Event& event) {
    return entry.MoveText.ends_with(event.ending);
  });
}

/// The page has two type sizes: that of its words, and one for what only goes with them.
constexpr string_view smallType = "14px";

/// For clients that know of dark windows; the others keep what stands inline.
constexpr string_view darkPaper =
    "<style>@media (prefers-color-scheme:dark){.paper{background:#1a1f26!important;"
    "color:#d9e1ea!important}.paper a{color:#a9cdf2!important}}</style>\n";

constexpr string_view lightPaper = "background:#f3ead5;color:#2a1a10";

constexpr string_view webSite = "https://tarvolenix.example";

constexpr string_view invitation = " invites you to a game of chess";

std::string Headline(const ShownMove& shown, const Event& event) {
  const bool isFirst = shown.moves.size() == 1 && event.headline == " has moved";
  return TextToHtml(shown.sender).append(isFirst ? invitation : event.headline);
}

/// Comes ahead of all else, so that also a client that drops styles shows a page.
std::string Beginning(const std::string& headline) {
  return std::string(
             "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
             "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
             "<meta name=\"color-scheme\" content=\"light dark\">\n")
      .append(darkPaper)
      .append("<title>" + headline + "</title>\n</head>\n<body class=\"paper\" style=\"margin:0;")
      .append(lightPaper)
      .append("\">\n<div class=\"paper\" style=\"max-width:560px;margin:0 auto;padding:20px 12px;")
      .append(lightPaper)
      .append(
          ";font:18px/1.5 'Segoe UI',Verdana,Helvetica,Arial,sans-serif\">\n"
          "<h1 style=\"margin:0 0 8px;font-size:18px\">" +
          headline + "</h1>\n");
}

std::string Paragraph(string_view html) {
  return std::string("<p style=\"margin:0 0 14px\">").append(html).append("</p>\n");
}

std::string Subtitle(string_view text) {
  return std::string("<h2 style=\"margin:26px 0 8px;font-size:18px\">")
      .append(text)
      .append("</h2>\n");
}

/// An entry that moves no piece is in the headline already.
std::string LastMove(const ShownMove& shown) {
  const store::MoveRecord& last = shown.moves.back();
  const std::string words = MoveWords(last, shown.before);
  if (words.empty()) return {};
  return Paragraph("<b>" + words + "</b> (" + TextToHtml(last.MoveText) + ")");
}

std::string Comment(const std::string& comment) {
  if (comment.empty()) return {};
  return "<blockquote dir=\"auto\" style=\"margin:0 0 16px;padding:4px 0 4px 14px;"
         "border-left:4px solid #c07a3c\">" +
         TextToHtml(comment) + "</blockquote>\n";
}

/// The letters below the columns, or the digit beside a row.
std::string Coordinate(const std::string& name, const std::string& size) {
  return "<td align=\"center\" " + size + ">" + name + "</td>";
}

/// With the coordinates around it, as the moves' words mean them.
std::string Board(const std::string& picture, rules::Side reader) {
  if (picture.empty()) return {};
  const bool fromWhite = reader == rules::White;
  const std::string cell = '"' + std::to_string(BoardPictures::cell) + '"';
  const std::string edge = std::to_string(BoardPictures::edge);
  std::string table =
      "<table cellspacing=\"0\" cellpadding=\"0\" border=\"0\" "
      "style=\"margin:0 0 12px;border-collapse:collapse;line-height:1;font-size:";
  table.append(smallType).append("\">\n");
  for (int row = 0; row < 8; ++row) {
    table += "<tr>" + Coordinate(std::to_string(fromWhite ? 8 - row : row + 1),
                                 "width=\"18\" height=" + cell);
    if (row == 0) {
      table.append("<td colspan=\"8\" rowspan=\"8\"><img src=\"cid:")
          .append(letters::ContentIDOf(picture))
          .append("\" width=\"")
          .append(edge)
          .append("\" height=\"")
          .append(edge)
          .append("\" alt=\"The board\" style=\"display:block\"></td>");
    }
    table += "</tr>\n";
  }
  table += "<tr><td></td>";
  for (int column = 0; column < 8; ++column) {
    const int letter = fromWhite ? column : 7 - column;
    table += Coordinate(std::string(1, static_cast<char>('a' + letter)),
                        "width=" + cell + " height=\"20\"");
  }
  return table + "</tr>\n</table>\n";
}

std::string Turn(const Event& event, rules::Side reader, bool withBoard) {
  const char* explanation =
      withBoard ? ", at the bottom of the board; blue frames show the last move." : ".";
  return Paragraph(std::string(event.state) + " You play " +
                   (reader == rules::White ? "White" : "Black") + explanation);
}

std::string WhatToDo(const ShownMove& shown, const Event& event) {
  const std::string next =
      event.isOver ? "shows how the game has ended. Select <b>New game...</b> there if you like "
                     "another one."
                   : "shows the board. Answer there and press <b>Send</b>: what you write to " +
                         TextToHtml(shown.sender) + " by an ordinary mail moves no piece.";
  return Subtitle("What to do now") +
         Paragraph("Run Tarvolenix. It finds this mail by itself and " + next) +
         Paragraph(
             "If it doesn't find the mail, opening it here has marked it as read. Mark it as "
             "unread, or right click Tarvolenix's icon in the system tray and select <b>Retrieve "
             "games...</b>");
}

/// Whose program has answered needs no advice how to get it.
std::string WhereToGetIt(const ShownMove& shown) {
  if (shown.game.GAME_OPPONENTS_ID != 0) return {};
  return Subtitle("You don't have Tarvolenix?") +
         Paragraph(
             std::string("It is a free program for playing chess by ordinary mail, without any "
                         "server or account. You get it from <a style=\"color:#1f5a3c\" href=\"")
                 .append(webSite)
                 .append("\">")
                 .append(webSite)
                 .append("</a>. Tell it this mailbox, and it finds the game in it."));
}

/// What belongs to an offer of a draw that was not accepted takes no place in the table.
bool TakesPlace(const store::MoveRecord& entry) {
  return entry.MoveText != "Draw offer" && entry.MoveText != "Decline";
}

std::string MoveTable(const store::MoveRecords& moves) {
  std::string table = Subtitle("The moves so far") +
                      "<table cellspacing=\"0\" cellpadding=\"4\" border=\"0\" "
                      "style=\"border-collapse:collapse;font-size:18px\">\n"
                      "<tr align=\"left\"><th></th><th width=\"110\">White</th>"
                      "<th width=\"110\">Black</th></tr>\n";
  int place = 0;
  for (const store::MoveRecord& move : moves) {
    if (!TakesPlace(move)) continue;
    if (place % 2 == 0) {
      table += (place > 0 ? "</tr>\n<tr><td align=\"right\">" : "<tr><td align=\"right\">") +
               std::to_string(place / 2 + 1) + ".</td>";
    }
    table += "<td>" + TextToHtml(move.MoveText) + "</td>";
    ++place;
  }
  return place == 0 ? std::string{} : table + "</tr>\n</table>\n";
}

/// Beyond this the game stands in the text alone.
constexpr std::size_t greatestGameText = 6000;

/// Who forwards a mail forwards what he sees of it: the opponent's program must find the game
/// there, too.
std::string GameText(const ShownMove& shown) {
  const std::string text = std::string(mail::startMarker)
                               .append(mail::BuildMoveText(shown.game, shown.moves))
                               .append(mail::endMarker);
  if (text.size() > greatestGameText) return {};
  return std::string("<div style=\"margin:30px 0 0;border-top:1px solid #999;font-size:")
      .append(smallType)
      .append(
          "\">\n<p style=\"margin:10px 0 0\">The game, for Tarvolenix to read. Please don't "
          "change it.</p>\n<p style=\"margin:6px 0 0;font-family:monospace;font-size:inherit;"
          "line-height:1.35;word-break:break-all\">")
      .append(TextToHtml(text))
      .append("</p>\n</div>\n");
}

}  // namespace

std::string PageHtml(const ShownMove& shown, const std::string& picture) {
  const Event& event = EventOf(shown.moves.back());
  const rules::Side reader = shown.game.GAME_HOST ? rules::Black : rules::White;
  return Beginning(Headline(shown, event)) + Paragraph(TextToHtml(shown.game.GAME_NAME)) +
         LastMove(shown) + Comment(shown.moves.back().MoveComment) + Board(picture, reader) +
         Turn(event, reader, !picture.empty()) + WhatToDo(shown, event) + WhereToGetIt(shown) +
         MoveTable(shown.moves) + GameText(shown) + "</div>\n</body>\n</html>\n";
}

}  // namespace pages

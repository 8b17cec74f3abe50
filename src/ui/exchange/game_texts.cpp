// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/exchange/game_texts.h"

#include <QFileDialog>
#include <QPointer>

#include <algorithm>
#include <optional>
#include <string>

#include "pgn/export.h"
#include "platform/busy_pointer.h"
#include "platform/files.h"
#include "platform/messages.h"
#include "platform/polling.h"
#include "platform/process_state.h"
#include "platform/whole_file.h"
#include "store/queries.h"
#include "store/repair.h"
#include "ui/exchange/clipboard.h"
#include "ui/exchange/exchange_settings.h"
#include "widgets/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr const char* title = "Save as PGN";

void Fail(const std::string& text) {
  platform::ShowMessage(platform::DatabaseIcon, title, text, "OK", {}, false,
                        platform::FailureSound);
}

/// The records of one game, or of all. Nothing where there is none; the user was told.
std::optional<store::GameRecords> ReadRecords(std::optional<std::int32_t> gameID) {
  store::GameRecords games;
  const std::string wanted = gameID ? "GAME_ID;" + std::to_string(*gameID) : "";
  if (store::SelectGames(games, wanted) && !games.empty()) return games;
  Fail(store::WithDamage("The games can't be read."));
  return std::nullopt;
}

std::optional<std::string> ReadText(std::optional<std::int32_t> gameID, bool withAddresses) {
  const platform::BusyPointer busy;
  const Myself me = WhoIAm();
  const std::vector<std::int32_t> numbers =
      gameID ? std::vector{*gameID} : std::vector<std::int32_t>{};
  auto text = pgn::PgnOfStoredGames(numbers, {withAddresses, me.name, me.address});
  if (!text) Fail(store::WithDamage("The games can't be read."));
  return text;
}

/// A file is called after the players of its one game.
QString FileNameFor(const store::GameRecords& games) {
  if (games.size() > 1) return u"Tarvolenix games.pgn"_s;
  const store::GameRecord& game = games.front();
  const auto name = [](const std::string& player, bool own) {
    return ShownLine(player.empty() && own ? WhoIAm().name : player);
  };
  QString players = name(game.GAME_WHITE_NAME, game.GAME_HOST) + u" - "_s +
                    name(game.GAME_BLACK_NAME, !game.GAME_HOST);
  // Nothing that leads into another folder, or hides the file.
  players.replace(u'/', u'-');
  return u"%1.pgn"_s.arg(players.startsWith(u'.') ? players.mid(1) : players);
}

QString AskForFile(QWidget& window, const QString& name) {
  QFileDialog dialog(&window, QString::fromLatin1(title), LastFolder(), pgnFilter);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix(u"pgn"_s);
  dialog.selectFile(name);
  if (dialog.exec() != QDialog::Accepted) return {};
  return dialog.selectedFiles().value(0);
}

/// Whoever just presses Enter or Escape gives no address away.
bool WantsAddresses(const store::GameRecords& games) {
  const bool anyAddress = std::ranges::any_of(
      games, [](const store::GameRecord& game) { return !game.GAME_OPPONENTS_EMAIL.empty(); });
  return anyAddress &&
         !platform::AskWithExtra(platform::InformationIcon, title,
                                 "Shall the mail addresses of the players be in the file, too?  "
                                 "Whoever gets the file can read them.",
                                 "Leave out", "Put in");
}

void Write(const QString& path, const std::string& text, std::size_t count) {
  const std::string name = path.toStdString();
  try {
    platform::ReplaceFile(name, text);
  } catch (const platform::FileError& error) {
    Fail(platform::WithCause("The file " + name + " can't be written.", error.what()));
    return;
  }
  platform::ShowMessage(platform::InformationIcon, title,
                        store::CountedGames(static_cast<int>(count)) + " saved as " + name + ".",
                        "OK");
}

void Save(QWidget& window, std::optional<std::int32_t> gameID) {
  const platform::PollingHold hold;
  const QPointer<QWidget> self = &window;
  const auto games = ReadRecords(gameID);
  if (!games) return;
  const QString path = AskForFile(window, FileNameFor(*games));
  if (path.isEmpty() || !self || platform::Process().Stopping) return;
  KeepFolderOf(path);
  const bool withAddresses = WantsAddresses(*games);
  if (platform::Process().Stopping) return;
  if (const auto text = ReadText(gameID, withAddresses)) Write(path, *text, games->size());
}

}  // namespace

void CopyGame(const QWidget& window, std::int32_t gameID) {
  if (const auto text = ReadText(gameID, false)) {
    CopyText(window, AsItIs(*text), u"The game was copied."_s);
  }
}

void SaveGameAsPgn(QWidget& window, std::int32_t gameID) { Save(window, gameID); }

void SaveAllGamesAsPgn(QWidget& window) { Save(window, {}); }

}  // namespace ui

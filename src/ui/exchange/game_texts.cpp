// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/exchange/game_texts.h"

#include <QFileInfo>
#include <QPointer>

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "pgn/export.h"
#include "platform/busy_pointer.h"
#include "platform/files.h"
#include "platform/messages.h"
#include "platform/polling.h"
#include "platform/process_state.h"
#include "platform/whole_file.h"
#include "skin/file_dialog.h"
#include "store/queries.h"
#include "store/repair.h"
#include "ui/exchange/clipboard.h"
#include "ui/exchange/exchange_settings.h"
#include "ui/exchange/watched_work.h"
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

std::optional<std::string> ReadText(std::int32_t gameID) {
  const platform::BusyPointer busy;
  const Myself me = WhoIAm();
  auto text = pgn::PgnOfStoredGames({gameID}, {false, me.name, me.address});
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
  return ChooseFiles(dialog).value(0);
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

/// Stored games on their way into a file, on another thread than the window's.
class GamesFile {
 public:
  GamesFile(std::string name, std::optional<std::int32_t> gameID, pgn::ExportOptions options)
      : name_(std::move(name)), options_(std::move(options)) {
    if (gameID) numbers_.push_back(*gameID);
  }

  void Write(WorkProgress& progress) {
    const auto goOn = [&progress] {
      ++progress.done;
      return !progress.isCancelled;
    };
    const auto text = pgn::PgnOfStoredGames(numbers_, options_, goOn);
    if (progress.isCancelled) return;
    progress.BeginLastStep();
    if (text) {
      Replace(*text);
    } else {
      couldRead_ = false;
    }
  }

  /// Of a file that isn't there because the user cancelled nothing is said.
  void Tell(std::size_t games) const {
    if (!couldRead_) return Fail(store::WithDamage("The games can't be read."));
    if (!why_.empty()) return Fail(why_);
    if (!isWritten_) return;
    platform::ShowMessage(platform::InformationIcon, title,
                          store::CountedGames(static_cast<int>(games)) + " saved as " + name_ + ".",
                          "OK");
  }

 private:
  void Replace(const std::string& text) try {
    platform::ReplaceFile(name_, text);
    isWritten_ = true;
  } catch (const std::exception& error) {
    why_ = platform::WithCause("The file " + name_ + " can't be written.", error.what());
  }

  const std::string name_;
  const pgn::ExportOptions options_;
  std::vector<std::int32_t> numbers_;
  bool couldRead_ = true;
  bool isWritten_ = false;
  std::string why_;
};

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
  const Myself me = WhoIAm();
  GamesFile file(path.toStdString(), gameID, {withAddresses, me.name, me.address});
  WorkProgress progress;
  progress.whole = static_cast<std::int64_t>(games->size());
  const WorkWords words{"ExportProgress", title,
                        u"Saving the games as %1"_s.arg(ShownLine(QFileInfo(path).fileName()))};
  DoWatched(window, words, progress, [&] { file.Write(progress); });
  if (self && !platform::Process().Stopping) file.Tell(games->size());
}

}  // namespace

void CopyGame(const QWidget& window, std::int32_t gameID) {
  if (const auto text = ReadText(gameID)) {
    CopyText(window, AsItIs(*text), u"The game was copied."_s);
  }
}

void SaveGameAsPgn(QWidget& window, std::int32_t gameID) { Save(window, gameID); }

void SaveAllGamesAsPgn(QWidget& window) { Save(window, {}); }

}  // namespace ui

// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/exchange/import_games.h"

#include <QPointer>

#include <string>

#include "pgn/import.h"
#include "pgn/known_games.h"
#include "platform/messages.h"
#include "platform/polling.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "skin/file_dialog.h"
#include "store/repair.h"
#include "store/saving.h"
#include "study/imported_notes.h"
#include "ui/exchange/exchange_settings.h"
#include "ui/exchange/file_reading.h"
#include "ui/exchange/import_result.h"
#include "ui/exchange/unfinished_games.h"
#include "ui/exchange/watched_work.h"
#include "widgets/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;
using platform::Process;

namespace {

constexpr const char* importTitle = "Import PGN";

void Tell(const std::string& text, bool isFailure) {
  platform::ShowMessage(isFailure ? platform::DatabaseIcon : platform::InformationIcon, importTitle,
                        text, "OK", {}, false,
                        isFailure ? platform::FailureSound : platform::AttentionSound);
}

/// One file on its way into the list.
class Import {
 public:
  Import(QWidget& window, const QString& path)
      : window_(&window), path_(path), name_(path.toStdString()) {}

  std::optional<std::int32_t> Run() {
    const Myself me = WhoIAm();
    options_ = {me.name, me.address, {}, platform::TheSeams().clock->Now()};
    stored_ = pgn::KnownGames::Stored(options_);
    if (!stored_) {
      Tell(store::WithDamage("The games can't be imported: those in the list can't be read."),
           true);
      return std::nullopt;
    }
    if (!Read() || !AskAboutUnfinished()) return std::nullopt;
    if (games_.count == 0) {
      Tell("There is no game in " + name_ + ".", true);
      return std::nullopt;
    }
    if (games_.taken.Count() > 0 && !Store()) return std::nullopt;
    const bool areNotesKept = study::KeepNotesOf(games_, known_, first_, options_);
    ShowResult(areNotesKept);
    return first_;
  }

 private:
  bool IsOver() const { return !window_ || Process().Stopping; }

  /// False where it can't be read, or the user cancelled. Where nothing is to be asked, the games
  /// are stored on the way.
  bool Read() {
    const FileReading reading = ReadFile(*window_, path_, [this](auto& text, auto& progress) {
      games_ = pgn::ReadGames(text, options_);
      if (text.bad()) return;
      known_ = pgn::KnownGames(*stored_).LeaveOutOf(games_);
      if (isAnswered_ || UnfinishedGames(games_).IsEmpty()) AddGames(progress);
    });
    if (!reading.why.empty()) Tell(reading.why, true);
    // What is stored already can't be cancelled any more.
    return (reading.isDone || first_) && !IsOver();
  }

  /// Whoever doesn't answer gets the other games.
  bool AskAboutUnfinished() {
    const UnfinishedGames unfinished(games_);
    if (unfinished.IsEmpty()) return true;
    options_.answers = unfinished.Ask(*window_);
    if (IsOver()) return false;
    if (options_.answers.empty()) return true;
    isAnswered_ = true;
    return Read();
  }

  /// On any thread.
  void AddGames(const WorkProgress& progress) {
    const auto isCancelled = [&progress] { return progress.isCancelled.load(); };
    if (games_.taken.Count() == 0 || isCancelled()) return;
    first_ = store::AddGames(games_.taken, &whyNot_, isCancelled);
  }

  /// What isn't stored yet. False where it can't be, or the user cancelled.
  bool Store() {
    WorkProgress progress;
    if (!first_ && whyNot_.empty()) {
      const WorkWords words{"ImportProgress", importTitle, u"Taking the games into the list"_s};
      DoWatched(*window_, words, progress, [&] { AddGames(progress); });
    }
    if (first_) return true;
    if (progress.isCancelled || IsOver()) return false;
    Tell(store::WithDamage("The games of " + name_ + " can't be saved.  The cause: " + whyNot_ +
                           "."),
         true);
    return false;
  }

  void ShowResult(bool areNotesKept) const {
    const int stored = static_cast<int>(games_.taken.Count());
    const QStringList lines = LeftOutLines(games_, known_, areNotesKept);
    if (lines.isEmpty()) {
      Tell(store::CountedGames(stored) + " imported from " + name_ + ".", false);
    } else {
      ShowImportResult(*window_,
                       u"%1 of %2 imported from %3"_s.arg(stored).arg(
                           Shown(store::CountedGames(games_.count)), ShownLine(name_)),
                       lines);
    }
  }

  const QPointer<QWidget> window_;
  const QString path_;
  const std::string name_;
  pgn::ImportOptions options_;
  pgn::ImportedGames games_;
  std::optional<pgn::KnownGames> stored_;
  std::vector<pgn::KnownGame> known_;  ///< those that were in the list before
  bool isAnswered_ = false;
  std::optional<std::int32_t> first_;  ///< once they are stored
  std::string whyNot_;                 ///< they can't be stored
};

}  // namespace

bool IsPgnFile(const QString& path) { return path.endsWith(u".pgn"_s, Qt::CaseInsensitive); }

QStringList AskForPgnFiles(QWidget& window) {
  QFileDialog dialog(&window, QString::fromLatin1(importTitle), LastFolder(), pgnFilter);
  dialog.setFileMode(QFileDialog::ExistingFiles);
  QStringList paths = ChooseFiles(dialog);
  if (!paths.isEmpty()) KeepFolderOf(paths.first());
  return paths;
}

std::optional<std::int32_t> ImportGames(QWidget& window, const QString& path) {
  const platform::PollingHold hold;
  return Import(window, path).Run();
}

}  // namespace ui

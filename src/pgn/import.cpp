// SPDX-License-Identifier: GPL-3.0-or-later
#include "pgn/import.h"

#include <algorithm>
#include <deque>
#include <future>
#include <istream>
#include <thread>

#include "letters/mail_text.h"
#include "mail/character_count.h"
#include "mail/move_mail.h"
#include "pgn/game_text.h"
#include "pgn/played_text.h"
#include "platform/ascii.h"
#include "platform/mail_address.h"
#include "platform/utf8.h"

namespace pgn {
namespace {

/// How much is read at a time. A game may be longer, up to the second figure.
constexpr std::size_t blockSize = std::size_t{1} << 20;
constexpr std::size_t longestBlock = std::size_t{8} << 20;

/// Characters of an address in the game file.
constexpr std::size_t longestAddress = 255;

constexpr std::string_view runningResult = "*";

/// The parts of a text, cut between games.
class Blocks {
 public:
  explicit Blocks(std::istream& text) : text_(text) {}

  /// The next part; blank at the end.
  std::string Next() {
    std::string block = std::move(rest_);
    rest_.clear();
    while (ReadMore(block)) {
      const std::size_t cut = LastBeginning(block);
      if (cut == 0 && block.size() < longestBlock) continue;
      rest_ = block.substr(cut == 0 ? block.size() : cut);
      block.resize(block.size() - rest_.size());
      return block;
    }
    isLast_ = true;
    return block;
  }

  /// Whether the text ends with the part that Next() gave.
  bool IsLast() const { return isLast_; }

 private:
  /// False at the end of the text.
  bool ReadMore(std::string& block) {
    const std::size_t before = block.size();
    block.resize(before + blockSize);
    text_.read(block.data() + before, static_cast<std::streamsize>(blockSize));
    block.resize(before + static_cast<std::size_t>(text_.gcount()));
    return text_.gcount() > 0;
  }

  /// Where the last game begins that is seen to begin; 0 for none. Not every game has an Event.
  static std::size_t LastBeginning(std::string_view block) {
    for (const std::string_view sign : {"\n[Event \"", "\n\n[", "\n\r\n["}) {
      const auto found = block.rfind(sign);
      if (found != std::string_view::npos) return FirstTag(block, found + 1);
    }
    return 0;
  }

  /// The beginning of the line at `line`, or of those before it that are tags too.
  static std::size_t FirstTag(std::string_view block, std::size_t line) {
    while (line > 1) {
      const auto end = block.rfind('\n', line - 2);
      const auto before = end == std::string_view::npos ? 0 : end + 1;
      if (block[before] != '[') break;
      line = before;
    }
    return line;
  }

  std::istream& text_;
  std::string rest_;
  bool isLast_ = false;
};

/// Text as a field of the game file, which knows no escapes.
std::string Field(std::string text) {
  std::ranges::replace(text, '|', '/');
  text = mail::StripReservedText(text);
  text.resize(mail::FirstCharacters(text, mail::longestName).size());
  return text.empty() ? "?" : text;
}

/// The day of a tag such as "1992.11.??". What isn't known of it is its beginning; of a day without
/// a year nothing is.
std::string DateOf(const std::string& tag, const platform::LocalTime& now) {
  if (tag.size() != 10) return DayOf(now);
  const auto part = [&](std::size_t at) {
    const std::string digits = tag.substr(at, 2);
    return digits == "??" ? std::string("01") : digits;
  };
  const std::string date = part(8) + '/' + part(5) + '/' + tag.substr(0, 4);
  return platform::ToDate(date) ? date : DayOf(now);
}

std::string WithoutBlanksAround(const std::string& text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// A blank name is nobody's.
bool SameName(const std::string& a, const std::string& b) {
  const std::string name = WithoutBlanksAround(a);
  return !name.empty() && platform::SameWithoutCase(name, WithoutBlanksAround(b));
}

/// Other notes than addresses are usual in such a tag.
std::string AddressIn(const std::string& tag) {
  return tag.find('@') == std::string::npos ? std::string() : WithoutBlanksAround(tag);
}

/// Why a game isn't taken with such an address of the opponent, as a sentence.
std::string WhyNotTo(const std::string& address, bool white, bool running) {
  if (!address.empty()) {
    const std::string why = WhyNoAddress(address);
    return why.empty() ? why : (white ? "Its BlackNA " : "Its WhiteNA ") + why + '.';
  }
  return running ? "It isn't finished, and your opponent's mail address isn't known." : "";
}

/// Turns the games of one part of the text into lines of the game file.
class Importer {
 public:
  Importer(const ImportOptions* options, bool isLastPart)
      : options_(options), isLastPart_(isLastPart) {}

  ImportedGames Read(std::string_view block) {
    GameReader reader(block);
    GameText game;
    while (reader.Next(game)) {
      // The tag tells how the game ended, and not whether all of it is here.
      if (isLastPart_ && game.isCut) game.result = {};
      Take(game);
    }
    return std::move(games_);
  }

 private:
  void Take(const GameText& text) {
    ++games_.count;
    PlayedText played = PlayThrough(text, options_ != nullptr);
    Objection& objection = played.objection;
    PossibleOpponents lacking;
    if (options_ && objection.why.empty()) lacking = Keep(text, played);
    if (objection.why.empty()) return;
    games_.refused.push_back({games_.count, objection.ply, std::move(objection.move),
                              std::move(objection.why), std::move(lacking)});
  }

  /// Whom the user has to be asked about; nobody where he hasn't.
  PossibleOpponents Keep(const GameText& text, PlayedText& played) {
    const bool running = played.result == runningResult;
    PossibleOpponents opponents = OpponentsIn(text);
    const GoingOn* answer = running ? AnswerOn(opponents) : nullptr;
    const bool isOpen = opponents.size() > 1;
    const bool white = isOpen && answer ? answer->ownSide == rules::White : PlaysWhite(text);
    const Player& opponent = white ? opponents.back() : opponents.front();
    const std::string address = AddressOf(opponent, running, answer);
    played.objection.why = running && isOpen && !answer
                               ? "It isn't finished, and neither player is you."
                               : WhyNotTo(address, white, running);
    const bool lacks = !played.objection.why.empty();
    const bool canBeTold = running && (isOpen || address.empty());
    if (lacks && !canBeTold) return {};
    (lacks ? games_.lacking : games_.taken).Add(Record(text, played, white, address), played.moves);
    if (lacks) return opponents;
    if (running && !address.empty()) games_.addresses.emplace(opponent.name, address);
    if (!played.note.empty()) games_.notes.push_back({games_.count, std::move(played.note)});
    return {};
  }

  PossibleOpponents OpponentsIn(const GameText& text) const {
    const auto player = [&text](const char* name, const char* address) {
      return Player{WithoutBlanksAround(text.Tag(name)), AddressIn(text.Tag(address))};
    };
    Player white = player("White", "WhiteNA");
    Player black = player("Black", "BlackNA");
    if (IsOwn(text, true)) return {std::move(black)};
    if (IsOwn(text, false)) return {std::move(white)};
    return {std::move(white), std::move(black)};
  }

  const GoingOn* AnswerOn(const PossibleOpponents& opponents) const {
    const auto answer = options_->answers.find(opponents);
    return answer == options_->answers.end() ? nullptr : &answer->second;
  }

  std::string AddressOf(const Player& opponent, bool running, const GoingOn* answer) const {
    if (answer) return answer->address;
    return running && opponent.address.empty() ? options_->opponent : opponent.address;
  }

  bool IsOwn(const GameText& text, bool white) const {
    return platform::SameAddress(text.Tag(white ? "WhiteNA" : "BlackNA"), options_->ownAddress) ||
           SameName(text.Tag(white ? "White" : "Black"), options_->ownName);
  }

  /// A game of others is seen from White's side.
  bool PlaysWhite(const GameText& text) const { return IsOwn(text, true) || !IsOwn(text, false); }

  store::GameRecord Record(const GameText& text, const PlayedText& played, bool white,
                           const std::string& address) const {
    store::GameRecord game;
    game.GAME_DATESTAMP = StampOf(options_->now);
    game.GAME_NAME = Field(text.Tag("Event"));
    game.GAME_DATE = DateOf(text.Tag("Date"), options_->now);
    game.GAME_OPPONENTS_EMAIL = address;
    game.GAME_WHITE_NAME = Field(text.Tag("White"));
    game.GAME_BLACK_NAME = Field(text.Tag("Black"));
    game.GAME_HOST = white;
    game.GAME_OPPONENTS_NAME = white ? game.GAME_BLACK_NAME : game.GAME_WHITE_NAME;
    game.GAME_STATUS = StatusOf(played, white);
    game.GAME_START_BOARD = played.startBoard;
    return game;
  }

  static std::int16_t StatusOf(const PlayedText& played, bool white) {
    if (played.result == "1/2-1/2") return store::GameDrawn;
    if (played.result != runningResult) {
      return (played.result == "1-0") == white ? store::GameWon : store::GameLost;
    }
    const bool whiteToMove = played.moves.size() % 2 == 0;
    return whiteToMove == white ? store::MoveWaiting : store::WaitingForOpponent;
  }

  const ImportOptions* options_;  // none where the games are only checked
  const bool isLastPart_;
  ImportedGames games_;
};

void Append(ImportedGames& all, ImportedGames&& part) {
  for (RefusedGame& refused : part.refused) {
    refused.number += all.count;
    all.refused.push_back(std::move(refused));
  }
  for (ImportedNote& note : part.notes) {
    note.number += all.count;
    all.notes.push_back(std::move(note));
  }
  all.addresses.merge(part.addresses);
  all.count += part.count;
  all.taken.Append(part.taken);
  all.lacking.Append(part.lacking);
}

/// Each processor has a part; the games keep the order of the text.
ImportedGames ReadParts(std::istream& text, const ImportOptions* options) {
  Blocks blocks(text);
  ImportedGames games;
  std::deque<std::future<ImportedGames>> parts;
  const std::size_t atOnce = std::max(1U, std::thread::hardware_concurrency());
  for (std::string block = blocks.Next(); !block.empty(); block = blocks.Next()) {
    if (parts.size() > atOnce) {
      Append(games, parts.front().get());
      parts.pop_front();
    }
    parts.push_back(std::async(std::launch::async,
                               [options, block = std::move(block), isLast = blocks.IsLast()] {
                                 return Importer(options, isLast).Read(block);
                               }));
  }
  for (auto& part : parts) Append(games, part.get());
  return games;
}

}  // namespace

std::string DayOf(const platform::LocalTime& moment) {
  return platform::ZeroFilled(moment.day, 2) + '/' + platform::ZeroFilled(moment.month, 2) + '/' +
         platform::ZeroFilled(moment.year, 4);
}

std::string StampOf(const platform::LocalTime& now) {
  std::string stamp = DayOf(now) + platform::ZeroFilled(now.hour, 2);
  std::erase(stamp, '/');
  return stamp + platform::ZeroFilled(now.minute, 2);
}

std::string WhyNoAddress(std::string_view text) {
  if (mail::CharacterCount(text) > longestAddress) {
    return "is longer than " + std::to_string(longestAddress) + " characters";
  }
  const bool isOne = platform::IsUtf8(text) && letters::IsMailAddress(text);
  return isOne ? std::string() : "is not one mail address";
}

ImportedGames ReadGames(std::istream& text, const ImportOptions& options) {
  return ReadParts(text, &options);
}

ImportedGames CheckGames(std::istream& text) { return ReadParts(text, nullptr); }

}  // namespace pgn

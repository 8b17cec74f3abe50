// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/retrieval.h"

#include <algorithm>

#include "mail/mail_fixture.h"
#include "mail/sending.h"

namespace mail {
namespace {

using platform::Process;

class Retrieval : public MailFixture {
 protected:
  void SetUp() override { Process().Offline = false; }

  bool WasFollowedUp() const { return !desktop.hooksCalled.empty(); }
};

TEST_F(Retrieval, FirstMailFoundsTheGame) {
  Arrives(FromHost(1));
  const std::vector<MoveArrival> arrivals = RetrieveMoveMails(true, false);

  ASSERT_EQ(Stored().size(), 1U);
  const store::GameRecord game = Stored().front();
  EXPECT_EQ(game.GAME_ID, 1);
  EXPECT_EQ(game.GAME_OPPONENTS_ID, hostsID);
  EXPECT_EQ(game.GAME_DATESTAMP, "090320260805");
  EXPECT_EQ(game.GAME_NAME, "Sunday game");
  EXPECT_EQ(game.GAME_DATE, "09/03/2026");
  EXPECT_EQ(game.GAME_WHITE_NAME, "Anna or Bernd");
  EXPECT_EQ(game.GAME_BLACK_NAME, "Bernd");
  EXPECT_EQ(game.GAME_OPPONENTS_NAME, "Anna or Bernd");
  EXPECT_EQ(game.GAME_OPPONENTS_EMAIL, "sender@example.org");
  EXPECT_EQ(game.GAME_START_BOARD, ";;;;;;;");
  EXPECT_EQ(game.GAME_STATUS, store::MoveWaiting);
  EXPECT_FALSE(game.GAME_HOST);
  EXPECT_FALSE(game.GAME_VS_COMPUTER);
  EXPECT_EQ(StoredMoves(1), 1U);
  EXPECT_TRUE(desktop.mail.inbox.empty());
  EXPECT_EQ(Process().PendingGames, "1;");
  EXPECT_TRUE(Process().NewMoveArrived);

  ASSERT_EQ(arrivals.size(), 1U);
  EXPECT_EQ(arrivals[0].from, "sender@example.org");
  EXPECT_EQ(arrivals[0].gameID, 1);
  EXPECT_TRUE(arrivals[0].ok && arrivals[0].changed);
  EXPECT_TRUE(desktop.files.content.contains(folder + "tvgdb.bak"));
  EXPECT_EQ(desktop.hooksCalled, std::vector<std::string>{"buildTrayGameMenu"});
  EXPECT_EQ(desktop.boxes.statusTexts, (std::vector<std::string>{"Retrieving games...", ""}));
  EXPECT_TRUE(desktop.boxes.messages.empty());
}

TEST_F(Retrieval, FirstReplyTellsTheHostWhomHePlays) {
  Store(Game(true, hostsID, 0), 1);
  Arrives(FromGuest(2));
  RetrieveMoveMails(false, false);
  ASSERT_EQ(Stored().size(), 1U);
  const store::GameRecord game = Stored().front();
  EXPECT_EQ(game.GAME_ID, hostsID);
  EXPECT_EQ(game.GAME_OPPONENTS_ID, guestsID);
  EXPECT_EQ(game.GAME_WHITE_NAME, "Anna");
  EXPECT_EQ(game.GAME_OPPONENTS_EMAIL, "sender@example.org");
  EXPECT_TRUE(game.GAME_HOST);
  EXPECT_EQ(StoredMoves(hostsID), 2U);
  EXPECT_TRUE(desktop.boxes.statusTexts.empty());
}

TEST_F(Retrieval, MailThatBringsNothingNewOnlyGoes) {
  Store(Game(false, guestsID, hostsID), 2);
  Arrives(FromHost(1));  // from before the host knew our number: found by his own
  Arrives(FromHost(2, guestsID));
  const auto arrivals = RetrieveMoveMails(false, false);
  ASSERT_EQ(Stored().size(), 1U);
  EXPECT_EQ(Stored().front().GAME_STATUS, store::WaitingForOpponent);
  EXPECT_EQ(StoredMoves(guestsID), 2U);
  EXPECT_TRUE(desktop.mail.inbox.empty());
  EXPECT_EQ(Process().PendingGames, "");
  EXPECT_FALSE(Process().NewMoveArrived);
  ASSERT_EQ(arrivals.size(), 2U);
  EXPECT_TRUE(arrivals[1].ok && !arrivals[1].changed);
}

TEST_F(Retrieval, DeletedGameIsFoundedAnewWithAllItsMoves) {
  store::GameRecord other = Game(true, 40, 3);
  other.GAME_DATESTAMP = "010120260000";
  Store(other, 1);
  Arrives(FromHost(3, guestsID));
  RetrieveMoveMails(false, false);
  ASSERT_EQ(Stored().size(), 2U);
  EXPECT_EQ(Stored().back().GAME_ID, 41);
  EXPECT_EQ(StoredMoves(41), 3U);

  // The host's deleted game comes back as the host's.
  store::RemoveGame(40);
  store::RemoveGame(41);
  Arrives(FromGuest(2));
  RetrieveMoveMails(false, false);
  EXPECT_TRUE(Stored().at(0).GAME_HOST);
}

TEST_F(Retrieval, MailsOfOneGameAreTakenInTheirOrder) {
  const struct {
    const char* name;
    int first, second;
    const char* pending;
    bool lastIsNew;
  } rows[] = {
      {"both bring moves: the game is listed twice", 1, 3, "1;1;", true},
      {"the older one behind the newer is nothing new", 3, 1, "1;", false},
  };
  for (const auto& row : rows) {
    desktop.files.content.clear();
    Arrives(FromHost(row.first));
    Arrives(FromHost(row.second, 1));
    RetrieveMoveMails(false, false);
    EXPECT_EQ(Process().PendingGames, row.pending) << row.name;
    EXPECT_EQ(Process().NewMoveArrived, row.lastIsNew) << row.name;
    EXPECT_EQ(StoredMoves(1), 3U) << row.name;
  }
}

TEST_F(Retrieval, OtherMailIsLeftAloneAndUnread) {
  Arrives(FromHost(1), "Tarvolenix: e4");
  Arrives(FromHost(1), "TARVOLENIX : e4");
  Arrives(FromHost(1), "Re: Tarvolenix : e4");
  Arrives(FromHost(1), "Tarvolenix :e4");
  Arrives("<<TARVOLENIX:1|2|3:TARVOLENIX>>", "Tarvolenix : cut off");
  Arrives("hello", "");
  const auto arrivals = RetrieveMoveMails(false, false);

  std::vector<std::pair<std::string, bool>> left;
  for (const auto& mail : desktop.mail.inbox) left.emplace_back(mail.subject, mail.read);
  EXPECT_EQ(left, (std::vector<std::pair<std::string, bool>>{{"Tarvolenix: e4", false},
                                                             {"TARVOLENIX : e4", false},
                                                             {"Re: Tarvolenix : e4", false},
                                                             {"Tarvolenix : cut off", true},
                                                             {"", false}}));
  ASSERT_EQ(arrivals.size(), 2U);
  EXPECT_FALSE(arrivals[1].ok);
  EXPECT_EQ(arrivals[1].stage, 1);
  EXPECT_EQ(arrivals[1].from, "sender@example.org");
  EXPECT_EQ(TitleShown(), "Message retrival error");
  EXPECT_TRUE(WasFollowedUp());

  // The refused mail is read now: a tick passes it over, the user's retrieve reports it again.
  RetrieveMoveMails(false, false);
  EXPECT_EQ(desktop.boxes.messages.size(), 1U);
  RetrieveMoveMails(false, true);
  EXPECT_EQ(desktop.boxes.messages.size(), 2U);
}

TEST_F(Retrieval, FailingMembersEndItWithWhatWasSaved) {
  const std::string told =
      "An error occured trying to retrieve some or all of the game information from your Inbox.\n\n"
      "Please select Retrieve games... from the File menu and try again.";
  const struct {
    const char* member;
    std::string told;
    bool offline;
    std::size_t stored, left;
  } rows[] = {
      {"FetchUnreadOnly", "", true, 0, 2},   {"Fetch", "", true, 0, 2},
      {"MsgSubject", told, false, 0, 2},     {"MsgNoteText", told, false, 0, 2},
      {"MsgOrigAddress", told, false, 0, 2}, {"Delete", told, false, 1, 2},
      {"Flush", told, false, 1, 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.member);
    desktop.files.content.clear();
    desktop.mail.inbox.clear();
    desktop.boxes.messages.clear();
    desktop.boxes.statusTexts.clear();
    desktop.hooksCalled.clear();
    Process().Offline = false;
    desktop.mail.failing = {row.member};
    Arrives(FromHost(1));
    Arrives(FromHost(2));
    RetrieveMoveMails(true, false);
    EXPECT_EQ(TextShown(), row.told);
    EXPECT_EQ(TitleShown(), row.told.empty() ? "" : "Network error");
    EXPECT_EQ(Process().Offline, row.offline);
    EXPECT_EQ(Stored().size(), row.stored);
    EXPECT_EQ(desktop.mail.inbox.size(), row.left);
    EXPECT_FALSE(WasFollowedUp());
    EXPECT_EQ(desktop.boxes.statusTexts.back(), "");
  }
}

TEST_F(Retrieval, NumberOutOfRangeEndsItWithoutACrash) {
  store::GameRecord game = Game(true, hostsID, 0);
  std::string body = FromHost(1);
  body.replace(body.find("7|"), 1, "99999999999");
  Arrives(body);
  RetrieveMoveMails(false, false);
  EXPECT_EQ(TitleShown(), "Network error");
  EXPECT_TRUE(Stored().empty());
}

TEST_F(Retrieval, DamagedStoreKeepsTheMail) {
  DamageStore();
  Arrives(FromHost(1));
  const auto arrivals = RetrieveMoveMails(false, false);
  EXPECT_EQ(TitleShown(), "Network error");
  EXPECT_EQ(TextShown(),
            "An error occured trying to save the game information to the database.\n\nPlease "
            "select Retrieve games... from the File menu and try again.");
  EXPECT_EQ(desktop.mail.inbox.size(), 1U);
  EXPECT_FALSE(arrivals.at(0).ok);
  EXPECT_FALSE(WasFollowedUp());
}

// A mail goes only when its game is safe, whichever file operation fails.
TEST_F(Retrieval, FailingDiskNeverLosesAMail) {
  store::GameRecord other = Game(true, 40, 3);
  other.GAME_DATESTAMP = "010120260000";
  Store(other, 1);
  const auto before = desktop.files.content;
  for (int failing = 1;; ++failing) {
    SCOPED_TRACE(failing);
    ASSERT_LT(failing, 100);
    desktop.files.content = before;
    desktop.files.operations.clear();
    desktop.mail.inbox.clear();
    desktop.boxes.messages.clear();
    Arrives(FromHost(1));
    desktop.files.FailOperation(failing);
    RetrieveMoveMails(false, false);
    desktop.files.FailOperation(0);
    const bool taken = desktop.mail.inbox.empty();
    EXPECT_EQ(Stored().size(), taken ? 2U : 1U);
    EXPECT_EQ(desktop.boxes.messages.empty(), taken);
    if (static_cast<int>(desktop.files.operations.size()) < failing) break;
  }
}

TEST_F(Retrieval, GameTravelsThereAndBack) {
  auto others = desktop.files.content;  // the other player's machine
  const auto changeSides = [&] {
    std::swap(desktop.files.content, others);
    for (const auto& sent : desktop.mail.sent) Arrives(sent.text, sent.subject);
    desktop.mail.sent.clear();
  };
  store::GameRecord host = Game(true, hostsID, 0);
  host.GAME_START_BOARD = "0402030506030204;;;;;;;1008091112090810";
  Store(host, 1);
  ASSERT_TRUE(SendMoveMail(hostsID));
  changeSides();
  RetrieveMoveMails(false, false);
  store::GameRecord guest = Stored().at(0);
  ASSERT_TRUE(store::SaveGame(guest, {{2, "5755", "e5", "grüße; ok"}}));
  ASSERT_TRUE(SendMoveMail(guest.GAME_ID));
  changeSides();
  RetrieveMoveMails(false, false);

  host = Stored().at(0);
  EXPECT_EQ(host.GAME_ID, guest.GAME_OPPONENTS_ID);
  EXPECT_EQ(host.GAME_OPPONENTS_ID, guest.GAME_ID);
  EXPECT_EQ(host.GAME_DATESTAMP, guest.GAME_DATESTAMP);
  EXPECT_EQ(host.GAME_START_BOARD, guest.GAME_START_BOARD);
  EXPECT_EQ(host.GAME_START_BOARD, "0402030506030204;;;;;;;1008091112090810");
  const auto moves = [](std::int32_t id) {
    store::MoveRecords stored;
    EXPECT_TRUE(store::SelectMoves(stored, id));
    std::string text;
    for (const auto& move : stored) {
      text += std::to_string(move.MoveNumber) + move.MoveCoordinates + move.MoveText +
              move.MoveComment + "\n";
    }
    return text;
  };
  const std::string atTheHosts = moves(host.GAME_ID);
  std::swap(desktop.files.content, others);
  EXPECT_EQ(atTheHosts, moves(guest.GAME_ID));
  EXPECT_EQ(atTheHosts, "15254e4Good luck!\n25755e5grüße; ok\n");
}

}  // namespace
}  // namespace mail

// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/move_text_check.h"

#include <vector>

#include "mail/character_count.h"
#include "mail/mail_fixture.h"

namespace mail {
namespace {

std::string Repeated(std::string_view what, std::size_t times) {
  std::string text;
  text.reserve(what.size() * times);
  for (std::size_t i = 0; i < times; ++i) text += what;
  return text;
}

TEST(ExtractMoveText, FindsTheTextBetweenTheMarkers) {
  const struct {
    const char* name;
    std::string body;
    std::string text;
  } rows[] = {
      {"exact", "banner\r\n<<TARVOLENIX:a|\r\nb|c:TARVOLENIX>>\r\n", "a|b|c"},
      {"mail ends with the marker", "<<TARVOLENIX:abc:TARVOLENIX>>", "abc"},
      {"lines wrapped anew with bare line feeds", "<<TARVOLENIX:a\n|b\n\nc:TARVOLENIX>>", "a|bc"},
      {"start broken behind the first character", "<\r\n<TARVOLENIX:abc:TARVOLENIX>>", "abc"},
      {"start broken in the middle", "x <<TARVO\r\nLENIX:abc:TARVOLENIX>>", "abc"},
      {"start broken before its colon", "<<TARVOLENIX\n:abc:TARVOLENIX>>", "abc"},
      {"start broken in many places", "<\n<\r\nT\n\n\nARVOLENI\rX\n:abc:TARVOLENIX>>", "abc"},
      {"other < in front of a broken start", "<<<a><<TARV<<TAR\nVOLENIX:abc:TARVOLENIX>>", "abc"},
      {"an exact start counts before a broken one",
       "<<TARVO\nLENIX:no<<TARVOLENIX:abc:TARVOLENIX>>", "abc"},
      {"end broken behind its colon", "<<TARVOLENIX:abc:\r\nTARVOLENIX>>", "abc"},
      {"end broken in the middle", "<<TARVOLENIX:abc:TARVO\r\n\r\nLENIX>>\r\n", "abc"},
      {"end broken between its last two characters", "<<TARVOLENIX:abc:TARVOLENIX>\r\n>\r\n",
       "abc"},
      {"end broken there, nothing behind", "<<TARVOLENIX:abc:TARVOLENIX>\r\n>", "abc"},
      {"other > in front of a broken end", "<<TARVOLENIX:a>b>>c:TARV\nOLENIX>>", "a>b>>c"},
      {"both broken", "<<TAR\nVOLENIX:abc:TARVOL\nENIX>> -- footer", "abc"},
      {"first of two ends", "<<TARVOLENIX:abc:TARVOLENIX>>:TARVOLENIX>>", "abc"},
      {"an end directly behind the start is none", "<<TARVOLENIX::TARVOLENIX>>a:TARVOLENIX>>",
       ":TARVOLENIX>>a"},
      {"a broken end doesn't reach into the start", "<<TARVOLENIX:TARVOLENIX>>a:TARV\nOLENIX>>",
       "TARVOLENIX>>a"},
      {"end broken between its last two characters, text behind",
       "<<TARVOLENIX:abc:TARVOLENIX>\n>x", ""},
      {"nothing between", "<<TARVOLENIX::TARVOLENIX>> and some more", ""},
      {"nothing between, broken", "<<TARVOLENIX::TARVO\nLENIX>> and some more", ""},
      {"end in front of the start", ":TARVOLENIX>> text <<TARVOLENIX: more text", ""},
      {"the colon can't serve both markers", "long banner <<TARVOLENIX:TARVOLENIX>>", ""},
      {"start cut in half", "<<TARVOL and a long text behind it :TARVOLENIX>>", ""},
      {"end cut in half", "a long text <<TARVOLENIX:abc:TARVOLENIX>", ""},
      {"markers in small letters", "<<tarvolenix:abcdefgh:tarvolenix>>", ""},
      {"only <", std::string(100, '<'), ""},
      {"only >", "<<TARVOLENIX:" + std::string(100, '>'), ""},
      {"no text", "", ""},
  };
  for (const auto& row : rows) EXPECT_EQ(ExtractMoveText(row.body), row.text) << row.name;
}

TEST(ExtractMoveText, TakesHugeHostileMails) {
  constexpr std::size_t many = 1'000'000;
  const std::string breaks(many, '\n');
  const std::string start = "<<TARVOLENIX:";
  const std::string bodies[] = {
      std::string(5 * many, '<'),
      Repeated("<<TARVOLENIX", many / 3),
      Repeated("<<" + breaks, 4),
      start + std::string(5 * many, '>'),
      start + Repeated("TARVOLENIX>>", many / 3),
      start + Repeated(breaks + ">>", 4),
      start + Repeated(">\n", 2 * many),
      Repeated("<\n", 2 * many),
  };
  for (const std::string& body : bodies) EXPECT_EQ(ExtractMoveText(body), "");
}

class MoveTextCheck : public MailFixture {
 protected:
  using Fields = std::vector<std::string>;

  static Fields Good() {
    return {"7",       "12", "090320260805", "Sunday game", "09/03/2026", "Anna", "Bernd", "False",
            ";;;;;;;", "1",  "5254",         "e4",          "Good luck!", "2",    "5755",  "e5",
            ""};
  }
  static std::string Text(const Fields& fields) {
    std::string text = fields.front();
    for (std::size_t i = 1; i < fields.size(); ++i) text += "|" + fields[i];
    return text;
  }
  /// The good text with one field, counted from 1, replaced.
  static std::string With(std::size_t field, const std::string& value) {
    Fields fields = Good();
    fields.at(field - 1) = value;
    return Text(fields);
  }
  static std::string First(std::size_t count) {
    Fields fields = Good();
    fields.resize(count);
    return Text(fields);
  }
};

TEST_F(MoveTextCheck, StopsAtTheStageThatFails) {
  const std::string row16 = "0402030506030204";
  const std::string sevenRows = Repeated(row16 + ";", 7);
  const struct {
    const char* name;
    std::string text;
    int stage;
  } rows[] = {
      {"good text", Text(Good()), 0},
      {"nothing", "", 1},
      {"no moves", First(10), 1},
      {"11 fields pass the first stage", First(11), 11},
      {"receiver's identifier may be empty", With(1, ""), 0},
      {"receiver's identifier is a word", With(1, "seven"), 2},
      {"sender's identifier is empty", With(2, ""), 3},
      {"stamp too short", With(3, "09032026080"), 4},
      {"stamp too long", With(3, "0903202608050"), 4},
      {"stamp is no number", With(3, "0903202608:5"), 4},
      {"title of 50 umlauts", With(4, Repeated("ü", 50)), 0},
      {"title of 51 characters", With(4, std::string(51, 'x')), 5},
      {"title of 51 umlauts", With(4, Repeated("ü", 51)), 5},
      {"date of 9 characters", With(5, "9/03/2026"), 6},
      {"date without a calendar day", With(5, "31/02/2026"), 6},
      {"date is a number", With(5, "0903202600"), 6},
      {"White's name of 50 damaged bytes", With(6, std::string(50, '\xFC')), 0},
      {"White's name too long", With(6, std::string(51, '\xFC')), 7},
      {"White's name may be empty", With(6, ""), 0},
      {"Black's name too long", With(7, Repeated("♞", 51)), 8},
      {"host flag in small letters", With(8, "true"), 9},
      {"host flag as a number", With(8, "-1"), 9},
      {"host flag True", With(8, "True"), 0},
      {"board may be empty", With(9, ""), 0},
      {"full board", With(9, sevenRows + row16), 0},
      {"board of 7 rows", With(9, ";;;;;;"), 10},
      {"board of 9 rows", With(9, ";;;;;;;;"), 10},
      {"board row of 15 digits", With(9, sevenRows + "040203050603020"), 10},
      {"board row of 17 digits", With(9, "00402030506030204;;;;;;;"), 10},
      {"board row that is a word", With(9, ";;anything at all, of any length;;;;;"), 0},
      {"one field of a move missing", First(16), 11},
      {"a bar in a comment", With(13, "good|luck"), 11},
      {"four bars in a comment", With(13, "a|b|c|d|e"), 12},
      {"move number empty", With(10, ""), 12},
      {"no coordinates", With(11, ""), 12},
      {"coordinates 0000", With(11, "0000"), 0},
      {"coordinates with a 0", With(11, "5204"), 12},
      {"coordinates with a 9", With(15, "5795"), 12},
      {"coordinates of 5 digits", With(11, "52544"), 12},
      {"coordinates that are another number", With(11, "1e11"), 12},
      {"move text of 15 characters", With(12, Repeated("é", 15)), 0},
      {"move text of 16 characters", With(12, Repeated("é", 16)), 12},
      {"comment of 200 characters", With(13, Repeated("ß", 200)), 0},
      {"comment of 201 characters, in the last move", With(17, Repeated("ß", 201)), 12},
  };
  for (const auto& row : rows) EXPECT_EQ(CheckMoveText(row.text), row.stage) << row.name;
  EXPECT_TRUE(desktop.boxes.messages.empty());
}

TEST_F(MoveTextCheck, ReportsInTheWordsOfMailAndFile) {
  EXPECT_TRUE(ValidateMoveText(Text(Good()), false));
  EXPECT_EQ(Told(), "");
  const std::string advice =
      "\n\nIf it is a corrupt chess move email, get your opponent to re-send there last move.  "
      "Validation progress : 6.\n[OK] /program/Data/Cs006.tvs";
  EXPECT_FALSE(ValidateMoveText(With(5, "31/02/2026"), false));
  EXPECT_EQ(
      Told(),
      "4 Message retrival error\nTarvolenix found what appeared to be a chess move email, but "
      "which failed validation." +
          advice);
  EXPECT_FALSE(ValidateMoveText(With(5, "31/02/2026"), true));
  EXPECT_EQ(Told(), "4 Message retrival error\nThe file you selected failed validation." + advice);
}

TEST(CharacterCount, CountsCodePointsAndStrayBytes) {
  const struct {
    const char* name;
    std::string text;
    std::size_t count;
  } rows[] = {
      {"nothing", "", 0},
      {"two, three and four bytes", "aä♔😀", 4},
      {"continuation bytes alone", "\x80\xBF", 2},
      {"cut off at the end", "\xE2\x99", 2},
      {"cut off by a letter", "\xE2\x99z", 3},
      {"overlong", "\xC0\xAF\xE0\x80\xAF", 5},
      {"surrogate", "\xED\xA0\x80", 3},
      {"past the last code point", "\xF4\x90\x80\x80", 4},
      {"never a byte of UTF-8", "\xFF\xFE", 2},
  };
  for (const auto& row : rows) EXPECT_EQ(CharacterCount(row.text), row.count) << row.name;
  EXPECT_EQ(FirstCharacters("äöü", 2), "äö");
  EXPECT_EQ(FirstCharacters("äö", 5), "äö");
}

}  // namespace
}  // namespace mail

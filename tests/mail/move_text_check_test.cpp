// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/move_text_check.h"

#include <gtest/gtest.h>

#include <vector>

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
      {"lines wrapped anew with bare line feeds", "<<TARVOLENIX:a\n|b\n\nc:TARVOLENIX>>", "a|bc"},
      {"start broken in many places", "<\n<\r\nT\n\n\nARVOLENI\rX\n:abc:TARVOLENIX>>", "abc"},
      {"other < in front of a broken start", "<<<a><<TARV<<TAR\nVOLENIX:abc:TARVOLENIX>>", "abc"},
      {"end broken between its last two characters", "<<TARVOLENIX:abc:TARVOLENIX>\r\n>\r\n",
       "abc"},
      {"other > in front of a broken end", "<<TARVOLENIX:a>b>>c:TARV\nOLENIX>>", "a>b>>c"},
      {"an end directly behind the start is none", "<<TARVOLENIX::TARVOLENIX>>a:TARVOLENIX>>",
       ":TARVOLENIX>>a"},
      {"end broken between its last two characters, text behind",
       "<<TARVOLENIX:abc:TARVOLENIX>\n>x", ""},
      {"nothing between", "<<TARVOLENIX::TARVOLENIX>> and some more", ""},
      {"end in front of the start", ":TARVOLENIX>> text <<TARVOLENIX: more text", ""},
      {"start cut in half", "<<TARVOL and a long text behind it :TARVOLENIX>>", ""},
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
      Repeated("<<" + breaks, 4),
      start + std::string(5 * many, '>'),
      start + Repeated(">\n", 2 * many),
  };
  for (const std::string& body : bodies) EXPECT_EQ(ExtractMoveText(body), "");
}

/// A good text with one field, counted from 1, replaced.
std::string With(std::size_t field, const std::string& value) {
  std::vector<std::string> fields = {
      "7", "12",   "090320260805", "Sunday game", "09/03/2026", "Anna", "Bernd", "False", ";;;;;;;",
      "1", "5254", "e4",           "Good luck!",  "2",          "5755", "e5",    ""};
  fields.at(field - 1) = value;
  std::string text = fields.front();
  for (std::size_t i = 1; i < fields.size(); ++i) text += "|" + fields[i];
  return text;
}

TEST(MoveTextCheck, StopsAtTheStageThatFails) {
  const std::string row16 = "0402030506030204";
  const std::string sevenRows = Repeated(row16 + ";", 7);
  const struct {
    const char* name;
    std::string text;
    int stage;
  } rows[] = {
      {"good text", With(1, "12"), 0},
      {"nothing", "", 1},
      {"receiver's identifier may be empty", With(1, ""), 0},
      {"sender's identifier is empty", With(2, ""), 3},
      {"stamp too short", With(3, "09032026080"), 4},
      {"title of 50 umlauts", With(4, Repeated("ü", 50)), 0},
      {"title of 51 umlauts", With(4, Repeated("ü", 51)), 5},
      {"date without a calendar day", With(5, "31/02/2026"), 6},
      {"White's name of 50 damaged bytes", With(6, std::string(50, '\xFC')), 0},
      {"Black's name too long", With(7, Repeated("♞", 51)), 8},
      {"host flag as a number", With(8, "-1"), 9},
      {"board of 7 rows", With(9, ";;;;;;"), 10},
      {"board row of 15 digits", With(9, sevenRows + "040203050603020"), 10},
      {"a bar in a comment", With(13, "good|luck"), 11},
      {"no coordinates", With(11, ""), 12},
      {"coordinates with a 9", With(15, "5795"), 12},
      {"move text of 16 characters", With(12, Repeated("é", 16)), 12},
      {"a comment that has grown on its way", With(13, Repeated("ß", 2000)), 0},
  };
  for (const auto& row : rows) EXPECT_EQ(CheckMoveText(row.text), row.stage) << row.name;
}

}  // namespace
}  // namespace mail

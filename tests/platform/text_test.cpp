// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/conversions.h"
#include "platform/harmless_text.h"
#include "platform/move_subject.h"
#include "platform/text_fields.h"

namespace platform {
namespace {

TEST(TextTest, AMoveMailIsKnownBehindTheTagsOfOthers) {
  for (const char* subject :
       {"Tarvolenix :e4", "[EXTERNAL] Tarvolenix : e4",
        "***** SPAM *****  RE: Fwd:Tarvolenix :", "AW: [chess][x] Re[2]: WG : Tarvolenix : e4"}) {
    EXPECT_TRUE(IsMoveSubject(subject)) << subject;
  }
  for (const char* subject :
       {"", "TARVOLENIX : e4", "Tarvolenix: e4", "Re: Tarvolenix: e4", "About Tarvolenix : e4",
        "Question: Tarvolenix : e4", "[x Tarvolenix : e4", "*x Tarvolenix : e4", "Re:", "**"}) {
    EXPECT_FALSE(IsMoveSubject(subject)) << subject;
  }
}

const struct {
  const char* name;
  std::string_view text;
  std::vector<std::string_view> fields;
} fieldCases[] = {
    {"an empty text has no field", "", {}},
    {"a text without delimiter is one field", "one", {"one"}},
    {"an empty field behind the last delimiter counts", "one;", {"one", ""}},
    {"empty fields in between", ";;x;;", {"", "", "x", "", ""}},
    {"other delimiters are text", "a|b;c d", {"a|b", "c d"}},
};

TEST(TextTest, FieldsAreFoundByNumberAndByWalking) {
  for (const auto& row : fieldCases) {
    SCOPED_TRACE(row.name);
    const int count = static_cast<int>(row.fields.size());
    EXPECT_EQ(CountFields(row.text, ';'), count);
    FieldWalk walk(row.text, ';');
    for (int n = 1; n <= count + 3; ++n) {
      const auto i = static_cast<std::size_t>(n - 1);
      const std::string_view expected = i < row.fields.size() ? row.fields[i] : "";
      EXPECT_EQ(GetField(row.text, n, ';'), expected) << n;
      EXPECT_EQ(walk.Next(), expected) << n;
    }
    EXPECT_EQ(GetField(row.text, 0, ';'), GetField(row.text, 1, ';'));
  }
  EXPECT_EQ(ReplaceAll("aabaaa", "aa", "a"), "abaa") << "what was put in is not looked at again";
  EXPECT_EQ(ReplaceAll("", "x", "y"), "");
}

constexpr auto nothing = std::nullopt;

const struct {
  const char* text;
  std::optional<std::int32_t> value;
} numberCases[] = {
    {"007", 7},
    {"  -5 ", -5},
    {"+5", 5},
    {"2.5", 2},
    {"3.5", 4},
    {"-2.5", -2},
    {"2.500001", 3},
    {".7", 1},
    {"7.", 7},
    {"1e3", 1000},
    {"-25E-1", -2},
    {"2147483647.4", 2147483647},
    {"-2147483648", -2147483648},
    {"2147483647.5", nothing},
    {"-1e300", nothing},
};

const char* const noNumbers[] = {"",   "  ", "-",     "--1",  "+-1", "1 2", ".",   "2.3.0",
                                 "1e", "e5", "1e1.5", "0x10", "inf", "nan", "1,5", "1e400"};

TEST(TextTest, NumbersAreReadGenerouslyAndRoundedHalfToEven) {
  for (const auto& [text, value] : numberCases) {
    EXPECT_EQ(ToInteger32(text), value) << text;
    EXPECT_TRUE(IsNumeric(text)) << text;
  }
  for (const char* text : noNumbers) {
    EXPECT_EQ(ToInteger32(text), nothing) << text;
    EXPECT_FALSE(IsNumeric(text)) << text;
  }
  EXPECT_EQ(ToInteger16("32767.5"), nothing);
  EXPECT_EQ(ToInteger16("-32768.5"), -32768);
  const int quotients[][3] = {{1, 4, 0}, {2, 4, 0}, {3, 4, 1}, {6, 4, 2}, {10, 4, 2}, {-2, 4, 0}};
  for (const auto& [dividend, divisor, rounded] : quotients) {
    EXPECT_EQ(RoundedQuotient(dividend, divisor), rounded) << dividend;
  }
}

TEST(TextTest, BooleansAreWordsOrNumbers) {
  for (const char* yes : {"True", "TRUE", "true", "-1", "1", "0.5", " 7 "}) {
    EXPECT_EQ(ToBoolean(yes), true) << yes;
  }
  for (const char* no : {"False", "fALSE", "0", "-0", "0.0"}) EXPECT_EQ(ToBoolean(no), false) << no;
  for (const char* none : {"", "yes", "Truely", "T", "1e400"}) EXPECT_EQ(ToBoolean(none), nothing);
}

TEST(TextTest, DatesAreCheckedAgainstTheCalendar) {
  EXPECT_EQ(ToDate("9/03/2026"), (Date{2026, 3, 9}));
  EXPECT_EQ(ToDate("29/02/2000"), (Date{2000, 2, 29}));
  EXPECT_LT(*ToDate("31/12/2025"), *ToDate("01/01/2026"));
  for (const char* none :
       {"29/02/2025", "29/02/1900", "31/04/2026", "00/01/2026", "01/13/2026", "01/00/2026",
        "257/257/2026", "01/01/70000", "01/01/-0", "+1/01/2026", "01/01", "01/01/2026/",
        "01-01-2026", "99999999999/01/2026", " 1/01/2026", ""}) {
    EXPECT_EQ(ToDate(none), nothing) << none;
  }
}

const struct {
  const char* name;
  std::string_view text, shown;
} foreignCases[] = {
    {"letters of any script", "Zoé Ἀθηνᾶ שָׁלוֹם 王 😀", "Zoé Ἀθηνᾶ שָׁלוֹם 王 😀"},
    {"a terminal's order", "\x1B[31mred\x7F", "�[31mred�"},
    {"a line turned round", "Bob\u202Egpj.exe\u2066", "Bob�gpj.exe�"},
    {"nothing to be seen", "A\u200B\u2060\U000E0041\u00AD\uFEFFnna", "A�nna"},
    {"separators of columns and lines", "a\tb\u2028c\u0085d\re", "a b c d e"},
    {"line ends", "a\nb\r\nc", "a\nb\r\nc"},
    {"joiners of letters and of pictures", "می\u200Cخواهم 👩\u200D🚀", "می\u200Cخواهم 👩\u200D🚀"},
    {"joiners that join nothing", "pay\u200Dpal é\u200C", "pay�pal é�"},
    {"a tower of marks", "e\u0301\u0301\u0301\u0301\u0301\u0301\u0301n",
     "e\u0301\u0301\u0301\u0301�n"},
    {"no UTF-8", "\xC3\x28\xFF\xE2\x99", "�(�"},
};

TEST(TextTest, ForeignTextIsShownHarmless) {
  for (const auto& row : foreignCases) EXPECT_EQ(Harmless(row.text), row.shown) << row.name;
  EXPECT_EQ(Harmless("a\nb\r\nc", LineEnds::Blanks), "a b c");
}

}  // namespace
}  // namespace platform

// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/conversions.h"
#include "platform/harmless_text.h"
#include "platform/text_fields.h"

namespace platform {
namespace {

struct FieldCase {
  const char* name;
  std::string_view text;
  int count;
  std::vector<std::string_view> fields;
};

const FieldCase fieldCases[] = {
    {"an empty text has no field", "", 0, {}},
    {"a text without delimiter is one field", "one", 1, {"one"}},
    {"two fields", "one;two", 2, {"one", "two"}},
    {"an empty field behind the last delimiter counts", "one;", 2, {"one", ""}},
    {"a delimiter alone", ";", 2, {"", ""}},
    {"empty fields in between", ";;x;;", 5, {"", "", "x", "", ""}},
    {"other delimiters are text", "a|b;c d", 2, {"a|b", "c d"}},
};

TEST(TextTest, FieldsAreFoundByNumberAndByWalking) {
  for (const FieldCase& row : fieldCases) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(CountFields(row.text, ';'), row.count);
    FieldWalk walk(row.text, ';');
    for (int n = 1; n <= row.count + 3; ++n) {
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

struct NumberCase {
  const char* name;
  const char* text;
  std::optional<std::int32_t> value;
};

constexpr auto nothing = std::nullopt;

const NumberCase numberCases[] = {
    {"a whole number", "42", 42},
    {"zeros in front", "007", 7},
    {"blanks around", "  -5 ", -5},
    {"a plus sign", "+5", 5},
    {"a half goes down to the even neighbour", "2.5", 2},
    {"a half goes up to the even neighbour", "3.5", 4},
    {"a negative half", "-2.5", -2},
    {"more than a half", "2.500001", 3},
    {"no digit before the point", ".7", 1},
    {"no digit behind the point", "7.", 7},
    {"an exponent", "1e3", 1000},
    {"an exponent with signs", "-25E-1", -2},
    {"the largest", "2147483647", 2147483647},
    {"the smallest", "-2147483648", -2147483648},
    {"rounded into range", "2147483647.4", 2147483647},
    {"rounded out of range", "2147483647.5", nothing},
    {"beyond 32 bits", "2147483648", nothing},
    {"far beyond 32 bits", "-1e300", nothing},
};

const char* const noNumbers[] = {"",   "  ", "-",     "--1",  "+-1", "++1", "1 2", ".",  "2.3.0",
                                 "1e", "e5", "1e1.5", "0x10", "inf", "nan", "1,5", "5!", "1e400"};

TEST(TextTest, NumbersAreReadGenerouslyAndRoundedHalfToEven) {
  for (const NumberCase& row : numberCases) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(ToInteger32(row.text), row.value);
    EXPECT_TRUE(IsNumeric(row.text));
  }
  for (const char* text : noNumbers) {
    EXPECT_EQ(ToInteger32(text), nothing) << text;
    EXPECT_FALSE(IsNumeric(text)) << text;
  }
  EXPECT_EQ(ToInteger16("32767.4"), 32767);
  EXPECT_EQ(ToInteger16("32767.5"), nothing);
  EXPECT_EQ(ToInteger16("-32768.5"), -32768);
  EXPECT_EQ(ToInteger16("-32769"), nothing);
  const int quotients[][3] = {{1, 4, 0}, {2, 4, 0}, {3, 4, 1}, {6, 4, 2}, {10, 4, 2}, {-2, 4, 0}};
  for (const auto& [dividend, divisor, rounded] : quotients) {
    EXPECT_EQ(RoundedQuotient(dividend, divisor), rounded) << dividend;
  }
  EXPECT_EQ(ZeroFilled(7, 3), "007");
  EXPECT_EQ(ZeroFilled(1234, 3), "1234");
}

TEST(TextTest, BooleansAreWordsOrNumbers) {
  for (const char* yes : {"True", "TRUE", "true", "-1", "1", "0.5", " 7 "}) {
    EXPECT_EQ(ToBoolean(yes), true) << yes;
  }
  for (const char* no : {"False", "fALSE", "0", "-0", "0.0"}) EXPECT_EQ(ToBoolean(no), false) << no;
  for (const char* none : {"", "yes", "Truely", "T", "1e400"}) EXPECT_EQ(ToBoolean(none), nothing);
}

TEST(TextTest, DatesAreCheckedAgainstTheCalendar) {
  EXPECT_EQ(ToDate("09/03/2026"), (Date{2026, 3, 9}));
  EXPECT_EQ(ToDate("9/3/2026"), (Date{2026, 3, 9}));
  EXPECT_EQ(ToDate("29/02/2024"), (Date{2024, 2, 29}));
  EXPECT_EQ(ToDate("29/02/2000"), (Date{2000, 2, 29}));
  EXPECT_LT(*ToDate("31/12/2025"), *ToDate("01/01/2026"));
  for (const char* none :
       {"29/02/2025", "29/02/1900", "31/04/2026", "32/01/2026", "00/01/2026", "01/13/2026",
        "01/00/2026", "257/257/2026", "01/01/70000", "-1/01/2026", "01/01/-0", "+1/01/2026",
        "01/01", "01/01/", "01/01/2026/", "01-01-2026", "99999999999/01/2026", " 1/01/2026", ""}) {
    EXPECT_EQ(ToDate(none), nothing) << none;
  }
}

struct ForeignCase {
  const char* name;
  std::string_view text, shown;
};

const ForeignCase foreignCases[] = {
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
  for (const ForeignCase& row : foreignCases) EXPECT_EQ(Harmless(row.text), row.shown) << row.name;
  EXPECT_EQ(Harmless("a\nb\r\nc", LineEnds::Blanks), "a b c");
}

}  // namespace
}  // namespace platform

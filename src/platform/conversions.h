// SPDX-License-Identifier: GPL-3.0-or-later
// The general conversions of text to numbers, booleans and dates. They are generous with what
// people and older versions wrote (blanks around, decimals, exponents) and answer nothing where the
// text doesn't mean a value; the caller decides what that failure is.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// Takes blanks around, a sign, decimals and an exponent.
std::optional<double> ToNumber(std::string_view text);

/// True where ToNumber finds a value.
bool IsNumeric(std::string_view text);

/// A number rounded to the nearest whole one, a half to the even neighbour; nothing out of range.
std::optional<std::int32_t> ToInteger32(std::string_view text);
std::optional<std::int16_t> ToInteger16(std::string_view text);

/// "True" and "False" in any case, and any number: all but 0 are true.
std::optional<bool> ToBoolean(std::string_view text);

struct Date {
  int year = 0;
  int month = 0;
  int day = 0;

  auto operator<=>(const Date&) const = default;
};

/// Reads day/month/year and checks it against the calendar.
std::optional<Date> ToDate(std::string_view text);

/// Quotient rounded to the nearest whole number, a half to the even neighbour.
int RoundedQuotient(int dividend, int divisor);

/// `number` in decimal, filled with zeros on the left to at least `width` digits.
std::string ZeroFilled(int number, int width);

}  // namespace platform

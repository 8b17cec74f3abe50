// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/conversions.h"

#include <charconv>
#include <chrono>
#include <cmath>
#include <limits>

#include "platform/ascii.h"

namespace platform {
namespace {

std::string_view WithoutBlanksAround(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

template <typename Integer>
std::optional<Integer> ToInteger(std::string_view text) {
  const auto number = ToNumber(text);
  if (!number) return std::nullopt;
  // std::remainder rounds the quotient half to even, whatever the rounding mode is.
  const double rounded = *number - std::remainder(*number, 1.0);
  if (rounded < std::numeric_limits<Integer>::min() ||
      rounded > std::numeric_limits<Integer>::max()) {
    return std::nullopt;
  }
  return static_cast<Integer>(rounded);
}

std::optional<int> ToDigits(std::string_view text) {
  if (text.starts_with('-')) return std::nullopt;
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  return value;
}

}  // namespace

std::optional<double> ToNumber(std::string_view text) {
  text = WithoutBlanksAround(text);
  const bool plus = !text.empty() && text.front() == '+';
  if (plus) text.remove_prefix(1);
  if (text.empty() || (plus && text.front() == '-')) return std::nullopt;
  // from_chars knows "inf" and "nan", which are words here.
  if (text.find_first_not_of("0123456789.eE+-") != std::string_view::npos) return std::nullopt;
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  return value;
}

bool IsNumeric(std::string_view text) { return ToNumber(text).has_value(); }

std::optional<std::int32_t> ToInteger32(std::string_view text) {
  return ToInteger<std::int32_t>(text);
}

std::optional<std::int16_t> ToInteger16(std::string_view text) {
  return ToInteger<std::int16_t>(text);
}

std::optional<bool> ToBoolean(std::string_view text) {
  if (SameWithoutCase(text, "true")) return true;
  if (SameWithoutCase(text, "false")) return false;
  const auto number = ToNumber(text);
  if (!number) return std::nullopt;
  return *number != 0;
}

std::optional<Date> ToDate(std::string_view text) {
  const auto first = text.find('/');
  if (first == std::string_view::npos) return std::nullopt;
  const auto second = text.find('/', first + 1);
  if (second == std::string_view::npos) return std::nullopt;
  const auto day = ToDigits(text.substr(0, first));
  const auto month = ToDigits(text.substr(first + 1, second - first - 1));
  const auto year = ToDigits(text.substr(second + 1));
  if (!day || !month || !year) return std::nullopt;
  using namespace std::chrono;
  const year_month_day date{std::chrono::year{*year},
                            std::chrono::month{static_cast<unsigned>(*month)},
                            std::chrono::day{static_cast<unsigned>(*day)}};
  // Beyond these limits the calendar's own types would wrap around.
  if (*year > 9999 || *month > 12 || *day > 31 || !date.ok()) return std::nullopt;
  return Date{*year, *month, *day};
}

int RoundedQuotient(int dividend, int divisor) {
  const double quotient = static_cast<double>(dividend) / divisor;
  return static_cast<int>(quotient - std::remainder(quotient, 1.0));
}

std::string ZeroFilled(int number, int width) {
  std::string digits = std::to_string(number);
  if (digits.size() < static_cast<std::size_t>(width)) {
    digits.insert(0, static_cast<std::size_t>(width) - digits.size(), '0');
  }
  return digits;
}

}  // namespace platform

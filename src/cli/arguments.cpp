// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/arguments.h"

#include <algorithm>
#include <charconv>

namespace cli {
namespace {

bool Contains(const std::vector<std::string_view>& names, std::string_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

template <typename Number>
Number WholeNumber(const std::string& text, Number least, Number most) {
  Number number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{} || end != text.data() + text.size() || number < least || number > most) {
    throw UsageError("\"" + text + "\" is no number from " + std::to_string(least) + " to " +
                     std::to_string(most) + ".");
  }
  return number;
}

}  // namespace

Arguments::Arguments(const std::vector<std::string>& arguments, const ArgumentRules& rules) {
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string& argument = arguments[i];
    if (Contains(rules.valueOptions, argument)) {
      if (i + 1 == arguments.size()) throw UsageError("The option " + argument + " wants a value.");
      if (!options_.emplace(argument, arguments[i + 1]).second) {
        throw UsageError("The option " + argument + " stands there twice.");
      }
      ++i;
    } else if (Contains(rules.flags, argument)) {
      options_[argument];
    } else if (argument.starts_with("--")) {
      throw UsageError("There is no option " + argument + " here.");
    } else {
      others_.push_back(argument);
    }
  }
  for (const std::string_view option : rules.required) {
    if (!Has(option)) throw UsageError("The option " + std::string(option) + " is missing.");
  }
  if (others_.size() < rules.least) throw UsageError("An argument is missing.");
  if (others_.size() > rules.most) {
    throw UsageError("\"" + others_[rules.most] + "\" is one argument too many.");
  }
}

std::string Arguments::Value(std::string_view option) const {
  const auto found = options_.find(option);
  return found == options_.end() ? std::string{} : found->second;
}

int Arguments::Number(std::size_t index, int least, int most) const {
  return WholeNumber(others_.at(index), least, most);
}

int Arguments::Number(std::string_view option, int least, int most, int otherwise) const {
  return Has(option) ? WholeNumber(Value(option), least, most) : otherwise;
}

std::uint64_t Arguments::OptionNumber(std::string_view option, std::uint64_t least,
                                      std::uint64_t most) const {
  return WholeNumber(Value(option), least, most);
}

}  // namespace cli

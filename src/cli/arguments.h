// SPDX-License-Identifier: GPL-3.0-or-later
// The arguments of one verb, taken apart: options by name, and what stands between them in order.
#pragma once

#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace cli {

/// The user called wrongly: exit 2.
struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// The program couldn't or wouldn't do what was asked: exit 1.
struct Refusal : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Which options a verb takes, and how many other arguments.
struct ArgumentRules {
  std::vector<std::string_view> valueOptions =
      {};                                    ///< such as "--name": the next argument is the value
  std::vector<std::string_view> flags = {};  ///< such as "--send"
  std::vector<std::string_view> required = {};  ///< value options that must be there
  std::size_t least = 0;
  std::size_t most = 0;
};

class Arguments {
 public:
  /// Raises UsageError where the arguments break the rules.
  Arguments(const std::vector<std::string>& arguments, const ArgumentRules& rules);

  bool Has(std::string_view option) const { return options_.contains(option); }

  /// The option's value; empty where it wasn't given.
  std::string Value(std::string_view option) const;

  const std::vector<std::string>& Others() const { return others_; }

  /// Argument `index` from 0 as a whole number from `least` to `most`. Raises UsageError.
  int Number(std::size_t index, int least, int most) const;

  /// The option's value as such a number. Raises UsageError.
  std::uint64_t OptionNumber(std::string_view option, std::uint64_t least,
                             std::uint64_t most) const;

  /// The same; `otherwise` where it wasn't given.
  int Number(std::string_view option, int least, int most, int otherwise) const;

 private:
  std::map<std::string, std::string, std::less<>> options_;
  std::vector<std::string> others_;
};

}  // namespace cli

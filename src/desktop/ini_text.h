// SPDX-License-Identifier: GPL-3.0-or-later
// The text of an INI file that people read and edit. Changing one value leaves every other line as
// it stands, be it a comment or something that a later version understands.
//
//   Skin=Tarvolenix Night            the values at the top, or below [General], have no group
//   ; a comment, as is a line that begins with "#"
//   [Mail]
//   MyName="Muster, \"Max\""
//
// A value is quoted where it holds a comma, a semicolon or an equals sign or has blanks around it.
// Control characters, quotes and backslashes are escaped as in C. In an unquoted value, written by
// hand, a semicolon is a semicolon, and the blanks around a comma don't count. Names have "%" and
// two digits for what is no letter, digit, "_", "-" or ".". A group named General is "%General".
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace desktop {

class IniText {
 public:
  /// Nothing where the text is damaged: it holds a zero byte, or a line that is neither section nor
  /// value nor comment nor blank.
  static std::optional<IniText> Read(std::string_view content);

  /// Of several values of one name the last.
  std::optional<std::string> Value(const std::string& group, const std::string& name) const;

  /// As Value does where capitals and small letters count the same, in texts that people write.
  std::optional<std::string> ValueOfAnyCase(const std::string& group,
                                            const std::string& name) const;

  void Set(const std::string& group, const std::string& name, const std::string& value);

  /// The groups that have a value, but for the one without a name.
  std::vector<std::string> Groups() const;

  std::string Text() const;

 private:
  struct Line {
    std::string text;   ///< as it stands, with its end
    std::string group;  ///< that of the section it stands in or begins
    std::string name;   ///< empty where it is no value
    std::string value;  ///< as it is written
    bool isSection = false;
  };

  static std::optional<Line> ReadLine(std::string_view line, const std::string& group);
  using Same = bool (*)(std::string_view, std::string_view);
  const Line* Find(const std::string& group, const std::string& name, Same same) const;
  static std::optional<std::string> ValueIn(const Line* line);
  std::size_t PlaceFor(const std::string& group);
  std::size_t Insert(std::size_t place, Line line);

  std::vector<Line> lines_;
  const char* lineEnd_ = "\n";
};

}  // namespace desktop

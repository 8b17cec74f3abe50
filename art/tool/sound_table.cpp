// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound_table.h"

#include <istream>
#include <map>
#include <sstream>

namespace art {

namespace {

class Reader {
 public:
  /// False when the line isn't of the table's form.
  bool Take(const std::string& line) {
    std::istringstream in(line);
    std::string word;
    if (!(in >> word) || word.front() == '#') return true;
    if (word == "timbre") return TakeTimbre(in);
    if (word == "partial") return TakePartial(in);
    if (word == "sound") return TakeSound(in);
    if (sounds_.empty()) return false;
    if (word == "strike") return TakeStrike(in);
    return word == "brush" && TakeBrush(in);
  }

  const std::vector<Sound>& Sounds() const { return sounds_; }

 private:
  bool TakeTimbre(std::istream& in) { return static_cast<bool>(in >> timbre_); }

  bool TakePartial(std::istream& in) {
    Partial partial{};
    if (timbre_.empty() || !(in >> partial.ratio >> partial.level >> partial.decay)) return false;
    timbres_[timbre_].push_back(partial);
    return true;
  }

  bool TakeSound(std::istream& in) {
    Sound sound{};
    if (!(in >> sound.seconds >> std::ws) || !std::getline(in, sound.file)) return false;
    sounds_.push_back(sound);
    return true;
  }

  bool TakeStrike(std::istream& in) {
    Strike strike{};
    std::string timbre;
    in >> strike.at >> timbre >> strike.pitch >> strike.level >> strike.stretch;
    const auto known = timbres_.find(timbre);
    if (!in || known == timbres_.end()) return false;
    strike.timbre = known->second;
    sounds_.back().strikes.push_back(strike);
    return true;
  }

  bool TakeBrush(std::istream& in) {
    Brush brush{};
    in >> brush.at >> brush.centre >> brush.width >> brush.level >> brush.decay;
    if (!in) return false;
    sounds_.back().brushes.push_back(brush);
    return true;
  }

  std::string timbre_;
  std::map<std::string, Timbre> timbres_;
  std::vector<Sound> sounds_;
};

}  // namespace

std::optional<std::vector<Sound>> ReadSoundTable(std::istream& in, std::string* error) {
  Reader reader;
  std::string line;
  for (int number = 1; std::getline(in, line); ++number) {
    if (reader.Take(line)) continue;
    *error = "line " + std::to_string(number) + ": " + line;
    return std::nullopt;
  }
  return reader.Sounds();
}

}  // namespace art

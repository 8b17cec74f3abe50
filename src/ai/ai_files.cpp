// SPDX-License-Identifier: GPL-3.0-or-later
#include "ai/ai_files.h"

#include "ai/heuristic_rows.h"
#include "platform/conversions.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "platform/whole_file.h"

namespace ai {
namespace {

constexpr std::string_view extension = ".AI";

std::string PathOf(std::string_view name) { return AIFilePath(name).append(extension); }

/// The fields of a text, between commas and line ends. An empty line is none.
class FieldReader {
 public:
  explicit FieldReader(std::string_view text) : rest_(text) { SkipLineEnds(); }

  bool AtEnd() const { return ended_ && rest_.empty(); }
  int Number() const { return number_; }

  std::string_view Next() {
    ++number_;
    const auto end = std::min(rest_.find_first_of(",\r\n"), rest_.size());
    const std::string_view field = rest_.substr(0, end);
    rest_.remove_prefix(end);
    ended_ = rest_.empty() || rest_.front() != ',';
    if (ended_) {
      SkipLineEnds();
    } else {
      rest_.remove_prefix(1);
    }
    return field;
  }

 private:
  void SkipLineEnds() {
    rest_.remove_prefix(std::min(rest_.find_first_not_of("\r\n"), rest_.size()));
  }

  std::string_view rest_;
  bool ended_ = true;  ///< no comma announces a further field
  int number_ = 0;
};

AIFileFault Fault(const FieldReader& fields, const std::string& what) {
  return {fields.Number(), "Field " + std::to_string(fields.Number()) + " " + what + "."};
}

}  // namespace

std::vector<std::string> ListAIFiles() {
  const std::string& folder = platform::Process().AIFilesPath;
  if (!platform::TheFiles().Exists(folder)) platform::TheFiles().MakeFolder(folder);
  std::vector<std::string> names = platform::TheFiles().List(folder);
  std::erase_if(names, [](const std::string& name) { return !name.ends_with(extension); });
  for (std::string& name : names) name.resize(name.size() - extension.size());
  return names;
}

std::string AIFilePath(std::string_view name) {
  return platform::Process().AIFilesPath + std::string(name);
}

bool AIFileExists(std::string_view name) { return platform::TheFiles().Exists(PathOf(name)); }

void WriteAIFile(std::string_view name, const HeuristicTable& table) {
  platform::ReplaceFile(PathOf(name), AIFileText(table));
}

void RemoveAIFile(std::string_view name) { platform::TheFiles().Remove(PathOf(name)); }

bool IsAIFileName(std::string_view name) {
  return name.find_first_of(reservedInAIFileNames) == std::string_view::npos;
}

std::string AIFileText(const HeuristicTable& table) {
  std::string text;
  for (int row = firstHeuristicRow; row < heuristicRowCount; ++row) {
    const int index = HeuristicOnRow(row);
    if (index < 0) continue;
    if (!text.empty()) text += ',';
    text += std::to_string(row) + ',' + std::to_string(table[index]);
  }
  return text + "\r\n";
}

std::optional<AIFileFault> ReadAIText(std::string_view text, const TakeAIValue& take) {
  FieldReader fields(text);
  while (!fields.AtEnd()) {
    const auto row = platform::ToInteger16(fields.Next());
    if (!row || HeuristicOnRow(*row) < 0) return Fault(fields, "is no row with a motivation");
    const bool paired = !fields.AtEnd();
    const auto value = platform::ToInteger16(fields.Next());
    if (!paired) return Fault(fields, "is missing: the last row has no value");
    if (!value) return Fault(fields, "is no whole number of 16 bits");
    take(*row, *value);
  }
  return std::nullopt;
}

std::optional<AIFileFault> ReadAIFile(std::string_view name, const TakeAIValue& take) {
  return ReadAIText(platform::TheFiles().Read(PathOf(name)), take);
}

bool LoadAIFile(std::string_view name) {
  HeuristicTable table = Heuristics;
  const auto fault = ReadAIFile(
      name, [&table](int row, std::int16_t value) { table[HeuristicOnRow(row)] = value; });
  if (!fault) Heuristics = table;
  return !fault;
}

}  // namespace ai

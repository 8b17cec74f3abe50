// SPDX-License-Identifier: GPL-3.0-or-later
// AI files: a whole table of motivations under a name of the user's choice, one file each.
//
// A file is one line of whole numbers in decimal, joined by commas and closed by carriage return
// and line feed. The numbers are pairs: a row of the list of motivations (heuristic_rows.h), and
// the value there; the rows that have one, in ascending order. A reader takes commas and line ends
// alike, pairs in any order, and fewer than all: what isn't named stays as it is. It ends at the
// first field that doesn't fit, and what came before counts.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ai/heuristics.h"

namespace ai {

// Their folder. All of these raise platform::FileError.

/// The names without ".AI", in the file system's order. Makes the folder where it isn't there.
std::vector<std::string> ListAIFiles();

/// Folder and name, without ".AI": what messages show.
std::string AIFilePath(std::string_view name);

bool AIFileExists(std::string_view name);

/// Replaces what the file held. A failure leaves that as it was.
void WriteAIFile(std::string_view name, const HeuristicTable& table);

void RemoveAIFile(std::string_view name);

/// What a name mustn't contain, in the order in which it is told and looked for.
inline constexpr std::string_view reservedInAIFileNames = "\\/:*?\"<>|.";

bool IsAIFileName(std::string_view name);  ///< has none of them

// Their content.

std::string AIFileText(const HeuristicTable& table);

/// Where a text stops being pairs.
struct AIFileFault {
  int field = 0;    ///< the one that doesn't fit, or is missing at the end; counts from 1
  std::string why;  ///< as a sentence
};

/// Hears of a row that has a motivation, and of its value.
using TakeAIValue = std::function<void(int row, std::int16_t value)>;

/// Hands on the pairs of a text, one after the other, until its end or a fault.
std::optional<AIFileFault> ReadAIText(std::string_view text, const TakeAIValue& take);

/// The same with a file. One that can't be read raises platform::FileError.
std::optional<AIFileFault> ReadAIFile(std::string_view name, const TakeAIValue& take);

/// Puts a file's values into Heuristics. False, with nothing changed, where the file isn't pairs
/// throughout; one that can't be read raises platform::FileError.
bool LoadAIFile(std::string_view name);

}  // namespace ai

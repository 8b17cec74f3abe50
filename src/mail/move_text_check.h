// SPDX-License-Identifier: GPL-3.0-or-later
// Finding the move text in what came from outside, and checking its form. Both take any text at any
// length, in time proportional to it. The check reads form only: the moves aren't replayed, and
// legal form with impossible chess shows up when the game is opened.
#pragma once

#include <string>
#include <string_view>

namespace mail {

/// The text between the markers, without any line break; empty where no complete pair of markers is
/// found. Markers that a mail system has broken over lines are found too.
std::string ExtractMoveText(std::string_view body);

/// 0 for a move text of good form, else the stage of the check that it failed, 1 to 12. Silent.
int CheckMoveText(std::string_view text);

/// The same. Raises std::exception for a text of good form that is too long, or has a number that
/// no game can hold.
int StageOfForm(std::string_view text);

/// Whether a move text has good form; reports a failure with the wording for a file that the user
/// selected, or for a mail, and tells its stage, 0 for an unexpected one.
bool ValidateMoveText(std::string_view text, bool fromFile, int* failedStage = nullptr);

/// The words of such a report.
std::string BadFormTitle(int stage);
std::string BadFormText(int stage, bool fromFile);

}  // namespace mail

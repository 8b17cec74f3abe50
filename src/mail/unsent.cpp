// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/unsent.h"

#include <exception>
#include <optional>
#include <string_view>

#include "mail/sending.h"
#include "platform/conversions.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "platform/whole_file.h"
#include "store/queries.h"

namespace mail {
namespace {

constexpr std::string_view start = "sending-";

std::string Folder() { return platform::Process().DataPath + "Outbox/"; }

/// 0 also where there is no such game yet.
std::size_t StoredMoves(std::int32_t gameID) {
  store::MoveRecords moves;
  return store::SelectMoves(moves, gameID) ? moves.size() : 0;
}

/// Whether the move that was noted has been saved.
bool HasGrown(std::int32_t gameID, const std::string& movesBefore) {
  const auto before = platform::ToInteger32(movesBefore);
  return before && StoredMoves(gameID) > static_cast<std::size_t>(*before);
}

void RemoveNote(const std::string& path) {
  try {
    if (platform::TheFiles().Exists(path)) platform::TheFiles().Remove(path);
  } catch (const std::exception&) {
    // the move is sent once more, which does no harm
  }
}

std::string NotePath(std::int32_t gameID) {
  return Folder() + std::string(start) + std::to_string(gameID);
}

void WriteNote(std::int32_t gameID, std::size_t movesBefore) {
  platform::TheFiles().MakeFolder(Folder());
  platform::ReplaceFile(NotePath(gameID), std::to_string(movesBefore));
}

}  // namespace

SendingNote::SendingNote(std::int32_t gameID) {
  try {
    if (gameID < 1) gameID = store::NextGameID().value_or(0);
    if (gameID < 1) return;
    path_ = NotePath(gameID);
    WriteNote(gameID, StoredMoves(gameID));
  } catch (const std::exception&) {
    path_.clear();
  }
}

SendingNote::~SendingNote() {
  if (!path_.empty()) RemoveNote(path_);
}

void SendWithNextLogon(std::int32_t gameID) {
  try {
    WriteNote(gameID, 0);
  } catch (const std::exception&) {
    // the user may send it again from the list
  }
}

void SendWhatWasNoted() {
  try {
    if (!platform::TheFiles().Exists(Folder())) return;
    for (const std::string& name : platform::TheFiles().List(Folder())) {
      if (!name.starts_with(start)) continue;
      const auto gameID = platform::ToInteger32(name.substr(start.size()));
      if (!gameID) continue;
      const std::string path = Folder() + name;
      const bool isSettled =
          !HasGrown(*gameID, platform::TheFiles().Read(path)) || SendMoveMail(*gameID);
      if (isSettled || !platform::Process().Stopping) RemoveNote(path);
    }
  } catch (const std::exception&) {
    // what can't be read now is met again by the next logon
  }
}

}  // namespace mail

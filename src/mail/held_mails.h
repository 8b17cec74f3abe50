// SPDX-License-Identifier: GPL-3.0-or-later
// The mails that were set aside instead of being taken, each whole in a file of the folder "Held"
// beside the games. A file's name is the mail's identifier and how far the user has got with it:
// ".new" before he was asked, ".asked" while he puts the answer off, ".refused" and ".taken" for
// good, so that the mail, which stays in the Inbox, isn't set aside again. A few header lines tell
// why it was set aside and who wrote it; behind a blank line stands the text as it came.
//
// Operations raise platform::FileError where the folder can't be read or written.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mail {

/// Why a claim isn't taken.
enum class Objection {
  None,
  Address,  ///< the sender isn't the game's opponent
  History,  ///< it has other moves than the game, or their numbers aren't in order
  Ended,    ///< it goes on with a game that has ended
  Flood,    ///< too many games began from unknown people of late
  Form      ///< its moves aren't numbered in order, so no game can begin from it
};

/// Such as "address".
std::string_view NameOf(Objection objection);

/// What came in, by mail or as a file.
struct ReceivedMail {
  std::string name;
  std::string address;
  std::string subject;
  std::string text;
  bool isFile = false;  ///< a file has no sender: name and address stand in for one
};

enum class HeldState { New, Asked, Refused, Taken };

struct HeldMail {
  std::string id;
  HeldState state = HeldState::New;
  Objection why = Objection::None;
  std::optional<std::int32_t> gameID;  ///< none for a game that isn't there yet
  std::int64_t since = 0;              ///< seconds since 1970, UTC
  ReceivedMail mail;
};

/// Tells mails apart by their senders and texts, whatever they are called in their store.
std::string IdentifierOf(const ReceivedMail& mail);

/// Sets a mail aside where that hasn't been done yet; `since` and `id` are filled in. Answers it as
/// it stands then. Nothing where very many wait already, of all or of this sender alone: the mail
/// is left where it is.
std::optional<HeldMail> Hold(HeldMail mail);

/// Those that wait for an answer, the oldest first. A file that can't be read is passed over.
std::vector<HeldMail> WaitingMails();

/// Those that were refused, likewise.
std::vector<HeldMail> RefusedMails();

/// Any that is held, whatever was answered.
std::optional<HeldMail> FindHeldMail(const std::string& id);

void SetState(HeldMail& mail, HeldState state);

/// Keeps the mail with another reason; it is new again.
void HoldFor(HeldMail& mail, Objection why);

}  // namespace mail

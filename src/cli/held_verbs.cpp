// SPDX-License-Identifier: GPL-3.0-or-later
// The verbs of the mails that were set aside.
#include <algorithm>

#include "cli/delivery_states.h"
#include "cli/verbs.h"
#include "mail/held_answers.h"
#include "platform/files.h"

namespace cli {
namespace {

/// The moves that both lists have under one number and that aren't the same.
Json Differences(const mail::HeldMail& held) {
  std::vector<std::string> rows;
  const mail::HeldClaim what = mail::ClaimOf(held);
  const store::MoveRecords none;
  const store::MoveRecords& stored = what.game ? what.game->moves : none;
  const store::MoveRecords& received = what.claim.moves;
  for (std::size_t i = 0; i < std::min(stored.size(), received.size()); ++i) {
    if (mail::IsSameMove(stored[i], received[i])) continue;
    rows.push_back(JsonObject()
                       .Add("number", static_cast<int>(i) + 1)
                       .Add("stored", stored[i].MoveText)
                       .Add("received", received[i].MoveText)
                       .Text());
  }
  return JsonArray(rows);
}

mail::HeldMail HeldArgument(const Call& call) {
  const std::string& id = call.arguments.Others().front();
  auto held = mail::FindHeldMail(id);
  if (!held || held->state == mail::HeldState::Taken) {
    throw Refusal("No mail is set aside under \"" + id + "\"; \"mail held\" lists them.");
  }
  return std::move(*held);
}

void PrintAnswer(const mail::HeldMail& held, bool ok, std::optional<std::int32_t> gameID,
                 bool changed) {
  JsonObject()
      .Add("held", held.id)
      .Add("ok", ok)
      .Add("game", gameID)
      .Add("changed", changed)
      .Print();
}

/// Runs a verb that reads and writes what was set aside.
template <typename Work>
bool RefusingFailures(const Work& work) {
  try {
    return work();
  } catch (const mail::StoreFailure& failure) {
    throw Refusal(std::string("The games can't be read or written: ") + failure.what() + ".");
  } catch (const platform::FileError& error) {
    throw Refusal(std::string("What was set aside can't be reached: ") + error.what() + ".");
  }
}

}  // namespace

bool MailHeld(const Call& call) {
  return RefusingFailures([&call] {
    const bool refused = call.arguments.Has("--refused");
    for (const mail::HeldMail& held : refused ? mail::RefusedMails() : mail::WaitingMails()) {
      JsonObject()
          .Add("held", held.id)
          .Add("game", held.gameID)
          .Add("from", held.mail.address)
          .Add("name", held.mail.name)
          .Add("why", mail::NameOf(held.why))
          .Add("differs", Differences(held))
          .Add("since", UtcText(held.since))
          .Print();
    }
    return true;
  });
}

bool MailAccept(const Call& call) {
  return RefusingFailures([&call] {
    const mail::HeldMail held = HeldArgument(call);
    const mail::MoveArrival arrival = mail::AcceptHeldMail(held);
    PrintAnswer(held, arrival.ok, arrival.gameID, arrival.changed);
    if (arrival.ok) return true;
    throw Refusal(
        "The address is taken, but the mail stays set aside: its moves aren't those of "
        "the game, or the game has ended.  Accept it once more to take them.");
  });
}

bool MailRefuse(const Call& call) {
  return RefusingFailures([&call] {
    const mail::HeldMail held = HeldArgument(call);
    mail::RefuseHeldMail(held);
    PrintAnswer(held, true, held.gameID, false);
    return true;
  });
}

}  // namespace cli

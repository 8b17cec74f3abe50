// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/held_mail_questions.h"

#include <algorithm>
#include <exception>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "mail/games_locked.h"
#include "mail/held_answers.h"
#include "platform/messages.h"
#include "platform/polling.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "shell/notification.h"
#include "shell/tray_status.h"

namespace shell {
namespace {

using mail::Objection;
using platform::HeldMailChoice;
using platform::Process;

/// Questions that the user is asked in a row without having wanted to see them.
constexpr std::size_t mostUnasked = 3;

struct Wording {
  Objection why;
  const char* reason;
  const char* whatFor;
  const char* acceptCaption;
  const char* refuseCaption;
};

constexpr Wording wordings[] = {
    {Objection::Address, "This mail has a move for your game, but it came from another address.",
     "If it is your opponent, his mail is taken, and your moves go to this address from now on.",
     "He has a new address", "Not he"},
    {Objection::History, "The moves in this mail aren't those of your game.",
     "If you take them, they replace the moves of your game.", "Take his moves", "Keep mine"},
    {Objection::Ended, "Your game has ended, but this mail goes on with it.",
     "If you take it up, the game goes on with the moves of the mail.", "Take up the game",
     "Leave it ended"},
    {Objection::Flood,
     "Very many new games came from people you don't know, so this one waits for your word.",
     "If you want to play it, it appears in your list of games.", "Begin the game", "Not wanted"},
    {Objection::Form,
     "The moves in this mail aren't numbered one after the other, so something is wrong with it.",
     "If you begin the game all the same, its moves are numbered anew.", "Begin the game",
     "Not wanted"},
};

const Wording& WordingOf(Objection why) {
  return *std::find_if(std::begin(wordings), std::end(wordings),
                       [why](const Wording& wording) { return wording.why == why; });
}

std::string MoveText(const store::MoveRecords& moves, std::size_t index) {
  return index < moves.size() ? moves[index].MoveText : std::string{};
}

std::vector<platform::HeldMailQuestion::MoveRow> BothLists(const store::MoveRecords& stored,
                                                           const store::MoveRecords& received) {
  std::vector<platform::HeldMailQuestion::MoveRow> rows;
  for (std::size_t i = 0; i < std::max(stored.size(), received.size()); ++i) {
    const bool inBoth = i < stored.size() && i < received.size();
    rows.push_back({static_cast<int>(i) + 1, MoveText(stored, i), MoveText(received, i),
                    inBoth && !mail::IsSameMove(stored[i], received[i])});
  }
  return rows;
}

/// What differs, in a sentence; blank where nothing does.
std::string Difference(const store::MoveRecords& stored, const store::MoveRecords& received) {
  if (!mail::HasOrderlyNumbers(received)) return " Its moves aren't numbered one after the other.";
  const std::size_t first = mail::FirstDifference(stored, received);
  if (first == std::min(stored.size(), received.size())) return {};
  return " Move " + std::to_string(first + 1) + " is " + received[first].MoveText +
         " in the mail and " + stored[first].MoveText + " in your game.";
}

platform::HeldMailQuestion QuestionAbout(const mail::HeldMail& held) {
  const mail::HeldClaim what = mail::ClaimOf(held);
  const Wording& wording = WordingOf(held.why);
  platform::HeldMailQuestion question;
  question.senderName = held.mail.name;
  question.senderAddress = held.mail.address;
  question.gameName = what.claim.name;
  question.why = wording.reason;
  question.whatFor = wording.whatFor;
  question.acceptCaption = wording.acceptCaption;
  question.refuseCaption = wording.refuseCaption;
  if (what.game) {
    const store::GameRecord& game = what.game->record;
    question.gameName = game.GAME_NAME;
    question.opponent = game.GAME_OPPONENTS_NAME;
    question.opponentAddress = game.GAME_OPPONENTS_EMAIL;
    question.why += Difference(what.game->moves, what.claim.moves);
    question.moves = BothLists(what.game->moves, what.claim.moves);
  }
  return question;
}

void ReportNone() {
  platform::ShowMessage(platform::InformationIcon, "Mails set aside", "No mail is set aside.",
                        "OK");
}

void ReportFailure(const std::exception& failure) {
  platform::ShowMessage(
      platform::DatabaseIcon, "Mails set aside",
      platform::WithCause("Your answer could not be stored.  The mail stays set aside.",
                          mail::FileCause(failure)),
      "OK", {}, false, platform::FailureSound);
}

/// Where the games or the held mail can't be read or written that is told, and the next one asked.
void AskAbout(const mail::HeldMail& held, bool& broughtMoves) {
  try {
    switch (platform::TheSeams().windows->AskAboutHeldMail(QuestionAbout(held))) {
      case HeldMailChoice::Accept:
        broughtMoves |= mail::AcceptHeldMail(held).changed;
        break;
      case HeldMailChoice::Refuse:
        mail::RefuseHeldMail(held);
        break;
      case HeldMailChoice::Later:
        mail::PutOffHeldMail(held);
        break;
    }
  } catch (const std::exception& failure) {
    ReportFailure(failure);
  }
}

/// A mail that is set aside for another reason once it is answered is another question.
std::string QuestionOf(const mail::HeldMail& held) {
  return std::string(mail::NameOf(held.why)) + held.id;
}

/// Who wants to see all of them may also think better of what he refused.
std::vector<mail::HeldMail> StillToAsk(HeldMails which, const std::set<std::string>& asked) {
  auto mails = mail::WaitingMails();
  if (which == HeldMails::All) {
    for (mail::HeldMail& refused : mail::RefusedMails()) mails.push_back(std::move(refused));
  }
  std::erase_if(mails, [&](const mail::HeldMail& held) {
    const bool isUnwanted = which == HeldMails::New && held.state != mail::HeldState::New;
    return isUnwanted || asked.contains(QuestionOf(held));
  });
  return mails;
}

void PutOffAll(const std::vector<mail::HeldMail>& mails) {
  for (const mail::HeldMail& held : mails) mail::PutOffHeldMail(held);
  platform::ShowMessage(platform::InformationIcon, "Mails set aside",
                        std::to_string(mails.size()) +
                            " more mails were set aside.  You find them under \"Mails set "
                            "aside...\" in the File menu.",
                        "OK");
}

/// Asks until nothing is left of what was to be asked; an answer may bring a further question.
/// Answers whether a mail that was taken brought moves.
bool AskAll(HeldMails which) {
  std::set<std::string> asked;
  bool broughtMoves = false;
  while (!Process().Stopping) {
    const auto mails = StillToAsk(which, asked);
    if (mails.empty()) break;
    if (which == HeldMails::New && asked.size() == mostUnasked) {
      PutOffAll(mails);
      break;
    }
    asked.insert(QuestionOf(mails.front()));
    AskAbout(mails.front(), broughtMoves);
  }
  return broughtMoves;
}

}  // namespace

void AskAboutHeldMails(HeldMails which) {
  if (Process().Stopping) return;
  if (which == HeldMails::New && !std::exchange(Process().HeldMailArrived, false)) return;
  bool broughtMoves = false;
  try {
    if (StillToAsk(which, {}).empty()) {
      if (which == HeldMails::All) ReportNone();
      return;
    }
    const platform::PollingHold hold;
    broughtMoves = AskAll(which);
  } catch (const std::exception& failure) {
    ReportFailure(failure);
  }
  if (!broughtMoves || Process().Stopping) return;
  platform::TheSeams().tray->BuildGameMenu();
  platform::Windows& windows = *platform::TheSeams().windows;
  if (Process().GameListOpen) windows.FillGameList(windows.SelectedGame());
  UpdateTrayStatus(platform::TrayOperation::Modify);
  NotifyNewMoves();
}

}  // namespace shell

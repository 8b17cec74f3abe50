// SPDX-License-Identifier: GPL-3.0-or-later
// The verbs of the console companion. Each drives the same operations as the windows and prints
// JSON, one object a line.
#pragma once

#include "cli/arguments.h"
#include "cli/collected_messages.h"
#include "post/accounts/passwords.h"
#include "sign_in/kept_tokens.h"

namespace cli {

/// What a verb works with.
struct Call {
  const Arguments& arguments;
  CollectedMessages& messages;
  post::Passwords& passwords;
  sign_in::KeptTokens& tokens;
};

/// Answers whether all that was asked was done. Raises Refusal with the reason for standard error,
/// or UsageError.
using Verb = bool (*)(const Call& call);

struct VerbRow {
  const char* name;  ///< one word or two
  const char* usage;
  const char* help;
  ArgumentRules rules;
  Verb run;
};

const std::vector<VerbRow>& Verbs();

// Positions from standard input.
bool Replay(const Call& call);
bool Legal(const Call& call);
bool Perft(const Call& call);
bool Evaluate(const Call& call);
bool Search(const Call& call);

// The computer opponent against itself.
bool Match(const Call& call);

// The game file.
bool Games(const Call& call);
bool Moves(const Call& call);
bool Show(const Call& call);
bool Remove(const Call& call);
bool Backup(const Call& call);
bool Repair(const Call& call);

// Printing. The names of these verbs begin with "print", and their application has fonts.
bool PrintBoards(const Call& call);
bool PrintMoves(const Call& call);
bool PrintPosition(const Call& call);
bool PrintTravel(const Call& call);
bool PrintPostcard(const Call& call);

// Playing.
bool New(const Call& call);
bool Move(const Call& call);

// Other chess programs.
bool PgnExport(const Call& call);
bool PgnImport(const Call& call);

// Mails and move files.
bool Check(const Call& call);
bool Import(const Call& call);
bool Export(const Call& call);
bool Send(const Call& call);
bool Retrieve(const Call& call);

// Mails that were set aside.
bool MailHeld(const Call& call);
bool MailAccept(const Call& call);
bool MailRefuse(const Call& call);

// Mails on their way.
bool MailStatus(const Call& call);
bool MailDeliver(const Call& call);

// The mail account.
bool ShowAccount(const Call& call);
bool SetAccount(const Call& call);
bool TestAccount(const Call& call);
bool SignIn(const Call& call);

}  // namespace cli

// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/verbs.h"

#include <limits>

namespace cli {
namespace {

constexpr std::size_t any = std::numeric_limits<std::size_t>::max();

}  // namespace

const std::vector<VerbRow>& Verbs() {
  static const std::vector<VerbRow> verbs = {
      {"replay",
       "replay < POSITIONS",
       "Plays the moves of each line and tells what became of each.",
       {},
       Replay},
      {"legal", "legal < POSITIONS", "Lists the legal moves of the side to move.", {}, Legal},
      {"perft",
       "perft N [< POSITIONS]",
       "Counts the move sequences of N moves, from the normal start where no position is given.",
       {.least = 1, .most = 1},
       Perft},
      {"evaluate",
       "evaluate [--heuristics TEXT] < POSITIONS",
       "Scores each legal move as the computer opponent does. TEXT is its 54 motivations.",
       {.valueOptions = {"--heuristics"}},
       Evaluate},
      {"search",
       "search --depth N [--seed S] [--heuristics TEXT] < POSITIONS",
       "Chooses a move as the computer opponent does, looking N moves ahead; S makes it "
       "repeatable.",
       {.valueOptions = {"--depth", "--seed", "--heuristics"}, .required = {"--depth"}},
       Search},
      {"match",
       "match A B --games N --depth D [--seed S]",
       "Lets two styles of the computer opponent play N games, each of twenty openings with either "
       "colour in turn. A and B are AI files, their names in the program folder, or factory. Drawn "
       "are stalemates, what nobody can win any more (draw), the third time of a position "
       "(repetition), and what nobody has won after 150 moves (limit). The last line tells how A "
       "did, how far A is ahead in Elo points, give or take the error of 95 %, and of either how "
       "many moves of which sort a game had; S makes it repeatable. Ctrl+C ends it with what was "
       "played.",
       {.valueOptions = {"--games", "--depth", "--seed"},
        .required = {"--games", "--depth"},
        .least = 2,
        .most = 2},
       Match},
      {"check",
       "check FILE...",
       "Checks the form of move files and tells the stage at which one fails.",
       {.least = 1, .most = any},
       Check},
      {"games",
       "games [--select TEXT] [--sort TEXT]",
       "Lists games. TEXT is pairs such as \"Game_status;1\" and \"Game_date;D\".",
       {.valueOptions = {"--select", "--sort"}},
       Games},
      {"moves", "moves ID", "Lists the moves of a game.", {.least = 1, .most = 1}, Moves},
      {"show",
       "show ID [--text]",
       "Tells how a game stands; with --text as a board to look at.",
       {.flags = {"--text"}, .least = 1, .most = 1},
       Show},
      {"new",
       "new --name T --opponent N --email A [--board TEXT] --move M [--comment T] [--send]",
       "Starts a mail game with its first move.",
       {.valueOptions = {"--name", "--opponent", "--email", "--board", "--move", "--comment"},
        .flags = {"--send"},
        .required = {"--name", "--opponent", "--email", "--move"}},
       New},
      {"move",
       "move ID M|offer|accept|decline|surrender [--comment T] [--send]",
       "Plays a move, offers or answers a draw, or gives the game up, and saves it; with --send it "
       "goes to the opponent.",
       {.valueOptions = {"--comment"}, .flags = {"--send"}, .least = 2, .most = 2},
       Move},
      {"import", "import FILE...", "Reads moves from files.", {.least = 1, .most = any}, Import},
      {"export",
       "export ID",
       "Writes a game into a move file of the data folder.",
       {.least = 1, .most = 1},
       Export},
      {"send", "send ID", "Sends the last move of a game again.", {.least = 1, .most = 1}, Send},
      {"retrieve",
       "retrieve [--all]",
       "Takes the moves from the mailbox; with --all from mails that were read, too.",
       {.flags = {"--all"}},
       Retrieve},
      {"mail held",
       "mail held [--refused]",
       "Lists the mails that were set aside and wait, or those that were refused.",
       {.flags = {"--refused"}},
       MailHeld},
      {"mail accept",
       "mail accept HELD",
       "Takes a mail that was set aside: its sender, its moves or its game.",
       {.least = 1, .most = 1},
       MailAccept},
      {"mail refuse",
       "mail refuse HELD",
       "Leaves the games as they are; the mail isn't asked about again.",
       {.least = 1, .most = 1},
       MailRefuse},
      {"remove", "remove ID", "Deletes a game.", {.least = 1, .most = 1}, Remove},
      {"backup", "backup", "Copies the game file to its backup.", {}, Backup},
      {"repair",
       "repair [--from-backup]",
       "Keeps the lines of a damaged game file that can be read, or takes the games of its backup. "
       "The damaged file is kept beside it under a name with the date.",
       {.flags = {"--from-backup"}},
       Repair},
      {"account show", "account show", "Tells the mail account's settings.", {}, ShowAccount},
      {"account set",
       "account set [--password] [KEY=VALUE...]",
       "Changes the mail account; its password comes from the first line of standard input.",
       {.flags = {"--password"}, .most = any},
       SetAccount},
      {"account test",
       "account test",
       "Signs on at the mail service without changing anything there.",
       {},
       TestAccount},
  };
  return verbs;
}

}  // namespace cli

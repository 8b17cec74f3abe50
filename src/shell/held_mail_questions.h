// SPDX-License-Identifier: GPL-3.0-or-later
// Asking the user about the mails that were set aside, one after the other.
#pragma once

namespace shell {

enum class HeldMails {
  New,  ///< those that he wasn't asked about yet, and of very many only the first
  All   ///< all that wait for an answer, because he wants to see them
};

/// Nothing happens where there are none of them, but that he is told so of All. Holds polling.
void AskAboutHeldMails(HeldMails which);

}  // namespace shell

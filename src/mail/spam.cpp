// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/spam.h"

#include "mail/bad_mails.h"
#include "platform/messages.h"
#include "platform/process_state.h"

namespace mail {

void TellOfSpam(const std::vector<std::string>& addresses) {
  if (addresses.empty() || platform::Process().Stopping) return;
  const std::string senders = SendersListed(addresses);
  const std::string text =
      addresses.size() == 1
          ? "A move mail from " + senders +
                " lies in your spam folder. Move it to your Inbox, and Tarvolenix will pick it up."
          : "Move mails from " + senders +
                " lie in your spam folder. Move them to your Inbox, and Tarvolenix will pick them "
                "up.";
  platform::ShowMessage(platform::MailIcon, "Spam folder", text, "OK", {}, false,
                        platform::AttentionSound);
}

}  // namespace mail

// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/bad_mails.h"

#include <algorithm>
#include <exception>

#include "mail/mail_memory.h"
#include "mail/move_text_check.h"
#include "platform/messages.h"
#include "platform/process_state.h"
#include "store/database_lock.h"

namespace mail {
namespace {

constexpr std::size_t mostNamed = 5;

/// All are new where nothing can be remembered.
MailMemory MemoryOrNone() {
  try {
    return LoadMailMemory();
  } catch (const std::exception&) {
    return {};
  }
}

bool IsNews(const BadMail& mail, const MailMemory& memory, bool byHand) {
  if (memory.silenced.contains(mail.id)) return false;
  return byHand || !memory.WasTold(mail.id);
}

std::string SendersOf(const std::vector<BadMail>& mails) {
  std::vector<std::string> senders;
  senders.reserve(mails.size());
  for (const BadMail& mail : mails) senders.push_back(mail.from);
  return SendersListed(senders);
}

std::string TextAbout(const std::vector<BadMail>& mails) {
  const std::string senders = "||Written by " + SendersOf(mails) + ".";
  if (mails.size() == 1) return BadFormText(mails.front().stage, false) + senders;
  return "Tarvolenix found " + std::to_string(mails.size()) +
         " mails that appeared to be chess moves, but which failed validation.||If they are "
         "corrupt chess move emails, get your opponents to re-send their last moves." +
         senders;
}

void Remember(const std::vector<BadMail>& mails, bool silenced) {
  try {
    const store::DatabaseLock lock;
    MailMemory memory = LoadMailMemory();
    for (const BadMail& mail : mails) {
      std::erase(memory.told, mail.id);
      memory.told.push_back(mail.id);
      if (silenced) memory.silenced.insert(mail.id);
    }
    SaveMailMemory(memory);
  } catch (const std::exception&) {
    // He will be told once more.
  }
}

}  // namespace

std::string SendersListed(const std::vector<std::string>& senders) {
  std::vector<std::string> names;
  for (const std::string& sender : senders) {
    const std::string name = sender.empty() ? "somebody unknown" : sender;
    if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
  }
  const std::size_t named = std::min(names.size(), mostNamed);
  std::string text;
  for (std::size_t i = 0; i < named; ++i) {
    if (i > 0) text += i + 1 == names.size() ? " and " : ", ";
    text += names[i];
  }
  if (names.size() > named) {
    text += " and " + std::to_string(names.size() - named) + " others";
  }
  return text;
}

void TellOfBadMails(const std::vector<BadMail>& mails, bool byHand) {
  const MailMemory memory = MemoryOrNone();
  std::vector<BadMail> news;
  std::copy_if(mails.begin(), mails.end(), std::back_inserter(news),
               [&](const BadMail& mail) { return IsNews(mail, memory, byHand); });
  if (news.empty() || platform::Process().Stopping) return;
  const bool heard = platform::AskWithExtra(
      platform::MailIcon, BadFormTitle(news.size() == 1 ? news.front().stage : 1), TextAbout(news),
      "OK", "Don't tell me again about these", platform::AttentionSound);
  Remember(news, !heard);
}

}  // namespace mail

// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/post_office.h"

#include <sys/stat.h>

#include <filesystem>

#include "letters/mail_text.h"
#include "platform/mail_client.h"
#include "post/accounts/local_address.h"
#include "post/servers/mail_failures.h"

namespace post {
namespace {

namespace fs = std::filesystem;

letters::Mailbox LocalMailbox(const letters::Mailbox& mailbox) {
  return {mailbox.name, LocalAddress(mailbox.address)};
}

bool IsFile(std::string path) {
  while (path.ends_with('/')) path.pop_back();
  std::error_code error;
  return fs::is_regular_file(path, error);
}

void MakePostFolder(const std::string& folder) {
  if (fs::exists(folder)) return;
  fs::create_directories(folder);
  fs::permissions(folder, fs::perms::owner_all);  // mail is private until somebody decides to share
}

}  // namespace

letters::OutgoingMail LocalMail(letters::OutgoingMail mail) {
  mail.from = LocalMailbox(mail.from);
  for (letters::Mailbox& recipient : mail.to) recipient = LocalMailbox(recipient);
  return mail;
}

PostOffice::PostOffice(const MailAccount& account)
    : folder_(account.PostFolder), inbox_(folder_ + BoxName(account.MyAddress) + '/') {}

/// A folder that is away may come back; a file that stands in its place won't go by itself.
void PostOffice::Open() {
  try {
    MakePostFolder(folder_);
    inbox_.Create();
    inbox_.RemoveAbandoned();
  } catch (const std::exception& error) {
    if (IsFile(folder_) || IsFile(inbox_.Folder())) throw AccountRefused(error.what());
    throw;
  }
}

void PostOffice::Send(const letters::OutgoingMail& mail) {
  const letters::OutgoingMail local = LocalMail(mail);
  const std::string bytes = letters::ComposeMail(local);
  for (const letters::Mailbox& recipient : local.to) {
    const Maildir box(folder_ + BoxName(recipient.address) + '/');
    try {
      MakePostFolder(folder_);
      box.Create();
      box.Deliver(bytes);
    } catch (const std::exception& error) {
      if (IsFile(box.Folder())) throw MailRefused(error.what());
      throw;
    }
  }
}

}  // namespace post

// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/post_office.h"

#include <sys/stat.h>

#include <filesystem>

#include "letters/mail_text.h"
#include "platform/mail_client.h"
#include "post/mail_failures.h"

namespace post {
namespace {

namespace fs = std::filesystem;

letters::Mailbox LocalMailbox(const letters::Mailbox& mailbox) {
  return {mailbox.name, LocalAddress(mailbox.address)};
}

void MakePostFolder(const std::string& folder) {
  if (fs::exists(folder)) return;
  fs::create_directories(folder);
  fs::permissions(folder, fs::perms::owner_all);  // mail is private until somebody decides to share
}

}  // namespace

std::string LocalAddress(std::string_view address) {
  const auto first = address.find_first_not_of(' ');
  if (first == std::string_view::npos) throw platform::MailError("no address");
  const std::string trimmed(address.substr(first, address.find_last_not_of(' ') - first + 1));
  return trimmed.find('@') == std::string::npos ? trimmed + "@localhost" : trimmed;
}

std::string FileNameOf(std::string_view text) {
  constexpr std::string_view plain = "abcdefghijklmnopqrstuvwxyz0123456789@.+_-";
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string name;
  for (const char c : text) {
    const bool hiding = c == '.' && name.empty();
    if (plain.find(c) != std::string_view::npos && !hiding) {
      name += c;
    } else {
      const auto code = static_cast<unsigned char>(c);
      name += {'%', digits[code >> 4], digits[code & 15]};
    }
  }
  return name;
}

std::string BoxName(std::string_view address) {
  std::string local = LocalAddress(address);
  for (char& c : local) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return FileNameOf(local);
}

letters::OutgoingMail LocalMail(letters::OutgoingMail mail) {
  mail.from = LocalMailbox(mail.from);
  for (letters::Mailbox& recipient : mail.to) recipient = LocalMailbox(recipient);
  return mail;
}

PostOffice::PostOffice(const MailAccount& account)
    : folder_(account.PostFolder), inbox_(folder_ + BoxName(account.MyAddress) + '/') {}

void PostOffice::Open() {
  MakePostFolder(folder_);
  inbox_.Create();
  inbox_.RemoveAbandoned();
}

void PostOffice::Send(const letters::OutgoingMail& mail) {
  const letters::OutgoingMail local = LocalMail(mail);
  const std::string bytes = letters::ComposeMail(local);
  try {
    MakePostFolder(folder_);
    for (const letters::Mailbox& recipient : local.to) {
      const Maildir box(folder_ + BoxName(recipient.address) + '/');
      box.Create();
      box.Deliver(bytes);
    }
  } catch (const std::exception& error) {
    throw MailRefused(error.what());  // here and now, or the user has to know
  }
}

}  // namespace post

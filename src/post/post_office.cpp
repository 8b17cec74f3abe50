// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/post_office.h"

#include <sys/stat.h>

#include <filesystem>

#include "letters/mail_text.h"
#include "platform/mail_client.h"

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

std::string BoxName(std::string_view address) {
  constexpr std::string_view plain = "abcdefghijklmnopqrstuvwxyz0123456789@.+_-";
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string name;
  for (char c : LocalAddress(address)) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
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

PostOffice::PostOffice(const MailAccount& account)
    : folder_(account.PostFolder), inbox_(folder_ + BoxName(account.MyAddress) + '/') {}

void PostOffice::Open() {
  MakePostFolder(folder_);
  inbox_.Create();
  inbox_.RemoveAbandoned();
}

void PostOffice::Send(const letters::OutgoingMail& mail) {
  letters::OutgoingMail local = mail;
  local.from = LocalMailbox(mail.from);
  for (letters::Mailbox& recipient : local.to) recipient = LocalMailbox(recipient);
  const std::string bytes = letters::ComposeMail(local);
  for (const letters::Mailbox& recipient : local.to) {
    const Maildir box(folder_ + BoxName(recipient.address) + '/');
    box.Create();
    box.Deliver(bytes);
  }
}

}  // namespace post

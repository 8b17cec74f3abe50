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

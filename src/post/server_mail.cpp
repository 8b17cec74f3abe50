// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/server_mail.h"

#include <QDate>
#include <QLocale>

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

#include "letters/mail_text.h"
#include "letters/message_ids.h"
#include "platform/move_subject.h"
#include "post/servers/server_folders.h"
#include "post/token_command.h"

namespace post {
namespace {

using platform::MailError;

/// Bytes of mails that are asked for at a time.
constexpr std::uint64_t greatestBatch = 8u << 20;

/// Mails that one look looks at: the rest comes with the next.
constexpr std::ptrdiff_t greatestCount = 5000;

/// Mails in the folder of spam that are told of.
constexpr std::ptrdiff_t mostSpam = 20;

/// The header's fields by which a mail of ours is known.
constexpr const char* tellingFields = "SUBJECT FROM CONTENT-TYPE";

/// Who writes the reports on mails that couldn't be delivered, and how old such a report may be:
/// nobody wants to hear of one from long ago, and an Inbox may hold thousands.
constexpr const char* reports =
    "OR FROM \"mailer-daemon\" OR FROM \"postmaster\" FROM \"microsoftexchange\"";
constexpr int daysOfReports = 14;

/// Servers search decoded subjects, but not all see every sign in them: the name alone is sought.
std::string OurSubject() {
  const std::string_view prefix = platform::subjectPrefix;
  return "SUBJECT \"" + std::string(prefix.substr(0, prefix.find(' '))) + '"';
}

/// Move mails, and reports on them.
std::string OurMails() {
  const QDate since = QDate::currentDate().addDays(-daysOfReports);
  return "OR " + OurSubject() + " (SINCE " +
         QLocale::c().toString(since, QStringLiteral("d-MMM-yyyy")).toStdString() + ' ' + reports +
         ')';
}

std::string IdOf(Uid validity, Uid uid) {
  return std::to_string(validity) + '.' + std::to_string(uid);
}

/// The UIDs in identifiers, but those given while the Inbox had another validity.
std::vector<Uid> UidsOf(const std::vector<std::string>& ids, Uid validity) {
  const std::string start = std::to_string(validity) + '.';
  std::vector<Uid> uids;
  for (const std::string& id : ids) {
    if (!id.starts_with(start)) continue;
    Uid uid = 0;
    std::from_chars(id.data() + start.size(), id.data() + id.size(), uid);
    uids.push_back(uid);
  }
  return uids;
}

/// Whether the mail can be ours by its header and size.
bool CanBeOurs(const ImapClient::Summary& summary) {
  return summary.size <= letters::greatestMail && letters::CanBeOurs(summary.header);
}

std::optional<letters::FetchedMail> Parsed(const std::string& bytes) {
  if (bytes.size() > letters::greatestMail) return std::nullopt;
  try {
    return letters::ParseMail(bytes);
  } catch (const MailError&) {
    return std::nullopt;
  }
}

/// The next mails, at least one, that together aren't too much to ask for.
std::vector<Uid> TakeBatch(std::vector<ImapClient::Summary>::const_iterator& next,
                           std::vector<ImapClient::Summary>::const_iterator end) {
  std::vector<Uid> batch;
  std::uint64_t size = 0;
  for (; next != end && (batch.empty() || size + next->size <= greatestBatch); ++next) {
    batch.push_back(next->uid);
    size += next->size;
  }
  return batch;
}

bool IsDecided(const std::exception& failure) {
  return dynamic_cast<const MailRefused*>(&failure) != nullptr ||
         dynamic_cast<const PerhapsSent*>(&failure) != nullptr;
}

/// What is told of a mail in the folder of spam; nothing for one that isn't ours.
std::optional<letters::FetchedMail> SpamOf(const ImapClient::Summary& summary) {
  auto mail = Parsed(summary.header);
  if (!mail || !platform::IsMoveSubject(mail->subject)) return std::nullopt;
  mail->isSpam = true;
  return mail;
}

}  // namespace

ServerMail::ServerMail(const MailAccount& account, const std::string& password,
                       std::chrono::milliseconds silence, std::size_t lookSize)
    : account_(account), password_(password), patience_(silence), lookSize_(lookSize) {}

/// A token's life is short: each connection gets a new one.
Login ServerMail::NewLogin() {
  Login login{account_.UserName, password_, {}};
  if (!account_.TokenCommand.empty()) {
    login.token = TokenFrom(account_.TokenCommand, patience_);
    return login;
  }
  if (account_.SignIn.empty()) return login;
  if (!tokens_) throw AccountRefused("Nobody can sign in at " + account_.SignIn + " here.");
  const std::string stale = std::exchange(isStale_, false) ? token_ : std::string{};
  login.token = token_ = tokens_->Token(account_, password_, stale, patience_);
  return login;
}

/// A provider may take a token back before its time: `work` is done once more with a new one.
template <typename Work>
void ServerMail::LoggingOnAnew(const Work& work) {
  try {
    return work();
  } catch (const LoginRefused&) {
    if (account_.SignIn.empty()) throw;
    smtp_.reset();
    isStale_ = true;
  }
  work();
}

void ServerMail::Connect() {
  std::unique_ptr<ImapClient> imap;
  LoggingOnAnew([this, &imap] {
    imap = std::make_unique<ImapClient>(
        ServerAddress{account_.ImapHost, account_.ImapPort, account_.ImapSecurity}, NewLogin(),
        patience_);
  });
  const Uid validity = imap->SelectInbox();
  if (std::exchange(validity_, validity) != validity) {
    foreign_.clear();
    brought_ = 0;
  }
  imap_ = std::move(imap);
}

/// Does `work` with the Inbox open. A connection that was lost while nobody used it, as servers and
/// routers do to idle ones, is made anew, once.
template <typename Work>
auto ServerMail::OnInbox(const Work& work) {
  const bool wasOpen = imap_ != nullptr;
  try {
    if (!wasOpen) Connect();
    return work(*imap_);
  } catch (const CommandRefused&) {
    throw;
  } catch (const ConnectionLost&) {
    imap_.reset();
    if (!wasOpen) throw;
  } catch (...) {
    imap_.reset();
    throw;
  }
  return OnInbox(work);
}

void ServerMail::Open() {
  OnInbox([](ImapClient&) {});
}

std::vector<letters::FetchedMail> ServerMail::List(bool unreadOnly) {
  Flush();
  auto list = OnInbox([this, unreadOnly](ImapClient&) { return Listed(unreadOnly); });
  if (!std::exchange(sawSpam_, true)) AddSpam(list);
  return list;
}

std::vector<letters::FetchedMail> ServerMail::Listed(bool unreadOnly) {
  const auto found =
      imap_->Search(std::string("UNDELETED ") + (unreadOnly ? "UNSEEN " : "") + OurMails());
  const auto first = std::upper_bound(found.begin(), found.end(), brought_);
  const auto last = first + std::min(greatestCount, found.end() - first);
  auto summaries = imap_->Summaries({first, last}, tellingFields);
  // Nor is anything taken that wasn't asked for: a round of looks must come to its end.
  std::erase_if(summaries, [this](const auto& summary) {
    return summary.uid <= brought_ || foreign_.contains(summary.uid) || !CanBeOurs(summary);
  });
  auto next = summaries.cbegin();
  auto mails = Download(next, summaries.cend());
  std::vector<letters::FetchedMail> list;
  for (auto summary = summaries.cbegin(); summary != next; ++summary) {
    // Taken out: some servers tell of a mail twice.
    auto mail = mails.extract(summary->uid);
    if (mail.empty()) continue;
    list.push_back(std::move(mail.mapped()));
    list.back().id = IdOf(validity_, summary->uid);
    list.back().read = summary->seen;
  }
  if (next != summaries.cend()) {
    brought_ = std::prev(next)->uid;
  } else {
    brought_ = last != found.end() ? *std::prev(last) : 0;
  }
  return list;
}

/// The next mails until they are as much as a look may bring.
std::unordered_map<Uid, letters::FetchedMail> ServerMail::Download(Summaries::const_iterator& next,
                                                                   Summaries::const_iterator end) {
  std::unordered_map<Uid, letters::FetchedMail> mails;
  for (std::size_t size = 0; next != end && size < lookSize_;) {
    for (const auto& content : imap_->Contents(TakeBatch(next, end), letters::greatestMail + 1)) {
      size += content.bytes.size();
      if (auto mail = Parsed(content.bytes)) {
        mails[content.uid] = std::move(*mail);
      } else {
        foreign_.insert(content.uid);
      }
    }
  }
  return mails;
}

/// Many mails in few commands, and none for what is marked only to be removed. An identifier that
/// no longer means a mail is passed over: the mail is met again when it is listed.
void ServerMail::Flush() {
  const auto marked = std::exchange(marked_, {});
  const auto removed = std::exchange(removed_, {});
  if (marked.empty() && removed.empty()) return;
  OnInbox([&](ImapClient& imap) {
    const auto gone = UidsOf(removed, validity_);
    auto seen = UidsOf(marked, validity_);
    std::erase_if(
        seen, [&gone](Uid uid) { return std::find(gone.begin(), gone.end(), uid) != gone.end(); });
    imap.MarkSeen(seen);
    const auto trash = TrashFor(gone);
    if (trash) {
      imap.Move(gone, *trash);
    } else {
      imap.Remove(gone);
    }
  });
}

/// Where mails go that the server can't destroy by themselves, if it can move them instead.
std::optional<std::string> ServerMail::TrashFor(const std::vector<Uid>& uids) {
  if (uids.empty() || imap_->CanDestroy() || !imap_->Can("MOVE")) return std::nullopt;
  return TrashFolder(imap_->Folders());
}

/// Does `work` in another folder, and goes back to the Inbox, if it still is the same.
template <typename Work>
void ServerMail::Within(const std::string& folder, const Work& work) {
  imap_->Examine(folder);
  work();
  if (imap_->SelectInbox() != validity_) imap_.reset();
}

/// The unread mails in the folder of spam that look like moves. A look at the Inbox is none the
/// worse where that folder can't be looked at.
void ServerMail::AddSpam(std::vector<letters::FetchedMail>& list) {
  try {
    const auto folder = JunkFolder(imap_->Folders());
    if (!folder) return;
    Within(*folder, [this, &list] {
      const auto found = imap_->Search("UNDELETED UNSEEN " + OurSubject());
      const auto first = found.end() - std::min(mostSpam, std::ssize(found));
      for (const auto& summary : imap_->Summaries({first, found.end()}, tellingFields)) {
        if (auto mail = SpamOf(summary)) list.push_back(std::move(*mail));
      }
    });
  } catch (const std::exception&) {
    imap_.reset();  // whatever it was, the next operation begins afresh
  }
}

SmtpClient& ServerMail::Outgoing() {
  if (!smtp_) {
    smtp_ = std::make_unique<SmtpClient>(
        ServerAddress{account_.SmtpHost, account_.SmtpPort, account_.SmtpSecurity}, NewLogin(),
        patience_);
  }
  return *smtp_;
}

void ServerMail::Send(const letters::OutgoingMail& given) {
  letters::OutgoingMail mail = given;
  if (mail.messageID.empty()) mail.messageID = letters::NewMessageID(mail);
  std::string bytes = letters::ComposeMail(mail, letters::Lines::SevenBit);
  std::vector<std::string> recipients;
  for (const letters::Mailbox& recipient : mail.to)
    recipients.push_back(letters::EnvelopeAddress(recipient.address));
  LoggingOnAnew([&] { HandOver(letters::EnvelopeAddress(mail.from.address), recipients, bytes); });
  sent_.push_back({std::move(bytes), mail.messageID});
}

/// Servers take only so many mails in one connection. What one that has carried others doesn't take
/// is tried once on a new one, but for what will never be taken, or may have been.
void ServerMail::HandOver(const std::string& from, const std::vector<std::string>& recipients,
                          const std::string& bytes) {
  const bool wasOpen = smtp_ != nullptr;
  try {
    return Outgoing().Send(from, recipients, bytes);
  } catch (const std::exception& failure) {
    smtp_.reset();
    if (!wasOpen || IsDecided(failure)) throw;
  }
  HandOver(from, recipients, bytes);
}

void ServerMail::KeepCopies() {
  try {
    for (const auto& [bytes, messageID] : std::exchange(sent_, {})) KeepCopy(bytes, messageID);
  } catch (const std::exception&) {
    imap_.reset();  // whatever it was, the next operation begins afresh
  }
}

void ServerMail::KeepCopy(const std::string& bytes, const std::string& messageID) {
  const auto folder = OnInbox([](ImapClient& imap) -> std::optional<std::string> {
    // With this extension the server files what its users send by itself.
    if (imap.Can("X-GM-EXT-1")) return std::nullopt;
    return SentFolder(imap.Folders());
  });
  if (!folder) return;
  // Others keep a copy without saying so beforehand.
  Within(*folder, [this, &folder, &bytes, &messageID] {
    const bool isKept = !imap_->Search("HEADER Message-ID \"" + messageID + '"').empty();
    if (!isKept) imap_->Append(*folder, bytes);  // not tried twice: it might be there twice then
  });
}

void ServerMail::Close() {
  smtp_.reset();
  if (imap_) imap_->Logout();
  imap_.reset();
}

void ServerMail::TryOutgoing() {
  LoggingOnAnew([this] {
    TrySmtp({account_.SmtpHost, account_.SmtpPort, account_.SmtpSecurity}, NewLogin(), patience_);
  });
}

}  // namespace post

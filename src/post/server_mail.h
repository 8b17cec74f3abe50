// SPDX-License-Identifier: GPL-3.0-or-later
// Mail on servers: the Inbox over IMAP, on one connection that is kept open and made anew when it
// is lost, and what is sent over SMTP, with a copy in the folder of sent mails.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "post/accounts/access_tokens.h"
#include "post/mail_transport.h"
#include "post/servers/imap_client.h"
#include "post/servers/patience.h"
#include "post/servers/smtp.h"

namespace post {

class ServerMail : public MailTransport {
 public:
  /// `silence`: the longest wait for a server's next byte.
  ServerMail(const MailAccount& account, const std::string& password,
             std::chrono::milliseconds silence = std::chrono::seconds(30),
             std::size_t lookSize = greatestLook);

  /// Where an account that signs in by its provider has its tokens from. They must outlive this.
  void TakeTokensFrom(AccessTokens& tokens) { tokens_ = &tokens; }

  void Open() override;

  /// A mail's identifier is the Inbox's validity, a point, and the mail's UID.
  std::vector<letters::FetchedMail> List(bool unreadOnly) override;
  bool MoreToCome() const override { return brought_ != 0; }
  void BeginAnew() override { brought_ = 0; }
  void MarkRead(const std::string& id) override { marked_.push_back(id); }
  void Remove(const std::string& id) override { removed_.push_back(id); }
  void Flush() override;

  void Send(const letters::OutgoingMail& mail) override;
  void KeepCopies() override;
  void Close() override;
  void Hurry() override { patience_.Hurry(); }

  /// Logs on where mail goes out, and leaves again.
  void TryOutgoing();

 private:
  Login NewLogin();
  template <typename Work>
  void LoggingOnAnew(const Work& work);
  void Connect();
  template <typename Work>
  auto OnInbox(const Work& work);
  std::vector<letters::FetchedMail> Listed(bool unreadOnly);
  using Summaries = std::vector<ImapClient::Summary>;
  std::unordered_map<Uid, letters::FetchedMail> Download(Summaries::const_iterator& next,
                                                         Summaries::const_iterator end);
  std::optional<std::string> TrashFor(const std::vector<Uid>& uids);
  template <typename Work>
  void Within(const std::string& folder, const Work& work);
  void AddSpam(std::vector<letters::FetchedMail>& list);
  void KeepCopy(const std::string& bytes, const std::string& messageID);
  SmtpClient& Outgoing();
  void HandOver(const std::string& from, const std::vector<std::string>& recipients,
                const std::string& bytes);

  MailAccount account_;
  std::string password_;
  AccessTokens* tokens_ = nullptr;
  std::string token_;     // the last one from there
  bool isStale_ = false;  // a server refused it
  Patience patience_;
  std::size_t lookSize_;
  std::unique_ptr<ImapClient> imap_;  // null while not connected
  std::unique_ptr<SmtpClient> smtp_;  // likewise
  struct Sent {
    std::string bytes, messageID;
  };
  std::vector<Sent> sent_;            // and without a copy yet
  Uid validity_ = 0;                  // of the Inbox that is open
  bool sawSpam_ = false;              // the folder of spam has been looked at
  Uid brought_ = 0;                   // the last mail of a look that left some out; else 0
  std::unordered_set<Uid> foreign_;   // mails found to be none of ours, in spite of their subjects
  std::vector<std::string> marked_;   // and not yet at the server
  std::vector<std::string> removed_;  // likewise
};

}  // namespace post

// SPDX-License-Identifier: GPL-3.0-or-later
// The way to one mail store and out of it, as the mail service needs it. A transport lives on the
// service's own thread and may take its time there. Every failure raises an exception; those of
// mail_failures.h say more than others. Where a connection has been lost, the next operation makes
// it anew or raises.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "letters/mails.h"
#include "post/accounts/access_tokens.h"
#include "post/accounts/mail_account.h"

namespace post {

/// A look brings no more mails when it has brought as many bytes.
inline constexpr std::size_t greatestLook = 64u << 20;

class MailTransport {
 public:
  virtual ~MailTransport() = default;

  virtual void Open() = 0;

  /// The Inbox's move mails, and reports on those that went out, in the order of arrival. Of
  /// more than can be held at a time the first ones: the next look then goes on behind them.
  /// Changes no marks. Once, the move mails in the folder of spam come behind them.
  virtual std::vector<letters::FetchedMail> List(bool unreadOnly) = 0;

  /// True where the last look left mails out.
  virtual bool MoreToCome() const { return false; }

  /// Has the next look begin with the first mail, whatever the last one left out.
  virtual void BeginAnew() {}

  /// A sentence about a mail that the last look had to leave out; blank where it saw all.
  virtual std::string Problem() const { return {}; }

  /// Both are satisfied with a mail that is no longer there, and may be put off until Flush or the
  /// next List.
  virtual void MarkRead(const std::string& id) = 0;
  virtual void Remove(const std::string& id) = 0;

  /// Carries out what was put off. What fails is given up.
  virtual void Flush() {}

  /// Returns when the next hop has accepted the mail for all recipients. Needs no Open. What is
  /// used for it stays open for the next mail until Close.
  virtual void Send(const letters::OutgoingMail& mail) = 0;

  /// Puts copies of what was sent into the store, where that doesn't keep them by itself. A copy
  /// that can't be kept is no failure: the mail is on its way.
  virtual void KeepCopies() {}

  virtual void Close() = 0;

  /// Callable from any thread: the user is waiting to leave. What isn't done within half a second
  /// raises, and so does everything behind it.
  virtual void Hurry() {}
};

/// The transport of an account's kind. Raises MailError where there is none.
std::unique_ptr<MailTransport> MakeMailTransport(const MailAccount& account,
                                                 const std::string& password);

/// The same with these tokens for accounts that sign in by their provider. They must outlive it
/// all.
std::function<std::unique_ptr<MailTransport>(const MailAccount&, const std::string& password)>
TransportsWith(AccessTokens& tokens);

}  // namespace post

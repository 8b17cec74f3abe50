// SPDX-License-Identifier: GPL-3.0-or-later
// The seam to the user's mail service: a session, and a set of messages fetched from the Inbox
// beside one outgoing buffer. A property that can be read is a function without arguments; one that
// can be written is a function of the same name with the new value.
//
// Contract of every service. Read and unread are the mail store's own marks. Fetching, and reading
// a subject or a sender, changes nothing; reading MsgNoteText marks that one message as read, but
// not before the next Flush, so that a mail that was taken stays unread until its game is safe.
// Delete is final. Send returns when the mail lies safely in the service's outbox; what becomes of
// it from there on, MailState tells. A session goes on while nothing answers: a set is empty then.
// Every failure that only the user can mend raises MailError. A service may leave mails out of the
// set that are neither move mails by their subject (IsMoveSubject) nor reports on our own. Display
// names, addresses and subjects come without control characters and without "|".
#pragma once

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>

#include "platform/move_pages.h"

namespace platform {

struct MailError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// A mail server's report that one of our mails couldn't be delivered.
struct Undelivered {
  std::string thread;     ///< what that mail belonged to
  std::string messageID;  ///< that mail's own
  std::string reason;     ///< the remote server's sentence; blank where it gives none
};

/// There is no account to sign on with. What it says is a plain sentence for the user.
struct AccountError : MailError {
  using MailError::MailError;
};

class MAPISession {
 public:
  virtual ~MAPISession() = default;

  /// Starts or joins a session; may ask the user for his account. Needs no network. Raises where
  /// there is no account, or it is refused.
  virtual void SignOn() = 0;
  virtual long SessionID() = 0;  ///< above 0 while signed on
  virtual void SignOff() = 0;

  /// Why the last logon, look, flush or sending failed, or which mail a look had to leave out, as
  /// a sentence for the user; blank where all went well.
  virtual std::string LastProblem() = 0;
};

class MAPIMessages {
 public:
  virtual ~MAPIMessages() = default;

  virtual long SessionID() = 0;
  virtual void SessionID(long id) = 0;

  virtual void FetchUnreadOnly(bool unreadOnly) = 0;

  /// Brings the set into memory in the background and then calls `ready` on the window's thread.
  /// The next Fetch takes that set without waiting. A failure is kept and raised by that Fetch.
  virtual void Prefetch(std::function<void()> ready) = 0;

  /// True where the next Fetch takes a set, or a failure, that is in memory by now.
  virtual bool Prefetched() = 0;

  /// Fills the set, in the order of arrival; waits for the mail service where nothing was
  /// prefetched.
  virtual void Fetch() = 0;

  /// True where that set left mails out that the next Fetch brings.
  virtual bool MoreToCome() = 0;

  virtual int MsgCount() = 0;

  /// Picks the current message of the set, from 0; -1 picks the outgoing buffer.
  virtual void MsgIndex(int index) = 0;

  virtual std::string MsgSubject() = 0;
  virtual void MsgSubject(const std::string& subject) = 0;

  /// The plain text body, UTF-8. Lines end in carriage return and line feed where the mail's do.
  virtual std::string MsgNoteText() = 0;
  virtual void MsgNoteText(const std::string& text) = 0;

  /// What stands beside the outgoing text for people; a blank page stands for none. A service may
  /// send the text without it, and it doesn't come back with a mail that was fetched.
  virtual void MsgPage(const MovePage& page) = 0;

  /// What the outgoing mail belongs to: a newer mail of the same thread says all that an older one
  /// says. Blank where it belongs to nothing.
  virtual void MsgThread(const std::string& thread) = 0;

  virtual std::string MsgOrigDisplayName() = 0;
  virtual std::string MsgOrigAddress() = 0;

  /// Nothing for a mail that somebody wrote.
  virtual std::optional<Undelivered> MsgUndelivered() = 0;

  /// The message doesn't lie in the Inbox but in the folder of spam: subject and sender are all
  /// that is known of it. Each session tells of those once.
  virtual bool MsgIsSpam() = 0;

  virtual int RecipCount() = 0;
  virtual void RecipIndex(int index) = 0;  ///< from 0; the count itself starts a new recipient
  virtual std::string RecipAddress() = 0;
  virtual void RecipAddress(const std::string& address) = 0;
  virtual std::string RecipDisplayName() = 0;
  virtual void RecipDisplayName(const std::string& name) = 0;
  virtual void RecipType(int type) = 0;  ///< 1 is a "to" recipient

  /// The current message stays as unread as it was, though its text was read.
  virtual void LeaveUnread() = 0;

  /// Deletes the current message from the Inbox and from the set: the following ones move down by
  /// one.
  virtual void Delete() = 0;
  virtual void DeleteRecipient() = 0;

  /// Carries out the marks and deletions that are still queued.
  virtual void Flush() = 0;

  /// The same without waiting. What fails then is given up and nobody hears of it.
  virtual void FlushLater() = 0;

  /// Gives the outgoing buffer to the outbox, without showing anything.
  virtual void Send() = 0;

  /// Whether mail from this address comes from the user himself.
  virtual bool IsOwnAddress(const std::string& address) = 0;

  /// Title of the address book.
  virtual void AddressCaption(const std::string& caption) = 0;

  /// Shows the address book; the people picked are the outgoing buffer's recipients then. Raises
  /// where the user cancels, and leaves the buffer as it was.
  virtual void Show(bool details) = 0;

  /// Whether ResolveName may ask which of several is meant.
  virtual void AddressResolveUI(bool mayAsk) = 0;

  /// Finds the person whom RecipDisplayName of the current recipient means: name and address are
  /// his then. Raises where there is no such person, or several of them and none was chosen.
  virtual void ResolveName() = 0;
};

}  // namespace platform

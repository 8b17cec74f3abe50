// SPDX-License-Identifier: GPL-3.0-or-later
// A mail service of some kind with the world around it, as the contract's tests need it: a user who
// is about to sign on, somebody who sends him mail, and eyes that look into the stores behind the
// service's back.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/events.h"
#include "platform/mail_client.h"
#include "platform/mail_state.h"
#include "post/mail_transport.h"

class MailWorld {
 public:
  virtual ~MailWorld() = default;

  virtual platform::MAPISession& Session() = 0;
  virtual platform::MAPIMessages& Messages() = 0;
  virtual platform::MailState& State() = 0;
  virtual platform::Events& Events() = 0;

  /// Puts a mail into the user's Inbox as its last one.
  virtual void Deliver(const letters::OutgoingMail& mail) = 0;

  /// Returns when what the user has sent lies where it goes.
  virtual void AwaitDelivery() {}

  /// The subjects in the user's Inbox and whether they are read.
  virtual std::map<std::string, bool> Inbox() = 0;

  /// What the user has sent to `address`.
  virtual std::vector<letters::FetchedMail> ReceivedBy(const std::string& address) = 0;

  /// From now on nothing can be delivered to `address`.
  virtual void Refuse(const std::string& address) = 0;
};

inline constexpr const char* userName = "Jürgen Müller";
inline constexpr const char* userAddress = "user@localhost";

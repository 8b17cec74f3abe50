// SPDX-License-Identifier: GPL-3.0-or-later
// The way back from the browser: a door on this machine, on a port that nobody else uses, to which
// the provider sends the browser when the user is done (RFC 8252, 7.3).
#pragma once

#include <QEventLoop>
#include <QTcpServer>

#include <chrono>
#include <optional>
#include <string>

#include "post/servers/patience.h"

class QTcpSocket;

namespace sign_in {

class BrowserRedirect {
 public:
  /// `state` is what the right visitor brings along. Opens the door, or raises MailError.
  explicit BrowserRedirect(std::string state);

  int Port() const { return server_.serverPort(); }

  struct Visit {
    std::string code;
    std::string error;        ///< such as "access_denied", in place of a code
    std::string description;  ///< of the error; may be blank
  };

  /// Belongs to the thread that made it, whose events run meanwhile. Any other visitor gets a page
  /// that sends him away, and is waited over; the right one may come twice. Nothing where nobody
  /// came in time.
  std::optional<Visit> Await(std::chrono::milliseconds longest, const post::Patience& patience);

 private:
  void Receive(QTcpSocket* visitor);
  bool Take(const std::string& requestLine);

  std::string state_;
  QEventLoop loop_;  // ahead of what wants its thread's events
  QTcpServer server_;
  std::optional<Visit> visit_;
};

}  // namespace sign_in

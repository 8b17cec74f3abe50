// SPDX-License-Identifier: GPL-3.0-or-later
// The way to a mail server, for incoming and outgoing mail alike. Certificate and host name are
// checked always; off this machine nothing travels unencrypted. Every failure is told as a sentence
// for the user.
#pragma once

#include <curl/curl.h>

#include <memory>
#include <string>
#include <string_view>

#include "post/servers/credentials.h"
#include "post/servers/mail_failures.h"
#include "post/servers/patience.h"

namespace post {

struct ServerAddress {
  std::string host;
  int port;
  std::string security;  ///< "Tls", "StartTls" or "None"
};

/// One connection to one server. `patience` must outlive it.
class ServerConnection {
 public:
  /// `protocol` is "imap" or "smtp". Raises where it can't be tried at all: no host name, or no
  /// encryption for another machine.
  ServerConnection(const char* protocol, const ServerAddress& server, const Patience& patience);

  /// Says goodbye where that is due, and doesn't wait for an answer.
  ~ServerConnection();
  ServerConnection(const ServerConnection&) = delete;
  ServerConnection& operator=(const ServerConnection&) = delete;

  CURL* Handle() const { return curl_.get(); }

  /// Has the user logged on as soon as the connection stands. For SMTP only.
  void LogOnAs(const Login& login);

  /// Goes as far as the handle's options say, on the connection of the last time where that still
  /// stands. Raises AccountRefused, ConnectionLost, MailRefused or MailError.
  void Perform();

  /// The whole mail is on its way: for the answer a server may take its time (RFC 5321, 4.5.3.2.6).
  void AwaitVerdict();

 private:
  void SetUpEncryption();
  void SetUpPatience();
  void SetUpListening();
  static std::size_t HearLine(char* bytes, std::size_t size, std::size_t count, void* self);
  void HearReply(std::string_view line);
  [[noreturn]] void Raise(CURLcode code) const;
  void RaiseReply(CURLcode code) const;
  std::string CertificateProblem() const;

  CURLcode WorkUntilDone();

  struct Cleanup {
    void operator()(CURL* curl) const { curl_easy_cleanup(curl); }
  };
  struct MultiCleanup {
    void operator()(CURLM* connections) const { curl_multi_cleanup(connections); }
  };

  std::string protocol_;
  ServerAddress server_;
  Login login_;
  const Patience& patience_;
  std::size_t heard_ = 0;  // bytes, about what is performed
  bool isGreeted_ = false;
  bool awaitsVerdict_ = false;
  int replyCode_ = 0;  // of the last reply of an SMTP server
  std::string reply_;  // what it says
  bool replyGoesOn_ = false;
  bool isStranger_ = false;            // what answers is no such server
  char reason_[CURL_ERROR_SIZE] = "";  // where the library explains a failure
  std::unique_ptr<CURL, Cleanup> curl_;
  std::unique_ptr<CURLM, MultiCleanup> connections_;  // the library's, of which there is one
};

}  // namespace post

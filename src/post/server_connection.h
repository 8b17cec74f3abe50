// SPDX-License-Identifier: GPL-3.0-or-later
// The way to a mail server, for incoming and outgoing mail alike. Certificate and host name are
// checked always; off this machine nothing travels unencrypted. Every failure is told as a sentence
// for the user.
#pragma once

#include <curl/curl.h>

#include <memory>
#include <string>

#include "platform/mail_client.h"
#include "post/patience.h"

namespace post {

struct ServerAddress {
  std::string host;
  int port;
  std::string security;  ///< "Tls", "StartTls" or "None"
};

struct Login {
  std::string userName;
  std::string password;
  std::string token;  ///< stands for the password where it isn't blank
};

/// The server knows the user not, or not with this password.
struct LoginRefused : platform::MailError {
  using MailError::MailError;
};

/// The connection is gone, or nobody answers on it.
struct ConnectionLost : platform::MailError {
  using MailError::MailError;
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

  /// Goes as far as the handle's options say, once. Raises LoginRefused, ConnectionLost or
  /// MailError.
  void Perform();

 private:
  void SetUpEncryption();
  void SetUpPatience();
  void SetUpListening();
  static std::size_t HearLine(char* bytes, std::size_t size, std::size_t count, void* self);
  [[noreturn]] void Raise(CURLcode code) const;
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
  const Patience& patience_;
  std::size_t heard_ = 0;              // bytes
  bool isStranger_ = false;            // what answers is no such server
  char reason_[CURL_ERROR_SIZE] = "";  // where the library explains a failure
  std::unique_ptr<CURL, Cleanup> curl_;
  std::unique_ptr<CURLM, MultiCleanup> connections_;  // the library's, of which there is one
};

}  // namespace post

// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/servers/server_connection.h"

#include <sys/socket.h>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <mutex>
#include <string_view>
#include <utility>

#include "letters/mail_text.h"
#include "post/servers/login_failure.h"
#include "post/servers/server_trust.h"

namespace post {
namespace {

using platform::MailError;

void PrepareLibrary() {
  static std::once_flag prepared;
  std::call_once(prepared, [] { curl_global_init(CURL_GLOBAL_DEFAULT); });
}

template <typename Value>
void Set(CURL* curl, CURLoption option, Value value) {
  if (curl_easy_setopt(curl, option, value) != CURLE_OK) {
    throw MailError("this computer's network library can't do what a mail server needs");
  }
}

/// A name or an address and nothing that means more in a URL.
bool IsHostName(std::string_view host) {
  return !host.empty() && std::all_of(host.begin(), host.end(), [](unsigned char c) {
    return c >= 128 || std::isalnum(c) || c == '.' || c == '-' || c == '_' || c == ':';
  });
}

/// Whether the host is this machine, whatever a name server says.
bool IsLoopback(std::string_view host) {
  return host == "localhost" || host == "::1" ||
         (host.starts_with("127.") &&
          host.find_first_not_of("0123456789.") == std::string_view::npos);
}

std::string Url(const std::string& protocol, const ServerAddress& server) {
  const bool wrapped = server.security == "Tls";
  const bool numeric = server.host.find(':') != std::string::npos;
  return protocol + (wrapped ? "s://" : "://") + (numeric ? "[" + server.host + "]" : server.host) +
         ":" + std::to_string(server.port) + "/";
}

std::string Quoted(const std::string& text) { return "\"" + text + "\""; }

/// Bytes that a server may say until a connection stands, or about one mail.
constexpr std::size_t greatestTalk = 1u << 20;

/// Bytes of a reply that a user may want to read.
constexpr std::size_t longestReply = 500;

/// How a server's first line may begin.
constexpr struct {
  std::string_view protocol, greeting;
} greetings[] = {{"imap", "* OK"}, {"imap", "* PREAUTH"}, {"imap", "* BYE"},
                 {"smtp", "220"},  {"smtp", "421"},       {"smtp", "554"}};

bool IsGreeting(std::string_view protocol, std::string_view line) {
  return std::any_of(std::begin(greetings), std::end(greetings), [&](const auto& known) {
    return known.protocol == protocol && line.size() > known.greeting.size() &&
           curl_strnequal(line.data(), known.greeting.data(), known.greeting.size());
  });
}

/// A line of a reply, without the status such as "5.7.9" with which the lines before it begin, too.
std::string_view WithoutStatusOf(std::string_view before, std::string_view line) {
  const std::string_view status = before.substr(0, before.find(' ') + 1);
  const bool isRepeated = status.find('.') != std::string_view::npos && line.starts_with(status);
  return isRepeated ? line.substr(status.size()) : line;
}

/// Called by the library now and then while it works.
int StopWhenOver(void* patience, curl_off_t, curl_off_t, curl_off_t, curl_off_t) {
  return static_cast<const Patience*>(patience)->IsOver() ? 1 : 0;
}

}  // namespace

ServerConnection::ServerConnection(const char* protocol, const ServerAddress& server,
                                   const Patience& patience)
    : protocol_(protocol), server_(server), patience_(patience) {
  if (!IsHostName(server.host)) {
    throw MailError(server.host.empty() ? "The name of the mail server is missing."
                                        : Quoted(server.host) + " can't be a mail server's name.");
  }
  PrepareLibrary();
  curl_.reset(curl_easy_init());
  connections_.reset(curl_multi_init());
  if (!curl_ || !connections_) throw MailError("The network can't be used.");
  Set(Handle(), CURLOPT_ERRORBUFFER, reason_);
  Set(Handle(), CURLOPT_NOSIGNAL, 1L);
  Set(Handle(), CURLOPT_PROXY, "");
  Set(Handle(), CURLOPT_PROTOCOLS_STR, "imap,imaps,smtp,smtps");
  Set(Handle(), CURLOPT_URL, Url(protocol_, server).c_str());
  SetUpEncryption();
  SetUpPatience();
  SetUpListening();
}

ServerConnection::~ServerConnection() {
  curl_socket_t socket = CURL_SOCKET_BAD;
  curl_easy_getinfo(Handle(), CURLINFO_ACTIVESOCKET, &socket);
  // The library would wait for the answer to its goodbye, however long that takes.
  if (socket != CURL_SOCKET_BAD) ::shutdown(socket, SHUT_RD);
  curl_multi_remove_handle(connections_.get(), Handle());
}

void ServerConnection::SetUpEncryption() {
  if (server_.security == "None") {
    if (!IsLoopback(server_.host)) {
      throw MailError("Mail to and from " + Quoted(server_.host) +
                      " must be encrypted: choose TLS or STARTTLS.");
    }
    return;
  }
  Set(Handle(), CURLOPT_USE_SSL, static_cast<long>(CURLUSESSL_ALL));
  DemandTrust(Handle());
}

void ServerConnection::LogOnAs(const Login& login) {
  login_ = login;
  Set(Handle(), CURLOPT_USERNAME, login.userName.c_str());
  if (login.token.empty()) {
    Set(Handle(), CURLOPT_PASSWORD, login.password.c_str());
    // Left to itself the library prefers what an office's network offers beside the password.
    Set(Handle(), CURLOPT_LOGIN_OPTIONS, "AUTH=PLAIN;AUTH=LOGIN;AUTH=CRAM-MD5");
  } else {
    Set(Handle(), CURLOPT_XOAUTH2_BEARER, login.token.c_str());
    Set(Handle(), CURLOPT_LOGIN_OPTIONS, "AUTH=XOAUTH2;AUTH=OAUTHBEARER");
  }
}

void ServerConnection::SetUpPatience() {
  const auto milliseconds = static_cast<long>(patience_.Silence().count());
  const long seconds = std::max(1L, milliseconds / 1000);
  Set(Handle(), CURLOPT_CONNECTTIMEOUT_MS, milliseconds);
  Set(Handle(), CURLOPT_SERVER_RESPONSE_TIMEOUT, seconds);
  Set(Handle(), CURLOPT_LOW_SPEED_LIMIT, 1L);
  Set(Handle(), CURLOPT_LOW_SPEED_TIME, seconds);
  Set(Handle(), CURLOPT_TIMEOUT_MS, static_cast<long>(2 * patience_.Command().count()));
  Set(Handle(), CURLOPT_QUICK_EXIT, 1L);  // a name that is still looked up holds nobody back
  Set(Handle(), CURLOPT_TCP_KEEPALIVE, 1L);
}

/// The library itself passes over lines that it doesn't understand, and waits for better ones. One
/// without an end it gives up.
void ServerConnection::SetUpListening() {
  Set(Handle(), CURLOPT_HEADERFUNCTION, HearLine);
  Set(Handle(), CURLOPT_HEADERDATA, this);
  Set(Handle(), CURLOPT_NOPROGRESS, 0L);
  Set(Handle(), CURLOPT_XFERINFOFUNCTION, StopWhenOver);
  Set(Handle(), CURLOPT_XFERINFODATA, &patience_);
}

/// Called by the library for each line that the server says. The answer 0 ends the connection.
std::size_t ServerConnection::HearLine(char* bytes, std::size_t size, std::size_t count,
                                       void* self) {
  auto& connection = *static_cast<ServerConnection*>(self);
  const std::string_view line(bytes, size * count);
  const bool isGreeting = !std::exchange(connection.isGreeted_, true);
  connection.heard_ += line.size();
  connection.isStranger_ =
      (isGreeting && !IsGreeting(connection.protocol_, line)) || connection.heard_ > greatestTalk;
  if (connection.protocol_ == "smtp") connection.HearReply(line);
  return connection.isStranger_ ? 0 : line.size();
}

/// Such as "550-No such user" and "550 here". The answer to the goodbye is of no interest.
void ServerConnection::HearReply(std::string_view line) {
  int code = 0;
  std::from_chars(line.data(), line.data() + std::min<std::size_t>(3, line.size()), code);
  if (code < 200 || code == 221) return;
  if (!replyGoesOn_) reply_.clear();
  replyCode_ = code;
  replyGoesOn_ = line.size() > 3 && line[3] == '-';
  std::string_view text = line.substr(std::min<std::size_t>(4, line.size()));
  text = WithoutStatusOf(reply_, text.substr(0, text.find_last_not_of(" \r\n") + 1));
  if (reply_.size() > longestReply) return;
  if (!reply_.empty()) reply_ += ' ';
  reply_ += text;
}

void ServerConnection::AwaitVerdict() {
  awaitsVerdict_ = true;
  const auto seconds = std::max(1L, static_cast<long>(patience_.Command().count() / 1000));
  Set(Handle(), CURLOPT_SERVER_RESPONSE_TIMEOUT, seconds);
  Set(Handle(), CURLOPT_LOW_SPEED_TIME, seconds);
}

void ServerConnection::Perform() {
  reason_[0] = '\0';
  heard_ = 0;
  replyCode_ = 0;
  replyGoesOn_ = awaitsVerdict_ = false;
  SetUpPatience();
  const CURLcode code = WorkUntilDone();
  if (code != CURLE_OK) Raise(code);
}

/// The library's own way of waiting would notice a hurry only once a second. It is asked to stop
/// all the same, and not left: it would then end half a mail as if that were the whole.
CURLcode ServerConnection::WorkUntilDone() {
  constexpr int slice = 100;  // ms: how soon a hurry is noticed
  CURLM* const connections = connections_.get();
  curl_multi_remove_handle(connections, Handle());  // of the last time
  curl_multi_add_handle(connections, Handle());
  while (true) {
    int count = 0;
    if (curl_multi_perform(connections, &count) != CURLM_OK) return CURLE_FAILED_INIT;
    const CURLMsg* const message = curl_multi_info_read(connections, &count);
    if (message) return message->data.result;
    curl_multi_poll(connections, nullptr, 0, slice, nullptr);
  }
}

std::string ServerConnection::CertificateProblem() const {
  const std::string_view reason = reason_;
  const auto tells = [reason](std::string_view text) {
    return reason.find(text) != std::string_view::npos;
  };
  const std::string host = Quoted(server_.host);
  if (tells("expired")) {
    return "The certificate of " + host + " has expired. Only its owner can renew it.";
  }
  if (tells("not yet valid")) {
    return "The certificate of " + host + " isn't valid yet: check this computer's date.";
  }
  if (tells("subject name") || tells("does not match")) {
    return "The server that answers shows the certificate of another one than " + host +
           ": check the server's name.";
  }
  return "This computer doesn't trust the certificate of " + host +
         ". Somebody may be reading along: don't go on without asking your provider.";
}

/// Raises what a reply of an SMTP server means that refuses: the mail itself, the user, or that
/// anybody comes in just now.
void ServerConnection::RaiseReply(CURLcode code) const {
  if (isStranger_ || replyCode_ < 400) return;
  constexpr int closing = 421, wantsLogin = 530, firstOfLogins = 534, lastOfLogins = 538;
  const bool isOfGreeting = code == CURLE_WEIRD_SERVER_REPLY && !awaitsVerdict_;
  const bool isOfLogin = code == CURLE_LOGIN_DENIED || replyCode_ == wantsLogin ||
                         (replyCode_ >= firstOfLogins && replyCode_ <= lastOfLogins);
  const std::string said = letters::WithoutReserved(reply_);
  if (replyCode_ == closing || isOfGreeting) {
    throw ConnectionLost("The server " + Quoted(server_.host) + " is busy just now: " + said);
  }
  if (isOfLogin) RaiseLoginFailure(server_.host, login_, replyCode_, reply_);
  if (code != CURLE_SEND_ERROR && !awaitsVerdict_) return;
  const std::string sentence = said + " (" + std::to_string(replyCode_) + ")";
  if (replyCode_ >= 500) throw MailRefused(sentence);
  throw MailError(sentence);
}

void ServerConnection::Raise(CURLcode code) const {
  RaiseReply(code);
  const std::string host = Quoted(server_.host);
  const std::string place = host + " at port " + std::to_string(server_.port);
  if (awaitsVerdict_)
    throw PerhapsSent("The server " + place + " didn't say whether it took the mail.");
  switch (isStranger_ ? CURLE_WEIRD_SERVER_REPLY : code) {
    case CURLE_COULDNT_RESOLVE_HOST:
      throw ConnectionLost("There is no server named " + host +
                           ": check the spelling, and whether this computer is on the network.");
    case CURLE_COULDNT_CONNECT:
      throw ConnectionLost("Nothing answers as " + place + ": check the port.");
    case CURLE_OPERATION_TIMEDOUT:
    case CURLE_ABORTED_BY_CALLBACK:
      throw ConnectionLost("The server " + place + " doesn't answer in time: check the port.");
    case CURLE_PEER_FAILED_VERIFICATION:
      throw CertificateRefused(CertificateProblem());
    case CURLE_SSL_CONNECT_ERROR:  // which is also a connection that is cut while it begins
      throw ConnectionLost("The server " + place +
                           " can't be spoken to in TLS: check the port, or try STARTTLS.");
    case CURLE_USE_SSL_FAILED:
      throw MailError("The server " + place + " offers no STARTTLS: check the port, or try TLS.");
    case CURLE_LOGIN_DENIED:  // without having been asked
      throw AccountRefused("The server " + place +
                           " offers no way of logging on that this program knows.");
    case CURLE_WEIRD_SERVER_REPLY:
      throw MailError("The server " + place + " doesn't speak " +
                      (protocol_ == "imap" ? "IMAP" : "SMTP") + " as expected: check the port.");
    default:
      throw ConnectionLost("The connection to " + place + " failed: " + curl_easy_strerror(code) +
                           ".");
  }
}

}  // namespace post

// SPDX-License-Identifier: GPL-3.0-or-later
#include "sign_in/web_request.h"

#include <QUrl>
#include <curl/curl.h>

#include <algorithm>
#include <memory>

#include "post/servers/mail_failures.h"
#include "post/servers/server_trust.h"

namespace sign_in {
namespace {

/// No answer that we ask for is longer.
constexpr std::size_t greatestAnswer = 256u << 10;

QUrl UrlOf(const std::string& text) { return QUrl(QString::fromStdString(text), QUrl::StrictMode); }

/// On this machine there is nobody to read along.
bool IsSafe(const QUrl& url) {
  if (url.host() == QLatin1StringView("127.0.0.1") && url.scheme() == QLatin1StringView("http")) {
    return true;
  }
  return url.scheme() == QLatin1StringView("https") && !url.host().isEmpty();
}

class Request {
 public:
  Request(const std::string& url, const post::Patience& patience)
      : host_(UrlOf(url).host().toStdString()), curl_(curl_easy_init(), curl_easy_cleanup) {
    RequireSafe(url);
    const auto silence = static_cast<long>(patience.Silence().count());
    Set(CURLOPT_URL, url.c_str());
    Set(CURLOPT_PROTOCOLS_STR, "http,https");
    post::DemandTrust(curl_.get());
    Set(CURLOPT_NOSIGNAL, 1L);
    Set(CURLOPT_QUICK_EXIT, 1L);
    Set(CURLOPT_TIMEOUT_MS, std::max(1000L, silence));
    Set(CURLOPT_WRITEFUNCTION, Hear);
    Set(CURLOPT_WRITEDATA, this);
    headers_ = {curl_slist_append(nullptr, "Accept: application/json"), curl_slist_free_all};
    Set(CURLOPT_HTTPHEADER, headers_.get());
  }

  void SetForm(const std::string& form) {
    Set(CURLOPT_POSTFIELDSIZE, static_cast<long>(form.size()));
    Set(CURLOPT_COPYPOSTFIELDS, form.c_str());
  }

  WebAnswer Answer(const post::Patience& patience) {
    const CURLcode code = WorkUntilDone(patience);
    if (code == CURLE_PEER_FAILED_VERIFICATION) {
      throw post::CertificateRefused("This computer doesn't trust the certificate of \"" + host_ +
                                     "\".");
    }
    if (code != CURLE_OK) {
      throw post::ConnectionLost("The server \"" + host_ + "\" can't be asked for a sign-in: " +
                                 curl_easy_strerror(code) + ".");
    }
    curl_easy_getinfo(curl_.get(), CURLINFO_RESPONSE_CODE, &answer_.status);
    return std::move(answer_);
  }

 private:
  template <typename Value>
  void Set(CURLoption option, Value value) {
    curl_easy_setopt(curl_.get(), option, value);
  }

  /// The library's own way of waiting would notice a hurry only once a second.
  CURLcode WorkUntilDone(const post::Patience& patience) {
    constexpr int slice = 50;  // ms: how soon a hurry is noticed
    const std::unique_ptr<CURLM, decltype(&curl_multi_cleanup)> all(curl_multi_init(),
                                                                    curl_multi_cleanup);
    curl_multi_add_handle(all.get(), curl_.get());
    CURLcode result = CURLE_ABORTED_BY_CALLBACK;
    for (int left = 0; !patience.IsOver();) {
      curl_multi_perform(all.get(), &left);
      if (const CURLMsg* const message = curl_multi_info_read(all.get(), &left)) {
        result = message->data.result;
        break;
      }
      curl_multi_poll(all.get(), nullptr, 0, slice, nullptr);
    }
    curl_multi_remove_handle(all.get(), curl_.get());
    return result;
  }

  /// Called by the library for each piece that arrives. The answer 0 ends the transfer.
  static std::size_t Hear(char* bytes, std::size_t size, std::size_t count, void* self) {
    std::string& content = static_cast<Request*>(self)->answer_.content;
    if (content.size() + size * count > greatestAnswer) return 0;
    content.append(bytes, size * count);
    return size * count;
  }

  std::string host_;
  std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> curl_;
  std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)> headers_{nullptr,
                                                                       curl_slist_free_all};
  WebAnswer answer_;
};

std::string Percent(const std::string& text) {
  return QUrl::toPercentEncoding(QString::fromStdString(text)).toStdString();
}

}  // namespace

void RequireSafe(const std::string& url) {
  if (IsSafe(UrlOf(url))) return;
  throw platform::MailError("The address \"" + url + "\" can't be asked for a sign-in.");
}

std::string Encoded(const Fields& fields) {
  std::string encoded;
  for (const auto& [name, value] : fields) {
    if (value.empty()) continue;
    if (!encoded.empty()) encoded += '&';
    encoded += Percent(name) + '=' + Percent(value);
  }
  return encoded;
}

WebAnswer Get(const std::string& url, const post::Patience& patience) {
  return Request(url, patience).Answer(patience);
}

WebAnswer PostForm(const std::string& url, const Fields& fields, const post::Patience& patience) {
  Request request(url, patience);
  request.SetForm(Encoded(fields));
  return request.Answer(patience);
}

}  // namespace sign_in

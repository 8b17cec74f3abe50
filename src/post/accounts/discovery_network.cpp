// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/accounts/discovery_network.h"

#include <QUrl>
#include <curl/curl.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <vector>

#include "post/accounts/discovery_names.h"
#include "post/accounts/domain_names.h"
#include "post/servers/server_trust.h"

namespace post {
namespace {

using namespace Qt::StringLiterals;

/// No file with settings is longer.
constexpr std::size_t greatestFile = 64u << 10;

struct Cleanup {
  void operator()(CURL* curl) const { curl_easy_cleanup(curl); }
};

struct MultiCleanup {
  void operator()(CURLM* curls) const { curl_multi_cleanup(curls); }
};

/// A file on a web server, which is sure to be the one that it says it is.
class WebFile {
 public:
  explicit WebFile(const std::string& url) : curl_(curl_easy_init()) {
    Set(CURLOPT_URL, url.c_str());
    Set(CURLOPT_PROTOCOLS_STR, "https");
    Set(CURLOPT_REDIR_PROTOCOLS_STR, "https");
    Set(CURLOPT_FOLLOWLOCATION, 1L);
    Set(CURLOPT_MAXREDIRS, 3L);
    Set(CURLOPT_FAILONERROR, 1L);
    DemandTrust(curl_.get());
    Set(CURLOPT_NOSIGNAL, 1L);
    Set(CURLOPT_QUICK_EXIT, 1L);
    Set(CURLOPT_WRITEFUNCTION, Hear);
    Set(CURLOPT_WRITEDATA, this);
  }

  CURL* Handle() const { return curl_.get(); }

  /// Is called when nothing more will come.
  void End(CURLcode result) { isWhole_ = result == CURLE_OK; }

  bool IsWhole() const { return isWhole_; }
  const std::string& Content() const { return content_; }

 private:
  template <typename Value>
  void Set(CURLoption option, Value value) {
    curl_easy_setopt(curl_.get(), option, value);
  }

  /// Called by the library for each piece that arrives. The answer 0 ends the transfer.
  static std::size_t Hear(char* bytes, std::size_t size, std::size_t count, void* self) {
    std::string& content = static_cast<WebFile*>(self)->content_;
    if (content.size() + size * count > greatestFile) return 0;
    content.append(bytes, size * count);
    return size * count;
  }

  std::unique_ptr<CURL, Cleanup> curl_;
  std::string content_;
  bool isWhole_ = false;
};

std::vector<std::string> PlacesOfFile(const QString& host, const QString& address) {
  const QString file = u"/mail/config-v1.1.xml"_s;
  const QString query = u"?emailaddress="_s + QString::fromLatin1(QUrl::toPercentEncoding(address));
  return {(u"https://autoconfig."_s + host + file + query).toStdString(),
          (u"https://"_s + host + u"/.well-known/autoconfig"_s + file).toStdString()};
}

/// All that is asked about one domain, at the same time.
class Questions {
 public:
  explicit Questions(const std::string& address) {
    const std::string domain = DomainOf(address);
    // As name servers know it. Blank where it can't be one.
    const QString host = QString::fromLatin1(QUrl::toAce(QString::fromStdString(domain)));
    if (!IsServerName(host.toStdString())) return;
    for (const auto& url : PlacesOfFile(host, QString::fromStdString(address))) AskWeb(url);
    names_.emplace(host.toStdString());
  }

  ~Questions() {
    for (const auto& file : files_) curl_multi_remove_handle(curls_.get(), file->Handle());
  }
  Questions(const Questions&) = delete;
  Questions& operator=(const Questions&) = delete;

  void Await(const Patience& patience) {
    constexpr int slice = 50;  // ms: how soon a hurry is noticed
    const auto end = Patience::Clock::now() + patience.Silence();
    while (!AllAnswered() && Patience::Clock::now() < end && !patience.IsOver()) {
      curl_multi_poll(curls_.get(), nullptr, 0, slice, nullptr);
      HearWeb();
    }
  }

  DomainFacts Facts() const {
    DomainFacts facts;
    for (const auto& file : files_) {
      if (file->IsWhole()) facts.configurations.push_back(file->Content());
    }
    if (names_) names_->AddTo(facts);
    return facts;
  }

 private:
  void AskWeb(const std::string& url) {
    files_.push_back(std::make_unique<WebFile>(url));
    curl_multi_add_handle(curls_.get(), files_.back()->Handle());
    ++awaitedFiles_;
  }

  void HearWeb() {
    curl_multi_perform(curls_.get(), &awaitedFiles_);
    int left = 0;
    while (const CURLMsg* const message = curl_multi_info_read(curls_.get(), &left)) {
      for (const auto& file : files_) {
        if (file->Handle() == message->easy_handle) file->End(message->data.result);
      }
    }
  }

  bool AllAnswered() const { return awaitedFiles_ == 0 && (!names_ || names_->AllAnswered()); }

  std::unique_ptr<CURLM, MultiCleanup> curls_{curl_multi_init()};
  std::vector<std::unique_ptr<WebFile>> files_;
  std::optional<NameQuestions> names_;
  int awaitedFiles_ = 0;
};

}  // namespace

DomainFacts AskAboutDomainOf(const std::string& address, const Patience& patience) {
  Questions questions(address);
  questions.Await(patience);
  return questions.Facts();
}

}  // namespace post

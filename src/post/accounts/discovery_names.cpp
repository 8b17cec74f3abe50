// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/accounts/discovery_names.h"

#include <arpa/nameser.h>
#include <resolv.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <mutex>
#include <optional>
#include <span>
#include <thread>

namespace post {
namespace {

using Bytes = std::span<const unsigned char>;

constexpr const char* services[] = {"_imaps._tcp", "_imap._tcp", "_submissions._tcp",
                                    "_submission._tcp"};

/// What name servers say of one question.
struct Answer {
  std::vector<ServiceRecord> services;
  std::multimap<int, std::string> mailHosts;  // by preference: the lowest is the best
};

int NumberAt(const ns_rr& record, int place) {
  return static_cast<int>(ns_get16(ns_rr_rdata(record) + std::ptrdiff_t{place} * NS_INT16SZ));
}

/// The name behind a record's first numbers; nothing where the record is damaged.
std::optional<std::string> NameBehind(int numbers, const ns_msg& message, const ns_rr& record) {
  char name[NS_MAXDNAME];
  const int start = numbers * NS_INT16SZ;
  if (start >= ns_rr_rdlen(record)) return {};
  const int length = ns_name_uncompress(ns_msg_base(message), ns_msg_end(message),
                                        ns_rr_rdata(record) + start, name, sizeof name);
  return length < 0 ? std::nullopt : std::optional<std::string>(name);
}

void TakeRecord(const std::string& service, const ns_msg& message, const ns_rr& record,
                Answer& answer) {
  const bool isService = !service.empty();
  if (ns_rr_type(record) != (isService ? ns_t_srv : ns_t_mx)) return;
  const auto name = NameBehind(isService ? 3 : 1, message, record);
  if (!name) return;
  if (isService) {
    answer.services.push_back(
        {service, *name, NumberAt(record, 2), NumberAt(record, 0), NumberAt(record, 1)});
  } else {
    answer.mailHosts.emplace(NumberAt(record, 0), *name);
  }
}

Answer Understood(const std::string& service, Bytes bytes) {
  Answer answer;
  ns_msg message;
  if (ns_initparse(bytes.data(), static_cast<int>(bytes.size()), &message) != 0) return answer;
  for (int i = 0; i < ns_msg_count(message, ns_s_an); ++i) {
    ns_rr record;
    if (ns_parserr(&message, ns_s_an, i, &record) != 0) break;
    TakeRecord(service, message, record, answer);
  }
  return answer;
}

/// Who does the service; where none is named, where the domain's mail arrives.
Answer AskFor(const std::string& service, const std::string& domain) {
  struct __res_state state {};
  if (res_ninit(&state) != 0) return {};
  state.retrans = 2;  // seconds
  state.retry = 2;
  std::vector<unsigned char> buffer(NS_MAXMSG);
  const std::string name = service.empty() ? domain : service + '.' + domain;
  const int size = res_nquery(&state, name.c_str(), ns_c_in, service.empty() ? ns_t_mx : ns_t_srv,
                              buffer.data(), static_cast<int>(buffer.size()));
  res_nclose(&state);
  if (size <= 0) return {};
  return Understood(service, Bytes(buffer).first(std::min<std::size_t>(size, buffer.size())));
}

}  // namespace

struct NameQuestions::Answers {
  mutable std::mutex mutex;
  std::vector<Answer> all;
};

/// The threads are waited for by nobody: the system can't be interrupted in asking, and a name
/// server that is away must not hold up the end of the program.
NameQuestions::NameQuestions(const std::string& domain) : answers_(std::make_shared<Answers>()) {
  const auto ask = [&domain, answers = answers_](const std::string& service) {
    std::thread([service, domain, answers] {
      Answer answer = AskFor(service, domain);
      const std::lock_guard lock(answers->mutex);
      answers->all.push_back(std::move(answer));
    }).detach();
  };
  for (const char* service : services) ask(service);
  ask("");
}

bool NameQuestions::AllAnswered() const {
  const std::lock_guard lock(answers_->mutex);
  return answers_->all.size() == std::size(services) + 1;
}

void NameQuestions::AddTo(DomainFacts& facts) const {
  const std::lock_guard lock(answers_->mutex);
  for (const Answer& answer : answers_->all) {
    facts.services.insert(facts.services.end(), answer.services.begin(), answer.services.end());
    for (const auto& [preference, host] : answer.mailHosts) facts.mailHosts.push_back(host);
  }
}

}  // namespace post

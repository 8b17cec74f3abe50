// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/accounts/discovery.h"

#include <string_view>
#include <tuple>

#include "post/accounts/discovery_file.h"
#include "post/accounts/domain_names.h"
#include "post/accounts/known_providers.h"

namespace post {
namespace {

/// A service's record, and the security that its name stands for. TLS from the first byte is
/// better.
constexpr struct {
  std::string_view service;
  const char* security;
} incoming[] = {{"_imaps._tcp", "Tls"}, {"_imap._tcp", "StartTls"}},
  outgoing[] = {{"_submissions._tcp", "Tls"}, {"_submission._tcp", "StartTls"}};

/// The record that counts. Weights would have many users spread by chance; but this choice is kept.
const ServiceRecord* BestOf(const std::vector<ServiceRecord>& records, std::string_view service) {
  const ServiceRecord* best = nullptr;
  for (const ServiceRecord& record : records) {
    const bool fits = record.service == service && IsServerName(record.host) && record.port > 0;
    const auto rank = [](const ServiceRecord& one) {
      return std::tuple(one.priority, -one.weight);
    };
    if (fits && (!best || rank(record) < rank(*best))) best = &record;
  }
  return best;
}

template <typename Services>
bool TakeServer(const std::vector<ServiceRecord>& records, const Services& services,
                std::string& host, int& port, std::string& security) {
  for (const auto& [service, itsSecurity] : services) {
    const ServiceRecord* const record = BestOf(records, service);
    if (!record) continue;
    std::tie(host, port, security) = std::tuple(record->host, record->port, itsSecurity);
    return true;
  }
  return false;
}

std::optional<MailAccount> WithServices(const DomainFacts& facts, MailAccount account) {
  const auto& records = facts.services;
  const bool both =
      TakeServer(records, incoming, account.ImapHost, account.ImapPort, account.ImapSecurity) &&
      TakeServer(records, outgoing, account.SmtpHost, account.SmtpPort, account.SmtpSecurity);
  if (!both) return std::nullopt;
  account.UserName = account.MyAddress;
  return account;
}

template <typename Source, typename Reader>
std::optional<MailAccount> FirstOf(const std::vector<Source>& sources, const MailAccount& account,
                                   Reader read) {
  for (const Source& source : sources) {
    if (auto found = read(source, account)) return found;
  }
  return std::nullopt;
}

Discovery Found(const MailAccount& account, bool canBeForged) {
  const std::string domain = DomainOf(account.MyAddress);
  std::string remark = "Found at " + domain + ".";
  for (const std::string& host : {account.ImapHost, account.SmtpHost}) {
    if (!canBeForged || IsWithin(host, domain)) continue;
    remark += " Your mail is at \"" + host + "\": go on only if that is your provider.";
    break;
  }
  const std::string advice = PasswordAdvice(account);
  return {account, advice.empty() ? remark : remark + " " + advice};
}

}  // namespace

std::optional<Discovery> DiscoveryIn(const DomainFacts& facts, const MailAccount& account) {
  if (const auto found = FirstOf(facts.configurations, account, WithConfiguration)) {
    return Found(*found, false);
  }
  if (const auto found = WithServices(facts, account)) return Found(*found, true);
  if (const auto found = FirstOf(facts.mailHosts, account, WithServersBehind)) {
    return Found(*found, false);
  }
  return std::nullopt;
}

}  // namespace post

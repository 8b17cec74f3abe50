// SPDX-License-Identifier: GPL-3.0-or-later
// An unknown provider's servers, by what the network tells about the domain of an address. The
// domain's own word counts first: its configuration file, which nobody can forge, then its service
// records (RFC 6186, RFC 8314). Last comes what can be told from where its mail arrives: many
// domains are kept by one of the known providers. Only encrypted servers are taken.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "post/accounts/mail_account.h"

namespace post {

/// Who does a service for a domain (RFC 2782).
struct ServiceRecord {
  std::string service;  ///< such as "_imaps._tcp"
  std::string host;     ///< blank or "." where nobody does it
  int port;
  int priority;  ///< the lowest counts
  int weight;    ///< of equal priorities the highest
};

struct DomainFacts {
  std::vector<std::string> configurations;  ///< the files' contents, the best first
  std::vector<ServiceRecord> services;
  std::vector<std::string> mailHosts;  ///< where its mail arrives, the best first
};

struct Discovery {
  MailAccount account;  ///< with the servers, securities and user name that were found
  std::string remark;   ///< where they were found, and what the provider wants for a password
};

/// Nothing where the facts don't tell of both servers.
std::optional<Discovery> DiscoveryIn(const DomainFacts& facts, const MailAccount& account);

}  // namespace post

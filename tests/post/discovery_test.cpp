// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/accounts/discovery.h"

#include <gtest/gtest.h>

namespace {

using post::ServiceRecord;

/// Both servers, the user name and what is said of them.
std::string Found(const post::DomainFacts& facts) {
  post::MailAccount account;
  account.MyAddress = "anna.b@Example.org";
  const auto found = post::DiscoveryIn(facts, account);
  if (!found) return "nothing";
  account = found->account;
  return account.ImapHost + ':' + std::to_string(account.ImapPort) + account.ImapSecurity + ' ' +
         account.SmtpHost + ':' + std::to_string(account.SmtpPort) + account.SmtpSecurity + ' ' +
         account.UserName + ' ' + found->remark;
}

std::string Server(const std::string& direction, const std::string& type, const std::string& host,
                   const std::string& port, const std::string& security) {
  return '<' + direction + "Server type=\"" + type + "\"><hostname>" + host + "</hostname><port>" +
         port + "</port><x><y>1</y></x><socketType>" + security +
         "</socketType><username>%EMAILLOCALPART%</username></" + direction + "Server>";
}

const std::string pop = Server("incoming", "pop3", "pop.example.org", "995", "SSL");
const std::string plain = Server("incoming", "imap", "in.example.org", "143", "plain");
const std::string imap = Server("incoming", "imap", "in.%EMAILDOMAIN%", "143", "STARTTLS");
const std::string later = Server("incoming", "imap", "late.example.org", "993", "SSL");
const std::string smtp = Server("outgoing", "smtp", "out.hoster.net", "465", "SSL");

TEST(DiscoveryTest, AConfigurationFileTellsTheFirstEncryptedServers) {
  const std::string found =
      "in.Example.org:143StartTls out.hoster.net:465Tls anna.b Found at example.org.";
  const std::pair<std::string, std::string> rows[] = {
      {"<a>" + pop + plain + imap + later + smtp + "</a>", found},
      {"<a>" + plain + smtp + "</a>", "nothing"},
      {"<a>" + imap + "</a>", "nothing"},
      {"<a>" + imap + smtp, "nothing"},  // cut off
      {"<!DOCTYPE html><html><p>Not found</html>", "nothing"},
      {"<a>" + imap + Server("outgoing", "smtp", "two words.org", "465", "SSL") + "</a>",
       "nothing"},
      {"<a>" + imap + Server("outgoing", "smtp", "out.org", "99999", "SSL") + "</a>", "nothing"},
  };
  for (const auto& [file, expected] : rows) EXPECT_EQ(Found({{file}, {}, {}}), expected) << file;
}

const ServiceRecord submission = {"_submission._tcp", "smtp.example.org", 587, 0, 0};

TEST(DiscoveryTest, TheBestServiceRecordsCount) {
  const std::string end = " smtp.example.org:587StartTls anna.b@Example.org Found at example.org.";
  const std::pair<std::vector<ServiceRecord>, std::string> rows[] = {
      {{{"_imaps._tcp", "b.example.org", 993, 20, 9},
        {"_imaps._tcp", "c.example.org", 994, 10, 1},
        {"_imaps._tcp", "d.example.org", 995, 10, 2},
        {"_imap._tcp", "e.example.org", 143, 0, 0}},
       "d.example.org:995Tls" + end},
      {{{"_imaps._tcp", ".", 0, 0, 0}, {"_imap._tcp", "e.example.org", 143, 0, 0}},
       "e.example.org:143StartTls" + end},
      {{{"_imaps._tcp", "", 0, 0, 0}}, "nothing"},
      {{{"_imaps._tcp", "imap.anexample.org", 993, 0, 0}},
       "imap.anexample.org:993Tls" + end +
           " Your mail is at \"imap.anexample.org\": go on only if that is your provider."},
  };
  for (const auto& [records, expected] : rows) {
    auto services = records;
    services.push_back(submission);
    EXPECT_EQ(Found({{}, services, {}}), expected);
  }
  EXPECT_EQ(Found({{}, {submission}, {}}), "nothing");
}

TEST(DiscoveryTest, TheDomainsOwnWordCountsBeforeWhereItsMailArrives) {
  post::DomainFacts facts{{}, {}, {"mx.example.org", "ASPMX.L.google.com"}};
  EXPECT_TRUE(Found(facts).starts_with("imap.gmail.com:993Tls")) << Found(facts);
  EXPECT_NE(Found(facts).find("app password"), std::string::npos);
  facts.services = {submission, {"_imaps._tcp", "imap.example.org", 993, 0, 0}};
  EXPECT_TRUE(Found(facts).starts_with("imap.example.org"));
  facts.configurations = {"no file", "<a>" + imap + smtp + "</a>"};
  EXPECT_TRUE(Found(facts).starts_with("in.Example.org"));
  EXPECT_EQ(Found({{}, {}, {"mx.notgoogle.com"}}), "nothing");
}

}  // namespace

// SPDX-License-Identifier: GPL-3.0-or-later
#include "letters/delivery_report.h"

#include <algorithm>

#include "letters/mail_library.h"
#include "letters/message_ids.h"
#include "platform/ascii.h"

namespace letters {
namespace {

using std::string_view;

/// Who writes such reports: how the address begins.
constexpr string_view daemons[] = {"mailer-daemon", "postmaster", "microsoftexchange"};

/// A server's sentence may be a page. So much of it, in bytes, can be shown.
constexpr std::size_t longestReason = 300;

bool IsReportByType(const MimePart& mail) {
  const auto type = FieldValue<vmime::mediaType>(mail.header, vmime::fields::CONTENT_TYPE);
  return type && *type == vmime::mediaType("multipart/report");
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Behind which an SMTP code may stand: "said: 550 No such user", "<550 ...", "(#550 ...".
constexpr string_view aheadOfCode = " \t:<(#";

/// The line from the SMTP code of a lasting failure on; blank where it has none.
string_view FromCode(string_view line) {
  for (auto at = line.find('5'); at != line.npos; at = line.find('5', at + 1)) {
    if (line.size() - at < 4) break;
    const bool begins = at == 0 || aheadOfCode.find(line[at - 1]) != string_view::npos;
    const bool ends = line[at + 3] == ' ' || line[at + 3] == '-';
    if (begins && ends && IsDigit(line[at + 1]) && IsDigit(line[at + 2])) return line.substr(at);
  }
  return {};
}

/// What a report says, line by line. A line that begins with a blank goes on with the one above.
struct Report {
  std::string messageID;
  std::string action;
  std::string diagnostic;
  std::string sentence;  ///< out of the text for people

  void Take(string_view line);
};

void Report::Take(string_view line) {
  const auto colon = std::min(line.find(':'), line.size());
  const string_view name = line.substr(0, colon);
  string_view value = line.substr(std::min(colon + 1, line.size()));
  value.remove_prefix(std::min(value.find_first_not_of(' '), value.size()));
  if (platform::SameWithoutCase(name, "Action") && action.empty()) action = value;
  if (platform::SameWithoutCase(name, "Diagnostic-Code") && diagnostic.empty()) {
    diagnostic = value.substr(value.find(';') + 1);
  }
  if (sentence.empty() && messageID.empty()) sentence = FromCode(line);
  if (messageID.empty() && platform::SameWithoutCase(name, "Message-ID") &&
      !ThreadOfID(value).empty()) {
    messageID = value.substr(0, value.find('>') + 1);
  }
}

Report ReadLines(string_view body) {
  Report report;
  std::string whole;
  while (!body.empty()) {
    const std::size_t size = std::min(body.find('\n'), body.size() - 1) + 1;
    string_view line = body.substr(0, size);
    body.remove_prefix(size);
    line = line.substr(0, line.find_last_not_of(" \t\r\n") + 1);
    const bool goesOn = line.starts_with(' ') || line.starts_with('\t');
    if (!goesOn) report.Take(std::exchange(whole, {}));
    const std::size_t indent = std::min(line.find_first_not_of(" \t"), line.size());
    if (whole.size() < 4 * longestReason) {
      whole.append(whole.empty() ? "" : " ").append(line.substr(indent));
    }
  }
  report.Take(whole);
  return report;
}

/// A mail that is late will be tried again.
bool IsFinal(const MimePart& mail, const Report& report) {
  if (IsReportByType(mail)) return platform::Lowered(report.action).starts_with("failed");
  const auto value = FieldValue<vmime::text>(mail.header, vmime::fields::SUBJECT);
  const std::string subject = value ? platform::Lowered(ToUtf8(*value)) : std::string{};
  return subject.find("delay") == subject.npos && subject.find("warning") == subject.npos;
}

std::string Shown(string_view reason) {
  std::string text =
      WithoutReserved(ToUtf8(std::string(reason), vmime::charset(vmime::charsets::UTF_8)));
  std::size_t size = std::min(text.size(), longestReason);
  while (size < text.size() && size > 0 && (text[size] & 0xC0) == 0x80) --size;
  text.resize(size);
  text.resize(text.find_last_not_of(' ') + 1);
  return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

}  // namespace

bool CanBeReport(const MimePart& mail) {
  if (IsReportByType(mail)) return true;
  const auto sender = FieldValue<vmime::mailbox>(mail.header, vmime::fields::FROM);
  if (!sender) return false;
  const std::string name = platform::Lowered(sender->getEmail().getLocalName().getBuffer());
  return std::any_of(std::begin(daemons), std::end(daemons),
                     [&name](string_view daemon) { return name.starts_with(daemon); });
}

std::optional<platform::Undelivered> ReadReport(const MimePart& mail) {
  const Report report = ReadLines(mail.body);
  if (report.messageID.empty() || !IsFinal(mail, report)) return std::nullopt;
  const std::string& reason = report.diagnostic.empty() ? report.sentence : report.diagnostic;
  return platform::Undelivered{ThreadOfID(report.messageID), report.messageID, Shown(reason)};
}

}  // namespace letters

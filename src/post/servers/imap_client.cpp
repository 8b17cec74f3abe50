// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/servers/imap_client.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

#include "platform/ascii.h"
#include "post/servers/login_failure.h"

namespace post {
namespace {

using platform::SameWithoutCase;

/// The bytes that one command may bring. Who asks for mails asks for much less at a time.
constexpr std::size_t greatestAnswer = 32u << 20;

/// UIDs in one command: servers don't take lines of any length.
constexpr std::size_t greatestBatch = 500;

template <typename Number>
Number NumberIn(std::string_view text) {
  Number number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

/// A header field beyond this is none of ours.
constexpr std::size_t greatestField = 4000;

std::string SetOf(const std::vector<Uid>& uids, std::size_t first, std::size_t last) {
  std::string set;
  for (std::size_t i = first; i < last; ++i) {
    if (i > first) set += ',';
    set += std::to_string(uids[i]);
  }
  return set;
}

/// A folder's name in a command.
std::string Quoted(std::string_view name) {
  std::string quoted = "\"";
  for (const char c : name) {
    if (c == '"' || c == '\\') quoted += '\\';
    if (c != '\r' && c != '\n') quoted += c;
  }
  return quoted + '"';
}

/// What stands behind `name` in the items of a FETCH; null where it doesn't.
const ImapValue* Behind(const std::vector<ImapValue>& items, std::string_view name) {
  for (std::size_t i = 0; i + 1 < items.size(); i += 2) {
    if (SameWithoutCase(std::string_view(items[i].text).substr(0, name.size()), name)) {
      return &items[i + 1];
    }
  }
  return nullptr;
}

bool Contains(const ImapValue& list, std::string_view word) {
  return std::any_of(list.items.begin(), list.items.end(),
                     [word](const ImapValue& item) { return item.Is(word); });
}

void AddNumbers(std::string_view line, std::vector<Uid>& numbers) {
  while (!line.empty()) {
    const std::size_t end = std::min(line.find(' '), line.size());
    if (const Uid number = NumberIn<Uid>(line.substr(0, end))) numbers.push_back(number);
    line.remove_prefix(std::min(end + 1, line.size()));
  }
}

std::string LastPart(const std::string& name, const std::string& separator) {
  const auto at = separator.empty() ? std::string::npos : name.rfind(separator);
  return at == std::string::npos ? name : name.substr(at + separator.size());
}

}  // namespace

CommandRefused::CommandRefused(std::string answer)
    : MailError("The mail server refuses. " + ServersOwnWords(answer)), reply(std::move(answer)) {}

ImapClient::ImapClient(const ServerAddress& server, const Login& login, const Patience& patience)
    : link_(server, patience) {
  AskCapabilities();
  try {
    LogOn(login);
  } catch (const CommandRefused& refusal) {
    RaiseLoginFailure(server.host, login, 0, refusal.reply);
  }
  AskCapabilities();  // most servers say more to those whom they know
  Introduce();
}

/// Some servers open no folder for a program that hasn't said what it is (RFC 2971).
void ImapClient::Introduce() {
  if (!Can("ID")) return;
  try {
    Command(R"(ID ("name" "Tarvolenix"))");
  } catch (const CommandRefused&) {
    // then it wasn't needed
  }
}

void ImapClient::AskCapabilities() {
  capabilities_.clear();
  Command("CAPABILITY", [this](const ImapResponse& response) {
    const auto values = response.Values();
    const bool awaited = values.size() >= 2 && values[1].Is("CAPABILITY");
    for (const ImapValue& value : values) {
      if (awaited) capabilities_.push_back(value.text);
    }
    return awaited;
  });
}

void ImapClient::LogOn(const Login& login) {
  if (!login.token.empty()) {
    const bool onlyBearer = Can("AUTH=OAUTHBEARER") && !Can("AUTH=XOAUTH2");
    if (onlyBearer) {
      Authenticate("OAUTHBEARER", BearerCredentials(login), InBase64("\1"));
    } else {
      Authenticate("XOAUTH2", TokenCredentials(login));
    }
  } else if (Can("AUTH=PLAIN")) {
    Authenticate("PLAIN", PlainCredentials(login));
  } else {
    Command("LOGIN " + Quoted(login.userName) + ' ' + Quoted(login.password));
  }
}

/// `heard` is what the mechanism says when it has heard why it is refused.
void ImapClient::Authenticate(const std::string& mechanism, const std::string& credentials,
                              const std::string& heard) {
  const std::string tag = NextTag();
  const std::string answer = InBase64(credentials);
  const bool atOnce = Can("SASL-IR");
  link_.BeginCommand(greatestAnswer);
  link_.Send(tag + " AUTHENTICATE " + mechanism + (atOnce ? ' ' + answer : "") + "\r\n");
  if (!atOnce) {
    AwaitGoOn(tag);
    link_.Send(answer + "\r\n");
  }
  AwaitEnd(tag, [this, &heard](const ImapResponse& response) {
    // Why the token is refused; the refusal itself comes when that has been heard.
    if (response.line.starts_with('+')) link_.Send(heard + "\r\n");
    return true;
  });
}

bool ImapClient::Can(std::string_view capability) const {
  return std::any_of(
      capabilities_.begin(), capabilities_.end(),
      [capability](const std::string& own) { return SameWithoutCase(own, capability); });
}

void ImapClient::Command(const std::string& text, const Listener& listen) {
  const std::string tag = NextTag();
  link_.BeginCommand(greatestAnswer);
  link_.Send(tag + ' ' + text + "\r\n");
  AwaitEnd(tag, listen);
}

void ImapClient::AwaitEnd(const std::string& tag, const Listener& listen) {
  while (true) {
    const ImapResponse response = ReadImapResponse(link_);
    const std::string_view line = response.line;
    if (line.starts_with(tag + ' ')) {
      const std::string_view answer = line.substr(tag.size() + 1);
      if (SameWithoutCase(answer.substr(0, 2), "OK")) return;
      throw CommandRefused(std::string(answer));
    }
    if (SameWithoutCase(line.substr(0, 5), "* BYE")) {
      throw ConnectionLost("The mail server has said goodbye.");
    }
    if (!line.starts_with("* ") && !line.starts_with('+')) {
      throw platform::MailError("The mail server makes no sense.");
    }
    if (!listen || !listen(response)) searched_.clear();
  }
}

/// The server's leave to send what belongs to the command.
void ImapClient::AwaitGoOn(const std::string& tag) {
  while (true) {
    const ImapResponse response = ReadImapResponse(link_);
    if (response.line.starts_with('+')) return;
    if (response.line.starts_with(tag + ' ')) {
      throw CommandRefused(response.line.substr(tag.size() + 1));
    }
    searched_.clear();
  }
}

Uid ImapClient::SelectInbox() {
  Uid validity = 0;
  searched_.clear();
  Command("SELECT INBOX", [&validity](const ImapResponse& response) {
    constexpr std::string_view code = "* OK [UIDVALIDITY ";
    const std::string_view line = response.line;
    if (SameWithoutCase(line.substr(0, code.size()), code)) {
      validity = NumberIn<Uid>(line.substr(code.size()));
    }
    return false;
  });
  return validity;
}

void ImapClient::Examine(const std::string& folder) {
  searched_.clear();
  Command("EXAMINE " + Quoted(folder));
}

std::vector<Uid> ImapClient::Search(const std::string& criteria) {
  // Servers tell of new mails when it suits them; they look when they are asked for nothing.
  Command("NOOP");
  if (searched_ == criteria) return searchFound_;
  std::vector<Uid> uids;
  searched_ = criteria;  // unless the server tells of a change meanwhile
  Command("UID SEARCH " + criteria, [&uids](const ImapResponse& response) {
    constexpr std::string_view start = "* SEARCH";
    if (!SameWithoutCase(std::string_view(response.line).substr(0, start.size()), start))
      return false;
    AddNumbers(std::string_view(response.line).substr(start.size()), uids);
    return true;
  });
  std::sort(uids.begin(), uids.end());
  uids.erase(std::unique(uids.begin(), uids.end()), uids.end());
  searchFound_ = uids;
  return uids;
}

/// Servers don't take lines of any length: many mails are named in several commands.
void ImapClient::CommandOn(const std::vector<Uid>& uids, const std::string& command,
                           const std::string& rest, const Listener& listen) {
  for (std::size_t first = 0; first < uids.size(); first += greatestBatch) {
    const std::size_t last = std::min(uids.size(), first + greatestBatch);
    std::string text = command;
    text.append(" ").append(SetOf(uids, first, last)).append(rest);
    Command(text, listen);
  }
}

/// `take` answers whether it found what was asked for. The server may tell of other changes in
/// between, of the same mails even.
void ImapClient::FetchEach(const std::vector<Uid>& uids, const std::string& what,
                           const std::function<bool(const std::vector<ImapValue>&)>& take) {
  CommandOn(uids, "UID FETCH", " (UID " + what + ")", [&take](const ImapResponse& response) {
    const auto values = response.Values();  // "*", a number, "FETCH", its items
    return values.size() >= 4 && values[2].Is("FETCH") &&
           Behind(values[3].items, "UID") != nullptr && take(values[3].items);
  });
}

std::vector<ImapClient::Summary> ImapClient::Summaries(const std::vector<Uid>& uids,
                                                       const std::string& fields) {
  std::vector<Summary> summaries;
  const auto take = [&summaries](const std::vector<ImapValue>& items) {
    const ImapValue* const size = Behind(items, "RFC822.SIZE");
    const ImapValue* const flags = Behind(items, "FLAGS");
    const ImapValue* const header = Behind(items, "BODY[");
    if (!size || !flags || !header) return false;
    if (header->text.size() > greatestField) return true;
    summaries.push_back({NumberIn<Uid>(Behind(items, "UID")->text),
                         NumberIn<std::uint64_t>(size->text), Contains(*flags, "\\Seen"),
                         header->text});
    return true;
  };
  FetchEach(uids,
            "FLAGS RFC822.SIZE BODY.PEEK[HEADER.FIELDS (" + fields + ")]<0." +
                std::to_string(greatestField) + ">",
            take);
  std::sort(summaries.begin(), summaries.end(),
            [](const Summary& a, const Summary& b) { return a.uid < b.uid; });
  const auto same = [](const Summary& a, const Summary& b) { return a.uid == b.uid; };
  summaries.erase(std::unique(summaries.begin(), summaries.end(), same), summaries.end());
  return summaries;
}

std::vector<ImapClient::Content> ImapClient::Contents(const std::vector<Uid>& uids,
                                                      std::size_t limit) {
  std::vector<Content> contents;
  const auto take = [&contents](const std::vector<ImapValue>& items) {
    const ImapValue* const body = Behind(items, "BODY[");
    if (!body) return false;
    contents.push_back({NumberIn<Uid>(Behind(items, "UID")->text), body->text});
    return true;
  };
  FetchEach(uids, "BODY.PEEK[]<0." + std::to_string(limit) + ">", take);
  return contents;
}

void ImapClient::MarkSeen(const std::vector<Uid>& uids) {
  searched_.clear();
  CommandOn(uids, "UID STORE", " +FLAGS.SILENT (\\Seen)");
}

void ImapClient::Remove(const std::vector<Uid>& uids) {
  searched_.clear();
  CommandOn(uids, "UID STORE", " +FLAGS.SILENT (\\Deleted)");
  // A plain EXPUNGE would take along whatever the user's other programs have marked.
  if (CanDestroy()) CommandOn(uids, "UID EXPUNGE", "");
}

void ImapClient::Move(const std::vector<Uid>& uids, const std::string& folder) {
  searched_.clear();
  CommandOn(uids, "UID MOVE", ' ' + Quoted(folder));
}

std::vector<ImapClient::Folder> ImapClient::Folders() {
  std::vector<Folder> folders;
  Command("LIST \"\" \"*\"", [&folders](const ImapResponse& response) {
    const auto values = response.Values();  // "*", "LIST", flags, separator, name
    if (values.size() < 5 || !values[1].Is("LIST")) return false;
    if (Contains(values[2], "\\Noselect")) return true;
    Folder folder{values[4].text, LastPart(values[4].text, values[3].text), {}};
    for (const ImapValue& flag : values[2].items) folder.flags.push_back(flag.text);
    folders.push_back(std::move(folder));
    return true;
  });
  return folders;
}

void ImapClient::Append(const std::string& folder, std::string_view bytes) {
  const std::string tag = NextTag();
  link_.BeginCommand(greatestAnswer);
  link_.Send(tag + " APPEND " + Quoted(folder) + " (\\Seen) {" + std::to_string(bytes.size()) +
             "}\r\n");
  AwaitGoOn(tag);
  link_.Send(bytes);
  link_.Send("\r\n");
  AwaitEnd(tag, {});
}

void ImapClient::Logout() noexcept {
  try {
    Command("LOGOUT");
  } catch (const std::exception&) {
    // the server says goodbye first, and may be gone before it has said so
  }
}

}  // namespace post

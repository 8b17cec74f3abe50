// SPDX-License-Identifier: GPL-3.0-or-later
// The few things that the program asks of an IMAP server (RFC 3501, 4315 and 6851), on one
// connection. Mails are addressed by their UIDs only. Nothing here marks a mail as read unasked.
//
// Each operation raises CommandRefused where the server says no: the connection then goes on. After
// any other exception it is of no more use.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "post/servers/imap_response.h"
#include "post/servers/server_link.h"

namespace post {

struct CommandRefused : platform::MailError {
  explicit CommandRefused(std::string answer);

  std::string reply;  ///< as the server has worded it
};

using Uid = std::uint32_t;

class ImapClient {
 public:
  /// Connects and logs on.
  ImapClient(const ServerAddress& server, const Login& login, const Patience& patience);

  /// Whether the server says that it can do something: a capability's name.
  bool Can(std::string_view capability) const;

  /// Answers its validity: as long as that is the same, so are its UIDs.
  Uid SelectInbox();

  /// Opens another folder, only to look.
  void Examine(const std::string& folder);

  /// What the search says is there, in ascending order, so in that of arrival. The server isn't
  /// asked again for what it has said and has told of no change since.
  std::vector<Uid> Search(const std::string& criteria);

  struct Summary {
    Uid uid;
    std::uint64_t size;  ///< in bytes, as the server tells it
    bool seen;
    std::string header;  ///< the fields that were asked for, as they stand, but no end of them
  };
  /// Mails that are gone are left out. `fields` are header fields' names, with blanks between.
  std::vector<Summary> Summaries(const std::vector<Uid>& uids, const std::string& fields);

  struct Content {
    Uid uid;
    std::string bytes;
  };
  /// At most the first `limit` bytes of each.
  std::vector<Content> Contents(const std::vector<Uid>& uids, std::size_t limit);

  void MarkSeen(const std::vector<Uid>& uids);

  /// Whether the server can destroy single mails.
  bool CanDestroy() const { return Can("UIDPLUS"); }

  /// Destroys the mails, or only marks them to be where the server can't destroy single ones.
  void Remove(const std::vector<Uid>& uids);

  /// Only a server that can "MOVE" takes it.
  void Move(const std::vector<Uid>& uids, const std::string& folder);

  struct Folder {
    std::string name;                ///< as the server has it
    std::string leaf;                ///< its last part
    std::vector<std::string> flags;  ///< such as "\\Sent", by which servers tell what it is for
  };
  std::vector<Folder> Folders();

  /// Puts a mail, marked as read, into a folder.
  void Append(const std::string& folder, std::string_view bytes);

  /// Says goodbye; whatever happens then doesn't matter any more.
  void Logout() noexcept;

 private:
  /// Answers whether the response belongs to what was asked. Any other tells of a change.
  using Listener = std::function<bool(const ImapResponse& response)>;

  std::string NextTag() { return std::string("T").append(std::to_string(++lastTag_)); }
  void AskCapabilities();
  void LogOn(const Login& login);
  void Authenticate(const std::string& mechanism, const std::string& credentials,
                    const std::string& heard = {});
  void Introduce();
  void Command(const std::string& text, const Listener& listen = {});
  void AwaitGoOn(const std::string& tag);
  void AwaitEnd(const std::string& tag, const Listener& listen);
  void CommandOn(const std::vector<Uid>& uids, const std::string& command, const std::string& rest,
                 const Listener& listen = {});
  void FetchEach(const std::vector<Uid>& uids, const std::string& what,
                 const std::function<bool(const std::vector<ImapValue>& items)>& take);

  ServerLink link_;
  unsigned lastTag_ = 0;
  std::vector<std::string> capabilities_;
  std::string searched_;  // the criteria of the last search; blank where anything has changed
  std::vector<Uid> searchFound_;
};

}  // namespace post

// SPDX-License-Identifier: GPL-3.0-or-later
// One mailbox as a folder that many programs may use at once, without locks: a mail is one file. It
// is written in "tmp", appears in "new" by a rename when it is complete, and moves to "cur" once a
// reader has marked it; its marks stand behind ":2," in its name. What stands before ":" is the
// unique name, which never changes and is the mail's identifier here. Files that are no mail of
// ours, whatever they are, are left alone.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "post/mail_transport.h"

namespace post {

class Maildir {
 public:
  /// `folder` ends in "/".
  explicit Maildir(std::string folder, std::size_t lookSize = greatestLook)
      : folder_(std::move(folder)), lookSize_(lookSize) {}

  const std::string& Folder() const { return folder_; }

  /// Makes the box where it isn't there, with the permissions of the folder above it, so that in a
  /// shared folder everybody can deliver and in a private one nobody else can read.
  void Create() const;

  /// Removes what was begun in "tmp" so long ago that nobody will finish it. What can't be removed
  /// stays.
  void RemoveAbandoned() const;

  /// Returns when the mail is on the disk.
  void Deliver(std::string_view bytes) const;

  // As a transport has them.
  std::vector<letters::FetchedMail> List(bool unreadOnly);
  bool MoreToCome() const { return !brought_.empty(); }
  void BeginAnew() { brought_.clear(); }

  /// Which mail the last look had to leave out, and why; blank where it saw all.
  const std::string& Problem() const { return problem_; }
  void MarkRead(const std::string& id) const;
  void Remove(const std::string& id) const;

 private:
  struct Entry {
    std::string path;
    std::string id;
    std::string flags;
    bool isNew = false;

    bool IsRead() const { return !isNew && flags.find('S') != std::string::npos; }
    bool IsTrashed() const { return flags.find('T') != std::string::npos; }
  };

  std::vector<Entry> Entries() const;
  std::vector<Entry> EntriesToBring(bool unreadOnly) const;
  std::optional<Entry> Find(const std::string& id) const;
  std::optional<letters::FetchedMail> Read(const Entry& entry);
  void NoteUnread(const std::string& path);

  std::string folder_;
  std::string problem_;
  std::size_t lookSize_;
  std::string brought_;  // the last mail of a look that left some out; else blank
  // Mails found to be none of ours, and what told their content's state: not looked at again before
  // that changes, as it does where a synchronising program fills a file after creating it.
  std::unordered_map<std::string, std::string> foreign_;
};

}  // namespace post

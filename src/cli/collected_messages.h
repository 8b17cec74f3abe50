// SPDX-License-Identifier: GPL-3.0-or-later
// Messages of the program, kept for the answer of a verb instead of being shown. Nothing here asks
// a question: a message with two buttons counts as declined.
#pragma once

#include <string>
#include <vector>

#include "cli/json.h"
#include "platform/message_boxes.h"

namespace cli {

class CollectedMessages : public platform::MessageBoxes {
 public:
  bool Ask(const platform::Message& message) override {
    messages_.push_back(message);
    return message.cancelCaption.empty() || message.escapeIsOk;
  }
  void ShowStatus(const std::string&) override {}
  void HideStatus() override {}
  void PlainBox(platform::PlainIcon, const std::string& title, const std::string& text) override {
    messages_.push_back({2, title, text, "OK", {}, 0});
  }

  bool Empty() const { return messages_.empty(); }

  /// All that wasn't taken yet, as pairs of text and title.
  Json Pairs() const;

  /// The same, and takes them.
  Json Take();

  /// Takes all that wasn't taken yet, as one line of text; `otherwise` where there was nothing.
  std::string TakeSentence(const std::string& otherwise);

 private:
  std::vector<platform::Message> messages_;
};

}  // namespace cli

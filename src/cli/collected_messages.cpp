// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/collected_messages.h"

#include <utility>

namespace cli {

Json CollectedMessages::Pairs() const {
  std::vector<std::string> pairs;
  for (const platform::Message& message : messages_) {
    pairs.push_back(JsonArray({Quoted(message.text), Quoted(message.title)}).text);
  }
  return JsonArray(pairs);
}

Json CollectedMessages::Take() {
  Json pairs = Pairs();
  messages_.clear();
  return pairs;
}

std::string CollectedMessages::TakeSentence(const std::string& otherwise) {
  std::string sentence;
  for (const platform::Message& message : std::exchange(messages_, {})) {
    for (const char c : (sentence.empty() ? "" : "\n") + message.text) {
      // Paragraphs and lines run on.
      if (c != '\n') {
        sentence += c;
      } else if (!sentence.empty() && sentence.back() != ' ') {
        sentence += ' ';
      }
    }
  }
  return sentence.empty() ? otherwise : sentence;
}

}  // namespace cli

// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/query_words.h"

#include "platform/ascii.h"
#include "platform/conversions.h"
#include "platform/seams.h"
#include "platform/text_fields.h"

namespace store {

std::vector<WordPair> WordPairs(std::string_view text) {
  const int count = platform::RoundedQuotient(platform::CountFields(text, ';'), 2);
  std::vector<WordPair> pairs(static_cast<std::size_t>(count));
  platform::FieldWalk words(text, ';');
  for (WordPair& pair : pairs) {
    pair.key = platform::Uppered(words.Next());
    pair.value = words.Next();
  }
  return pairs;
}

void ReportUnknownKey(const std::string& message, const std::string& key) {
  platform::TheSeams().messageBoxes->PlainBox(platform::PlainIcon::Stop, "Tarvolenix",
                                              message + key);
}

}  // namespace store

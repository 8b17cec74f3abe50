// SPDX-License-Identifier: GPL-3.0-or-later
// Asking name servers who does the mail of a domain.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "post/accounts/discovery.h"

namespace post {

/// Begins to ask on making, and waits for nothing.
class NameQuestions {
 public:
  /// `domain` is written in ASCII.
  explicit NameQuestions(const std::string& domain);

  bool AllAnswered() const;

  /// Adds what was heard up to now.
  void AddTo(DomainFacts& facts) const;

 private:
  struct Answers;

  std::shared_ptr<Answers> answers_;  // shared with those who still listen
};

}  // namespace post

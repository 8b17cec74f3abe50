// SPDX-License-Identifier: GPL-3.0-or-later
// What is known of the mail provider behind an address: what the program knows by itself, else what
// a search in the network has found, once for each address.
#pragma once

#include <QObject>

#include <string>

#include "ui/people/account_help.h"

namespace ui {

class ProviderSearch : public QObject {
  Q_OBJECT

 public:
  /// For `known`, an address that works already or a blank one, nothing is searched. `help` must
  /// outlive the search.
  ProviderSearch(const AccountHelp& help, std::string known, QObject* parent);

  /// What was found for the account's address, else what the address suggests.
  ProviderGuess Guess(const MailAccount& account) const;

  /// Does nothing for an address that was searched for, is known or can't be used.
  void Begin(const MailAccount& account);

  bool IsUnderWayFor(const std::string& address) const;

  /// What was searched for last may be searched for once more.
  void Forget() { address_.clear(); }

 Q_SIGNALS:
  void Ended(const std::string& address, bool isFound);

 private:
  void Take(const std::string& address, const ProviderGuess& found);

  const AccountHelp& help_;
  std::string address_;  // that was searched for last
  bool isUnderWay_ = false;
  ProviderGuess found_;  // for it
};

}  // namespace ui

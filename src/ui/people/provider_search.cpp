// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/people/provider_search.h"

#include <QPointer>

#include <utility>

namespace ui {

ProviderSearch::ProviderSearch(const AccountHelp& help, std::string known, QObject* parent)
    : QObject(parent), help_(help), address_(std::move(known)) {}

ProviderGuess ProviderSearch::Guess(const MailAccount& account) const {
  if (!found_.isKnown || account.MyAddress != address_) return help_.guess(account);
  ProviderGuess guess = found_;
  guess.account.TokenCommand = account.TokenCommand;
  guess.account.SignIn = account.SignIn;
  return guess;
}

void ProviderSearch::Begin(const MailAccount& account) {
  if (account.MyAddress == address_ || !help_.hasUsableAddress(account)) return;
  if (help_.guess(account).isKnown) return;
  address_ = account.MyAddress;
  isUnderWay_ = true;
  found_ = {};
  help_.lookUp(account, [search = QPointer(this), address = address_](const ProviderGuess& found) {
    if (search) search->Take(address, found);
  });
}

bool ProviderSearch::IsUnderWayFor(const std::string& address) const {
  return isUnderWay_ && address == address_;
}

void ProviderSearch::Take(const std::string& address, const ProviderGuess& found) {
  if (address != address_) return;
  isUnderWay_ = false;
  found_ = found;
  Q_EMIT Ended(address, found.isKnown);
}

}  // namespace ui

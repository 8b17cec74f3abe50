// SPDX-License-Identifier: GPL-3.0-or-later
// A sign-in where there is no browser: the user opens an address on whatever device he likes and
// enters a code there (RFC 8628).
#pragma once

#include <chrono>
#include <functional>
#include <string>

#include "sign_in/token_endpoint.h"

namespace sign_in {

struct DeviceCode {
  std::string address;   ///< to be opened
  std::string userCode;  ///< to be entered there
  std::string deviceCode;
  std::chrono::seconds lifetime;
  std::chrono::seconds interval;  ///< between two questions
};

/// Raises MailError with a sentence, also where the service knows no such sign-in.
DeviceCode BeginDeviceSignIn(const Service& service, const post::Patience& patience);

/// Asks until the user is done, at the pace that the provider wants. `pause` waits.
using Pause = std::function<void(std::chrono::seconds)>;
Tokens AwaitDeviceSignIn(const Service& service, const DeviceCode& code, const Pause& pause,
                         const post::Patience& patience);

}  // namespace sign_in

// SPDX-License-Identifier: GPL-3.0-or-later
#include "sign_in/device_sign_in.h"

#include <QJsonObject>

#include <algorithm>

#include "post/servers/mail_failures.h"

namespace sign_in {
namespace {

using namespace Qt::StringLiterals;
using std::chrono::seconds;

constexpr seconds usualInterval(5);
constexpr seconds slowingDown(5);  // as often as the provider asks for it
constexpr seconds longestLifetime(1800);

/// Who gets no answer asks ever less often; beyond this only because the provider wants it.
constexpr seconds longestOwnInterval(60);

}  // namespace

DeviceCode BeginDeviceSignIn(const Service& service, const post::Patience& patience) {
  if (service.device.empty()) {
    throw platform::MailError(service.name +
                              " lets people sign in by a browser only: use the window program.");
  }
  const QJsonObject answer =
      AskProvider(service, service.device, {{"scope", service.scope}}, patience);
  const auto text = [&answer](const QString& name) {
    return answer[name].toString().toStdString();
  };
  const seconds lifetime = SecondsIn(answer, "expires_in", longestLifetime, longestLifetime);
  DeviceCode code{text(u"verification_uri"_s), text(u"user_code"_s), text(u"device_code"_s),
                  lifetime, SecondsIn(answer, "interval", usualInterval, lifetime)};
  if (code.address.empty()) code.address = text(u"verification_url"_s);  // an older name of it
  if (code.address.empty() || code.userCode.empty() || code.deviceCode.empty()) {
    throw platform::MailError(service.name + " gave no code for the sign-in.");
  }
  return code;
}

Tokens AwaitDeviceSignIn(const Service& service, const DeviceCode& code, const Pause& pause,
                         const post::Patience& patience) {
  seconds interval = code.interval;
  for (seconds waited(0); waited < code.lifetime; waited += interval) {
    pause(interval);
    try {
      return AskForFirstTokens(service,
                               {{"grant_type", "urn:ietf:params:oauth:grant-type:device_code"},
                                {"device_code", code.deviceCode}},
                               patience);
    } catch (const GrantRefused& refusal) {
      const bool isTooFast = refusal.error == "slow_down";
      if (!isTooFast && refusal.error != "authorization_pending") throw;
      if (isTooFast) interval += slowingDown;
    } catch (const post::ConnectionLost&) {
      // The user goes on in his browser meanwhile.
      interval = std::max(interval, std::min(2 * interval, longestOwnInterval));
    }
  }
  throw platform::MailError("The sign-in took too long: please begin again.");
}

}  // namespace sign_in

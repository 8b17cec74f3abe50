// SPDX-License-Identifier: GPL-3.0-or-later
// The file in which a domain tells mail programs their settings: "config-v1.1.xml".
//
//   <clientConfig><emailProvider>
//     <incomingServer type="imap">
//       <hostname>..</hostname> <port>993</port> <socketType>SSL</socketType>
//       <username>%EMAILADDRESS%</username>
//     </incomingServer>                            several, the best first; pop3 ones between them
//     <outgoingServer type="smtp"> the same </outgoingServer>
//   </emailProvider></clientConfig>
//
// A socketType is SSL, STARTTLS or plain. %EMAILADDRESS%, %EMAILLOCALPART% and %EMAILDOMAIN% may
// stand in names. A damaged file tells nothing.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "post/accounts/mail_account.h"

namespace post {

/// `account` with the first encrypted server of each direction; nothing where one is missing.
std::optional<MailAccount> WithConfiguration(const std::string& file, MailAccount account);

}  // namespace post

// SPDX-License-Identifier: GPL-3.0-or-later
// What every connection over TLS asks of the other end, whatever is spoken on it.
#pragma once

#include <curl/curl.h>

namespace post {

/// The server's certificate has to be his, and by an authority that this computer trusts, or that
/// SSL_CERT_FILE names: one that only its users know, such as a company's own. Raises MailError
/// where the library can't see to that.
void DemandTrust(CURL* handle);

}  // namespace post

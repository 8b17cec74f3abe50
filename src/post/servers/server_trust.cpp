// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/servers/server_trust.h"

#include <cstdlib>

#include "platform/mail_client.h"

namespace post {

namespace {

template <typename Value>
void Set(CURL* handle, CURLoption option, Value value) {
  if (curl_easy_setopt(handle, option, value) != CURLE_OK) {
    throw platform::MailError("this computer's network library can't do what a mail server needs");
  }
}

}  // namespace

void DemandTrust(CURL* handle) {
  Set(handle, CURLOPT_SSL_VERIFYPEER, 1L);
  Set(handle, CURLOPT_SSL_VERIFYHOST, 2L);
  Set(handle, CURLOPT_SSLVERSION, static_cast<long>(CURL_SSLVERSION_TLSv1_2));
  if (const char* authorities = std::getenv("SSL_CERT_FILE"); authorities && *authorities) {
    Set(handle, CURLOPT_CAINFO, authorities);
  }
}

}  // namespace post

// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/servers/credentials.h"

#include <QByteArray>

#include "platform/text_fields.h"

namespace post {

std::string TokenCredentials(const Login& login) {
  return "user=" + login.userName + "\1auth=Bearer " + login.token + "\1\1";
}

std::string BearerCredentials(const Login& login) {
  const std::string user =
      platform::ReplaceAll(platform::ReplaceAll(login.userName, "=", "=3D"), ",", "=2C");
  return "n,a=" + user + ",\1auth=Bearer " + login.token + "\1\1";
}

std::string PlainCredentials(const Login& login) {
  return std::string(1, '\0') + login.userName + std::string(1, '\0') + login.password;
}

std::string InBase64(const std::string& bytes) {
  return QByteArray::fromStdString(bytes).toBase64().toStdString();
}

std::string WithoutSecrets(const std::string& said, const Login& login) {
  const std::string escaped =
      platform::ReplaceAll(platform::ReplaceAll(login.password, "\\", "\\\\"), "\"", "\\\"");
  for (const std::string& secret :
       {login.password, login.token, escaped, InBase64(login.password),
        InBase64(PlainCredentials(login)), InBase64(TokenCredentials(login)),
        InBase64(BearerCredentials(login))}) {
    if (!secret.empty() && said.find(secret) != std::string::npos) return {};
  }
  return said;
}

}  // namespace post

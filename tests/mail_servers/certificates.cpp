// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail_servers/certificates.h"

#include <string>

#include "mail_servers/mail_servers.h"
#include "mail_servers/server_process.h"

namespace {

constexpr const char* newKey = " -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes";

class Office {
 public:
  explicit Office(const std::filesystem::path& folder) : folder_(folder) {}

  void MakeAuthority(const std::string& name) const {
    RunCommand(folder_, "openssl req -x509 -days 7 -subj '/CN=Test " + name + "' -keyout " + name +
                            ".key -out " + name + ".pem" + newKey);
  }

  void MakeCertificate(const std::string& name, const std::string& hosts, int days) const {
    RunCommand(folder_, "openssl req -subj /CN=" + name + " -addext subjectAltName=" + hosts +
                            " -keyout " + name + ".key -out " + name + ".csr" + newKey);
    RunCommand(folder_,
               "openssl x509 -req -CA authority.pem -CAkey authority.key -CAcreateserial"
               " -copy_extensions copy -in " +
                   name + ".csr -out " + name + ".pem -days " + std::to_string(days));
  }

 private:
  std::filesystem::path folder_;
};

}  // namespace

void MakeCertificates(const std::filesystem::path& folder) {
  const Office office(folder);
  office.MakeAuthority("authority");
  office.MakeAuthority("other");
  office.MakeCertificate(
      "good", std::string("DNS:") + MailServers::host + ",IP:" + MailServers::numericHost, 7);
  office.MakeCertificate("expired", std::string("IP:") + MailServers::expiredHost, -1);
  office.MakeCertificate("foreign", "DNS:other.example", 7);
}

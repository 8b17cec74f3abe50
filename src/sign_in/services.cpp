// SPDX-License-Identifier: GPL-3.0-or-later
#include "sign_in/services.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <optional>

#include "desktop/folders.h"
#include "desktop/ini_text.h"
#include "desktop/posix_files.h"
#include "post/accounts/domain_names.h"
#include "post/accounts/known_providers.h"
#include "sign_in/web_request.h"

namespace sign_in {
namespace {

using desktop::IniText;
using platform::MailError;

constexpr const char* fileName = "OAuth clients.ini";

/// Nothing where there is no such file. Raises AccountRefused with what is wrong with it.
IniText Content(const std::string& file) {
  std::string wrong = file + " has a line that is neither a section nor a value";
  try {
    if (!desktop::PosixFiles().Exists(file)) return {};
    if (auto content = IniText::Read(desktop::PosixFiles().Read(file))) return *std::move(content);
  } catch (const platform::FileError& error) {
    wrong = error.what();
  }
  throw post::AccountRefused("The client identifiers can't be looked up: " + wrong + '.');
}

/// The first file that has a client of that name. Raises as Content does.
std::optional<IniText> ClientsWith(const std::string& name, const ClientFiles& files) {
  for (const std::string& file : files) {
    IniText content = Content(file);
    if (!content.ValueOfAnyCase(name, "ClientId").value_or("").empty()) return content;
  }
  return std::nullopt;
}

/// Files that can't be read may have it: whoever asks for it then hears what is wrong with them.
bool MayHave(const std::string& name, const ClientFiles& files) {
  try {
    return ClientsWith(name, files).has_value();
  } catch (const MailError&) {
    return true;
  }
}

constexpr struct {
  const char* name;
  std::string Service::*member;
} settings[] = {
    {"Issuer", &Service::issuer},     {"Authorize", &Service::authorize},
    {"Token", &Service::token},       {"Device", &Service::device},
    {"Scope", &Service::scope},       {"RedirectHost", &Service::redirectHost},
    {"ClientId", &Service::clientId}, {"ClientSecret", &Service::clientSecret},
};

constexpr struct {
  const char* name;
  std::string Service::*member;
} metadata[] = {
    {"authorization_endpoint", &Service::authorize},
    {"token_endpoint", &Service::token},
    {"device_authorization_endpoint", &Service::device},
};

/// Where an issuer's metadata may lie. RFC 8414 puts its place ahead of the issuer's own path,
/// whose last slash doesn't count there.
std::vector<std::string> PlacesOfMetadata(const std::string& issuer) {
  const QUrl url(QString::fromStdString(issuer));
  const std::string root = url.toString(QUrl::RemovePath).toStdString();
  std::string below = url.path(QUrl::FullyEncoded).toStdString();
  if (below.ends_with('/')) below.pop_back();
  return {root + "/.well-known/oauth-authorization-server" + below,
          root + below + "/.well-known/openid-configuration"};
}

/// Blank where it isn't an issuer's, or another's.
QJsonObject MetadataAt(const std::string& place, const std::string& issuer,
                       const post::Patience& patience) {
  const WebAnswer answer = Get(place, patience);
  QJsonObject content = QJsonDocument::fromJson(QByteArray::fromStdString(answer.content)).object();
  const bool isIts = content[QLatin1StringView("issuer")].toString().toStdString() == issuer;
  return answer.status == 200 && isIts ? content : QJsonObject();
}

bool HasSecret(const std::string& file) {
  try {
    const IniText content = Content(file);
    const auto groups = content.Groups();
    return std::any_of(groups.begin(), groups.end(), [&content](const std::string& group) {
      return content.ValueOfAnyCase(group, "ClientSecret").has_value();
    });
  } catch (const MailError&) {
    return false;
  }
}

/// Whether the user could close it, and others reach it through all of the folders above.
bool IsOwnAndOpen(const std::string& file) {
  struct stat status {};
  if (::stat(file.c_str(), &status) != 0 || status.st_uid != ::getuid()) return false;
  constexpr mode_t groupReads = S_IRGRP, groupEnters = S_IXGRP;
  constexpr mode_t othersRead = S_IROTH, othersEnter = S_IXOTH;
  bool group = status.st_mode & groupReads, others = status.st_mode & othersRead;
  std::error_code error;
  const std::filesystem::path path = std::filesystem::canonical(file, error);
  for (auto folder = path.parent_path(); folder.has_relative_path();
       folder = folder.parent_path()) {
    if (::stat(folder.c_str(), &status) != 0) return false;
    group = group && (status.st_mode & (groupEnters | othersEnter));
    others = others && (status.st_mode & othersEnter);
  }
  return group || others;
}

}  // namespace

ClientFiles UsualClientFiles(const std::string& settingsFile) {
  return {(std::filesystem::path(settingsFile).parent_path() / fileName).string(),
          desktop::SharedFolder() + fileName, std::string("/etc/tarvolenix/") + fileName};
}

std::string ServiceNameFor(const post::MailAccount& account, const ClientFiles& files) {
  std::string known = post::SignInOf(account);
  if (!known.empty()) return known;
  for (const std::string& name : {post::DomainOf(account.MyAddress), account.ImapHost}) {
    if (!name.empty() && MayHave(name, files)) return name;
  }
  return {};
}

Service ServiceNamed(const std::string& name, const ClientFiles& files) {
  const auto clients = ClientsWith(name, files);
  if (!clients) {
    throw post::AccountRefused(
        "To sign in at " + name +
        " Tarvolenix needs a client identifier, which this copy has not: a file \"" +
        (files.empty() ? fileName : files.front()) + "\" would have it.");
  }
  const IniText providers = post::KnownProviders();
  Service service;
  service.name = name;
  service.redirectHost = "127.0.0.1";
  for (const auto& [setting, member] : settings) {
    for (const auto& value :
         {providers.Value("SignIn " + name, setting), clients->ValueOfAnyCase(name, setting)}) {
      if (value) service.*member = *value;
    }
  }
  const bool hasPage = !service.authorize.empty() || !service.device.empty();
  if (service.issuer.empty() && (service.token.empty() || !hasPage)) {
    throw MailError(std::string("The file \"") + fileName + "\" doesn't say where " + name +
                    " signs people in: it wants Issuer, or Authorize and Token.");
  }
  return service;
}

Service WithMetadata(Service service, std::string Service::*page, const post::Patience& patience) {
  if (service.issuer.empty()) return service;
  for (const std::string& place : PlacesOfMetadata(service.issuer)) {
    if (!service.token.empty() && !(service.*page).empty()) return service;
    const QJsonObject found = MetadataAt(place, service.issuer, patience);
    for (const auto& [name, member] : metadata) {
      std::string value = found[QLatin1StringView(name)].toString().toStdString();
      if ((service.*member).empty()) service.*member = std::move(value);
    }
  }
  if (!service.token.empty()) return service;
  throw MailError("\"" + service.issuer + "\" doesn't tell how to sign in at " + service.name +
                  ".");
}

std::string RemarkOn(const ClientFiles& files) {
  for (const std::string& file : files) {
    if (IsOwnAndOpen(file) && HasSecret(file)) {
      return "Others on this computer can read \"" + file + "\" with the secret in it.";
    }
  }
  return {};
}

}  // namespace sign_in

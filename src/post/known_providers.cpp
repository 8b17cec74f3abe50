// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/known_providers.h"

#include <algorithm>

#include "platform/ascii.h"

namespace post {
namespace {

struct Server {
  const char* host;
  int port;  ///< 993 and 465 are TLS from the first byte, others begin plainly
};

enum class UserName { WholeAddress, LocalPart };

struct Provider {
  const char* domains;  ///< with blanks between; "name.*" is that name in any country
  Server imap;
  Server smtp;
  const char* advice;
  UserName userName = UserName::WholeAddress;
};

constexpr const char* microsoft =
    "Microsoft lets no program in with a password, only with a sign-in token: enter a token "
    "command in the server settings, or use a mailbox of another provider.";
constexpr const char* gmxImap =
    "GMX lets programs in only after you have allowed it: on its web site, in the mail settings, "
    "under \"POP3/IMAP\".";
constexpr const char* yahooPassword =
    "Yahoo wants an app password here, not your usual one: make one on its web site, under "
    "\"Account security\".";

// Where a domain fits two rows, the first counts.
constexpr Provider providers[] = {
    {"gmail.com googlemail.com",
     {"imap.gmail.com", 993},
     {"smtp.gmail.com", 465},
     "Google wants an app password here, not your usual one: make one at "
     "myaccount.google.com/apppasswords (2-step verification must be on)."},
    {"outlook.* hotmail.* live.* msn.com",
     {"outlook.office365.com", 993},
     {"smtp-mail.outlook.com", 587},
     microsoft},
    {"yahoo.co.jp",
     {"imap.mail.yahoo.co.jp", 993},
     {"smtp.mail.yahoo.co.jp", 465},
     "Yahoo! JAPAN lets programs in only after you have allowed it: on its web site, in the mail "
     "settings, under IMAP.",
     UserName::LocalPart},
    {"yahoo.* ymail.com rocketmail.com",
     {"imap.mail.yahoo.com", 993},
     {"smtp.mail.yahoo.com", 465},
     yahooPassword},
    {"aol.com aim.com",
     {"imap.aol.com", 993},
     {"smtp.aol.com", 465},
     "AOL wants an app password here, not your usual one: make one on its web site, under "
     "\"Account security\"."},
    {"icloud.com me.com mac.com",
     {"imap.mail.me.com", 993},
     {"smtp.mail.me.com", 587},
     "Apple wants an app-specific password here, not your usual one: make one at "
     "account.apple.com, under \"Sign-In and Security\"."},
    {"att.net sbcglobal.net bellsouth.net",
     {"imap.mail.att.net", 993},
     {"smtp.mail.att.net", 465},
     "AT&T wants a secure mail key here, not your usual password: make one on its web site, in "
     "your profile."},
    {"fastmail.com fastmail.fm",
     {"imap.fastmail.com", 993},
     {"smtp.fastmail.com", 465},
     "Fastmail wants an app password here, not your usual one: make one on its web site, in the "
     "settings, under \"Privacy & Security\"."},
    {"zoho.com zohomail.com",
     {"imap.zoho.com", 993},
     {"smtp.zoho.com", 465},
     "Zoho lets programs in only after you have allowed it: on its web site, in the mail settings, "
     "under \"IMAP Access\"."},
    {"runbox.com", {"mail.runbox.com", 993}, {"mail.runbox.com", 465}, ""},
    {"btinternet.com", {"mail.btinternet.com", 993}, {"mail.btinternet.com", 465}, ""},
    {"gmx.com gmx.us gmx.co.uk", {"imap.gmx.com", 993}, {"mail.gmx.com", 465}, gmxImap},
    {"gmx.*", {"imap.gmx.net", 993}, {"mail.gmx.net", 465}, gmxImap},
    {"web.de",
     {"imap.web.de", 993},
     {"smtp.web.de", 587},
     "WEB.DE lets programs in only after you have allowed it: on its web site, in the mail "
     "settings, under \"POP3/IMAP\"."},
    {"t-online.de magenta.de",
     {"secureimap.t-online.de", 993},
     {"securesmtp.t-online.de", 465},
     "Telekom wants the password for e-mail programs here, not the one of its web site: set one in "
     "its customer centre."},
    {"freenet.de",
     {"mx.freenet.de", 993},
     {"mx.freenet.de", 465},
     "freenet lets programs in only after you have allowed it: on its web site, in the mail "
     "settings."},
    {"posteo.de posteo.net", {"posteo.de", 993}, {"posteo.de", 465}, ""},
    {"mailbox.org", {"imap.mailbox.org", 993}, {"smtp.mailbox.org", 465}, ""},
    {"online.de onlinehome.de", {"imap.ionos.de", 993}, {"smtp.ionos.de", 465}, ""},
    {"bluewin.ch", {"imaps.bluewin.ch", 993}, {"smtpauths.bluewin.ch", 465}, ""},
    {"ik.me", {"mail.infomaniak.com", 993}, {"mail.infomaniak.com", 465}, ""},
    {"orange.fr wanadoo.fr", {"imap.orange.fr", 993}, {"smtp.orange.fr", 465}, ""},
    {"sfr.fr neuf.fr", {"imap.sfr.fr", 993}, {"smtp.sfr.fr", 465}, ""},
    {"libero.it inwind.it iol.it blu.it giallo.it",
     {"imapmail.libero.it", 993},
     {"smtp.libero.it", 465},
     ""},
    {"virgilio.it", {"in.virgilio.it", 993}, {"out.virgilio.it", 465}, ""},
    {"aruba.it", {"imaps.aruba.it", 993}, {"smtps.aruba.it", 465}, ""},
    {"kpnmail.nl planet.nl hetnet.nl", {"imap.kpnmail.nl", 993}, {"smtp.kpnmail.nl", 587}, ""},
    {"ziggo.nl", {"imap.ziggo.nl", 993}, {"smtp.ziggo.nl", 587}, ""},
    {"telenet.be", {"imap.telenet.be", 993}, {"smtp.telenet.be", 587}, ""},
    {"wp.pl",
     {"imap.wp.pl", 993},
     {"smtp.wp.pl", 465},
     "WP lets programs in only after you have allowed it: on its web site, in the mail settings, "
     "under POP3/IMAP."},
    {"o2.pl", {"poczta.o2.pl", 993}, {"poczta.o2.pl", 465}, ""},
    {"onet.pl onet.eu op.pl vp.pl poczta.onet.pl",
     {"imap.poczta.onet.pl", 993},
     {"smtp.poczta.onet.pl", 465},
     ""},
    {"interia.pl interia.eu poczta.fm", {"poczta.interia.pl", 993}, {"poczta.interia.pl", 465}, ""},
    {"seznam.cz email.cz post.cz", {"imap.seznam.cz", 993}, {"smtp.seznam.cz", 465}, ""},
    {"yandex.* ya.ru",
     {"imap.yandex.com", 993},
     {"smtp.yandex.com", 465},
     "Yandex wants an app password here, not your usual one, and IMAP switched on in the mail "
     "settings of its web site."},
    {"mail.ru inbox.ru list.ru bk.ru internet.ru",
     {"imap.mail.ru", 993},
     {"smtp.mail.ru", 465},
     "Mail.ru wants a password for external applications here, not your usual one: make one on its "
     "web site, under \"Security\"."},
    {"ukr.net",
     {"imap.ukr.net", 993},
     {"smtp.ukr.net", 465},
     "UKR.NET wants a password for mail programs here, not your usual one: make one on its web "
     "site, in the settings."},
    {"qq.com foxmail.com",
     {"imap.qq.com", 993},
     {"smtp.qq.com", 465},
     "QQ wants an authorization code here, not your password: switch IMAP on in the mail settings "
     "of its web site to get one."},
    {"naver.com",
     {"imap.naver.com", 993},
     {"smtp.naver.com", 465},
     "Naver lets programs in only after you have allowed it: on its web site, in the mail "
     "settings, under IMAP."},
};

std::string_view SecurityAt(int port) { return port == 993 || port == 465 ? "Tls" : "StartTls"; }

/// What stands behind the last "@", in lower case; blank where nothing does.
std::string DomainOf(std::string_view address) {
  const auto at = address.rfind('@');
  return at == std::string_view::npos ? std::string{} : platform::Lowered(address.substr(at + 1));
}

bool Fits(std::string_view domain, std::string_view pattern) {
  if (!pattern.ends_with(".*")) return domain == pattern;
  constexpr std::size_t longestCountry = std::string_view("com.br").size();
  const std::string_view start = pattern.substr(0, pattern.size() - 1);
  return domain.starts_with(start) && domain.size() > start.size() &&
         domain.size() <= start.size() + longestCountry;
}

bool IsOneOf(std::string_view domain, std::string_view patterns) {
  while (!patterns.empty()) {
    const std::string_view pattern = patterns.substr(0, patterns.find(' '));
    if (Fits(domain, pattern)) return true;
    patterns.remove_prefix(std::min(patterns.size(), pattern.size() + 1));
  }
  return false;
}

const Provider* ProviderOf(std::string_view domain) {
  const auto* found = std::find_if(
      std::begin(providers), std::end(providers),
      [domain](const Provider& provider) { return IsOneOf(domain, provider.domains); });
  return found == std::end(providers) ? nullptr : found;
}

}  // namespace

bool IsKnownProvider(std::string_view address) { return ProviderOf(DomainOf(address)) != nullptr; }

MailAccount WithGuessedServers(MailAccount account) {
  const std::string domain = DomainOf(account.MyAddress);
  if (domain.empty()) return account;
  const std::string imap = "imap." + domain;
  const std::string smtp = "smtp." + domain;
  const Provider unknown{"", {imap.c_str(), 993}, {smtp.c_str(), 465}, ""};
  const Provider* known = ProviderOf(domain);
  const Provider& provider = known ? *known : unknown;
  account.ImapHost = provider.imap.host;
  account.ImapPort = provider.imap.port;
  account.ImapSecurity = SecurityAt(provider.imap.port);
  account.SmtpHost = provider.smtp.host;
  account.SmtpPort = provider.smtp.port;
  account.SmtpSecurity = SecurityAt(provider.smtp.port);
  account.UserName = provider.userName == UserName::WholeAddress
                         ? account.MyAddress
                         : account.MyAddress.substr(0, account.MyAddress.rfind('@'));
  return account;
}

bool HasGuessedServers(const MailAccount& account) {
  if (account.ImapHost.empty() && account.SmtpHost.empty()) return true;
  return !DomainOf(account.MyAddress).empty() && WithGuessedServers(account) == account;
}

std::string_view PasswordAdvice(std::string_view imapHost) {
  const std::string host = platform::Lowered(imapHost);
  for (const Provider& provider : providers) {
    if (host == provider.imap.host) return provider.advice;
  }
  return {};
}

}  // namespace post

// SPDX-License-Identifier: GPL-3.0-or-later
#include "letters/mail_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <sstream>

#include "letters/html_text.h"
#include "letters/message_ids.h"
#include "platform/mail_client.h"

namespace {

using letters::ComposeMail;
using letters::ParseMail;

struct ReadCase {
  const char* name;
  std::string mail;
  const char* subject;
  const char* sender;  ///< name, "/" and address
  const char* text;
};

/// Mails as other programs write them.
const ReadCase readCases[] = {
    {"a character cut in two between encoded words",
     "From: a@b\nSubject: =?utf-8?Q?Gr=C3?= =?utf-8?Q?=BC=C3=9Fe?=\n\n", "Grüße", "/a@b", ""},
    {"an address of another script", "From: \"X, Y\" <=?utf-8?Q?j=C3=B6rg?=@xn--tr-xka.de>\n\n", "",
     "X, Y/jörg@tür.de", ""},
    {"a compound in a compound, with lines that only begin like a boundary",
     "From: a@b\nContent-Type: multipart/mixed; boundary=\"X Y\"\n\npreamble\n--X Y \n"
     "Content-Type: multipart/alternative; boundary=\"X Y-2\"\n\n--X Y-2\n\none\n--X Y3\n\n--X "
     "Y-2--\n"
     "\n--X Y\n\ntwo\n--X Y--\nepilogue",
     "", "/a@b", "one\n--X Y3\ntwo"},
    {"HTML that we write",
     "From: a@b\nContent-Type: text/html\n\n<p>" + letters::TextToHtml(" a  b\r\n &amp;<i>\"ü♔'|") +
         "</p>",
     "", "/a@b", " a  b\r\n &amp;<i>\"ü♔'|\r\n"},
};

TEST(MailTextTest, ReadsMailsOfOtherPrograms) {
  for (const ReadCase& row : readCases) {
    const auto mail = ParseMail(row.mail);
    EXPECT_EQ(mail.subject, row.subject) << row.name;
    EXPECT_EQ(mail.name + "/" + mail.address, row.sender) << row.name;
    EXPECT_EQ(mail.text, row.text) << row.name;
  }
}

TEST(MailTextTest, TakesOnlyAnAddressThatStandsThere) {
  const std::pair<const char*, const char*> rows[] = {{"garbage", "/"},
                                                      {"Foo <>", "Foo/"},
                                                      {"a@", "/"},
                                                      {"\"a b\"@c.d", "/"},
                                                      {"A <a@b>, B <c@d>", "A/a@b"},
                                                      {"\"a <x@y>\"\n <real@z>", "a <x@y>/real@z"},
                                                      {"j\xF6rg@x.y", "/jörg@x.y"}};
  for (const auto& [field, sender] : rows) {
    const auto mail =
        ParseMail(std::string("X: a@b\nFrom-X: y\nFROM : ") + field + "\n\nFrom: x@y\n");
    EXPECT_EQ(mail.name + "/" + mail.address, sender) << field;
  }
}

TEST(MailTextTest, NothingOutsideBecomesAHeaderOfItsOwn) {
  const std::string attack = "x\r\nBcc: victim@x.y\r\n\r\nFrom: other@x.y\n\t\x01|";
  const std::string bytes =
      ComposeMail({{attack, "me@x.y"}, {{attack, "you@x.y"}}, attack, "body"});
  const auto mail = ParseMail(bytes);
  EXPECT_EQ(mail.address, "me@x.y");
  EXPECT_EQ(mail.text, "body");
  EXPECT_EQ(mail.name, "x  Bcc: victim@x.y    From: other@x.y    ");
  EXPECT_EQ(bytes.find("\nBcc:"), std::string::npos);
  EXPECT_EQ(bytes.find("\nFrom: other"), std::string::npos);
}

struct SubjectCase {
  std::string subject;
  const char* field;  ///< how it begins in the mail
};

const char* const encoded = "Tarvolenix :\r\n =?utf-8?";

const SubjectCase subjectCases[] = {
    {"Tarvolenix : e4, No  \"comment\".", "Tarvolenix : e4, No  \"comment\".\r\n"},
    {"Tarvolenix : e4, Grüße 棋", encoded},
    {"Tarvolenix : =?utf-8?Q?x?=", encoded},
    {"Tarvolenix : " + std::string(300, 'x'), encoded},
    {"Tarvolenix : e4,  " + std::string(50, 'a') + "  b " + std::string(60, 'c') + " d.",
     "Tarvolenix :\r\n e4,  aaa"},
    {"Tarvolenix : x" + std::string(30, 'y') + "♔♔♔♔♔♔♔♔♔♔♔♔♔♔♔♔♔♔♔♔",
     "Tarvolenix :\r\n =?utf-8?B?eHl5eXl5eXl5eXl5eXl5eXl5eXl5eXl5eXl5eXl5eeKZlOKZlA==?=\r\n"},
    {"Grüße", ""},
};

TEST(MailTextTest, WritesHeadersThatEveryServerTakes) {
  for (const SubjectCase& row : subjectCases) {
    SCOPED_TRACE(row.subject);
    const char* name = "Jürgen \\ \"J\" Müller";
    const std::string bytes =
        "\r\n" + ComposeMail({{name, "me@tür.example"}, {{"Anna", "you@x.y"}}, row.subject, ""});
    const std::string header = bytes.substr(0, bytes.find("\r\n\r\n") + 2);
    EXPECT_NE(header.find(std::string("\r\nSubject: ") + row.field), header.npos) << header;
    EXPECT_NE(header.find("@xn--tr-xka.example>\r\n", header.find("\r\nMessage-ID: <")),
              header.npos);
    EXPECT_NE(header.find("\r\nDate: "), header.npos);
    EXPECT_NE(header.find("\r\nMIME-Version: 1.0\r\n"), header.npos);
    std::istringstream lines(header);
    for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 77u) << line;
    EXPECT_EQ(ParseMail(bytes.substr(2)).subject, row.subject);
    EXPECT_EQ(ParseMail(bytes.substr(2)).name, name);
  }
}

TEST(MailTextTest, TextsTravelInTheirPlainestForm) {
  const struct {
    std::string text;
    const char *eightBit, *sevenBit;
  } rows[] = {
      {"1|5254|e4|Good luck \r\n", "7bit", "7bit"},
      {"Grüße \r\n.\r\n\r\n From me\r\n", "8bit", "quoted-printable"},
      {std::string(2000, 'x') + " \r\n\ty", "quoted-printable", "quoted-printable"},
      {"a\r\nFrom Paris|\r\nFrom b", "quoted-printable", "quoted-printable"},
      {std::string("a\0b", 3), "quoted-printable", "quoted-printable"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text.substr(0, 20));
    for (const auto lines : {letters::Lines::EightBit, letters::Lines::SevenBit}) {
      const bool seven = lines == letters::Lines::SevenBit;
      const std::string bytes = ComposeMail({{"", "a@b"}, {{"", "c@d"}}, "Ü", row.text}, lines);
      const std::string encoding = seven ? row.sevenBit : row.eightBit;
      EXPECT_NE(bytes.find("\r\nContent-Transfer-Encoding: " + encoding + "\r\n"), bytes.npos);
      EXPECT_EQ(bytes.find("\nFrom ", bytes.find("\r\n\r\n")), bytes.npos);
      std::string text = row.text;
      std::erase(text, '\0');
      EXPECT_EQ(ParseMail(bytes).text, text);
      EXPECT_EQ(seven && std::any_of(bytes.begin(), bytes.end(), [](char c) { return c < 0; }),
                false);
    }
  }
}

TEST(MailTextTest, APageStandsBesideTheTextAsLongAsThereIsRoom) {
  const std::string boundary = "--=_tarvolenix.0";
  const struct {
    const char* name;
    std::string html, picture;
    std::string types;
  } rows[] = {
      {"no page", "", "picture", "plain "},
      {"a page", "<p>From " + boundary, "", "alternative plain html "},
      {"a page with a picture", "<p>ü", "\x89PNG\r\n", "alternative plain related html png "},
      {"a page too large", std::string(38000, 'x'), "PNG", "plain "},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const std::string text = "Hi\r\n" + boundary + "\r\n";
    const std::string bytes =
        ComposeMail({{"", "a@b"}, {{"", "c@d"}}, "s", text, "", "", {row.html, row.picture}});
    EXPECT_EQ(ParseMail(bytes).text, text);
    std::string types;
    const std::regex type("Content-Type: [a-z]+/([a-z]+)");
    for (std::sregex_iterator at(bytes.begin(), bytes.end(), type), end; at != end; ++at) {
      types += at->str(1) + ' ';
    }
    EXPECT_EQ(types, row.types);
    const std::string id = "\r\nContent-ID: <" + letters::ContentIDOf(row.picture) + ">\r\n";
    EXPECT_EQ(bytes.find(id) != bytes.npos, types.ends_with("png "));
  }
}

TEST(MailTextTest, AMailNamesTheThreadThatItBelongsTo) {
  letters::OutgoingMail mail{{"", "a@b.c"}, {{"", "d@e.f"}}, "s", "t", "0903-7\r\nX: y"};
  mail.messageID = letters::NewMessageID(mail);
  EXPECT_NE(letters::NewMessageID(mail), mail.messageID);
  EXPECT_TRUE(mail.messageID.starts_with("<tarvolenix.0903-7--X--y.")) << mail.messageID;
  EXPECT_TRUE(mail.messageID.ends_with("@b.c>"));
  const std::string bytes = ComposeMail(mail);
  EXPECT_NE(bytes.find("\r\nMessage-ID: " + mail.messageID + "\r\n"), bytes.npos);
  EXPECT_NE(bytes.find("\r\nReferences: <tarvolenix.0903-7--X--y@tarvolenix.invalid>\r\n"),
            bytes.npos);
}

struct ReportCase {
  const char* name;
  std::string mail;
  const char* says;  ///< the thread, "/" and the reason; blank where it is no report on ours
};

const std::string ourID = "<tarvolenix.0-7.1.2@b.c>";

const std::string ourHeader =
    "References: <tarvolenix.0-7@tarvolenix.invalid>\r\nMessage-ID:\r\n " + ourID +
    "\r\nSubject: Tarvolenix : e4\r\n\r\n554 moves\r\n";

std::string StandardReport(const std::string& status) {
  return "From: a@b\r\nContent-Type: multipart/report; boundary=X\r\n\r\n--X\r\n\r\nHi! 5 of 550 "
         "mails\r\n--X\r\nContent-Type: message/delivery-status\r\n\r\n" +
         status + "\r\n\r\n--X\r\n\r\n" + ourHeader + "--X--\r\n";
}

const std::string daemonSays = "From: Mailer-Daemon@x.y (Mail System)\nSubject: Returned mail\n\n";

const ReportCase reportCases[] = {
    {"standard",
     StandardReport(
         "Action: failed\r\nDiagnostic-Code: smtp; 550 5.1.1 <a@b>:\r\n Unknown | user "),
     "0-7/550 5.1.1 <a@b>: Unknown   user"},
    {"standard, without the server's words", StandardReport("Action: Failed"), "0-7/550 mails"},
    {"only late", StandardReport("Action: delayed\r\nDiagnostic-Code: smtp; 451 wait"), ""},
    {"a text for people",
     daemonSays + "host x[1.5.1.2] said: 552-5.2.2\n  Mailbox full\n\n" + ourHeader,
     "0-7/552-5.2.2 Mailbox full"},
    {"without any reason", daemonSays + "Sorry. 5\n" + ourHeader, "0-7/"},
    {"a warning", "From: postmaster@x.y\nSubject: Warning: Delayed\n\n" + ourHeader, ""},
    {"on a mail of another program", daemonSays + "550 no\n\nMessage-ID: <x@b.c>\n", ""},
    {"a person's", "From: a@b\nSubject: Tarvolenix : e4\n\n550 no\n\n" + ourHeader, ""},
};

TEST(MailTextTest, ReportsOnOurMailsAreUnderstood) {
  for (const ReportCase& row : reportCases) {
    std::string says;
    EXPECT_TRUE(letters::CanBeOurs(row.mail)) << row.name;
    try {
      const auto report = ParseMail(row.mail).undelivered;
      if (report) says = report->thread + '/' + report->reason;
      EXPECT_EQ(report ? report->messageID : ourID, ourID) << row.name;
    } catch (const platform::MailError&) {
      // a machine's answer, but none that matters
    }
    EXPECT_EQ(says, row.says) << row.name;
  }
}

TEST(MailTextTest, RefusesWhatIsNoAddress) {
  EXPECT_THROW(ComposeMail({{"", "me@x.y"}, {{"", "unknown@x.invalid"}}, "s", "t"}),
               platform::MailError);
  for (const char* address : {"", " ", "bob", "@x.y", "bob@", "a b@c", "a@b\r\nBcc: c@d", "<a@b>",
                              "a@b,c@d", "\"a\"@b", "a@b|c"}) {
    EXPECT_FALSE(letters::IsMailAddress(address)) << address;
    EXPECT_THROW(ComposeMail({{"", "me@x.y"}, {{"", address}}, "s", "t"}), platform::MailError)
        << address;
  }
  for (const char* address : {"a@b", "o'brien+chess@x.y", "jörg@tür.de", "a@b@c", "A.B@C"}) {
    const auto mail = ParseMail(ComposeMail({{"", address}, {{"", "you@x.y"}}, "s", "t"}));
    EXPECT_EQ(mail.address, address);
  }
  EXPECT_EQ(letters::EnvelopeAddress(" o'brien@tür.de "), "o'brien@xn--tr-xka.de");
}

TEST(MailTextTest, ReservedCharactersBecomeBlanks) {
  EXPECT_EQ(letters::WithoutReserved("a|b\tc\x7F\u0080x\u0085y\u2028\u2029"), "a b c  x y  ");
  EXPECT_EQ(letters::WithoutReserved("\u00A0ü\u2027♔\xC2"), "\u00A0ü\u2027♔\xC2");
}

TEST(MailTextTest, RefusesMailsThatAreBuiltToHarm) {
  EXPECT_THROW(letters::SubjectOf("Subject: =??B?eg?==??B?eCg?=\n\n"), platform::MailError);
  std::string many = "From: a@b\r\nContent-Type: multipart/mixed; boundary=X\r\n\r\n";
  for (int i = 0; i < 1000000; ++i) many += "--X\r\n";
  EXPECT_THROW(ParseMail(many), platform::MailError);
  std::string chain = "From: a@b\n";  // few enough at each level
  for (int i = 0; i < 40; ++i) {
    const std::string boundary = std::string(i + 1, 'b');
    chain.append("Content-Type: multipart/mixed; boundary=").append(boundary);
    chain.append("\n\n--").append(boundary).append("\n");
  }
  EXPECT_THROW(ParseMail(chain), platform::MailError);
}

}  // namespace

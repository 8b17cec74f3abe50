// SPDX-License-Identifier: GPL-3.0-or-later
// Mails as they come: what all kinds of programs write, and what happens to a mail on its way. Each
// file lies in a real Maildir, goes through the mail service and becomes a game of the store, or is
// left where it was.
#include <gtest/gtest.h>

#include <map>
#include <variant>

#include "fakes/fake_desktop.h"
#include "fakes/memory_passwords.h"
#include "fakes/plain_events.h"
#include "fakes/temporary_folder.h"
#include "mail/retrieval.h"
#include "post/mail_service.h"
#include "post/system_mail.h"

namespace {

namespace fs = std::filesystem;

constexpr const char* mailsFolder = TARVOLENIX_MAILS "/";
constexpr const char* greeting = "Grüße & viel Spaß!";
constexpr const char* longGreeting =
    "Grüße aus der Ferne, und viel Spaß mit der Partie, die nun beginnt";
constexpr const char* signs = "a < b; c = d > e";

/// Founds Anna's game, with the sender's name and two of the three moves' comments.
struct Game {
  const char* first = greeting;
  const char* last = signs;
  const char* name = "Anna";
};

/// Stays in the Inbox, read, and the user hears at which stage its check ended.
struct Refused {
  int stage = 1;
};

/// Nobody looks at it: name, marks and bytes stay as they were.
struct Foreign {};

struct Exhibit {
  const char* file;
  std::variant<Game, Refused, Foreign> becomes;
};

// Those that don't become the game as Anna wrote it. What has no row here does.
const Exhibit exceptions[] = {
    {"seven_bit", Game{"Have fun & good luck"}},
    {"windows1252", Game{"Grüße – „viel Spaß“ für 5 €"}},
    {"windows1252_called_latin1", Game{"Grüße – „viel Spaß“ für 5 €"}},
    {"koi8r", Game{"Удачи!"}},
    {"html_unescaped", Game{greeting, "fine"}},
    {"html_editor", Game{"Viel  Spaß"}},
    {"flowed", Game{longGreeting}},
    {"flowed_delsp", Game{longGreeting}},
    {"flowed_stuffed", Game{longGreeting}},
    {"flowed_quoted", Game{longGreeting}},
    {"rewrapped", Game{longGreeting}},
    {"name_with_signs", Game{greeting, signs, "Ärger, \"Anna\"   <x>"}},
    {"name_encoded", Game{greeting, signs, "Ärger, Anna   Ä"}},
    {"name_missing", Game{greeting, signs, "anna@example.org"}},
    {"name_as_comment", Game{greeting, signs, "anna@example.org"}},
    // damaged beyond help, or of doubtful origin
    {"header_only", Refused{}},
    {"text_cut_off", Refused{}},
    {"base64_cut_off", Refused{}},
    {"without_sender", Refused{}},
    {"sender_is_no_address", Refused{}},
    {"text_as_attachment", Refused{}},
    {"mail_within_a_mail", Refused{}},
    {"smime_opaque", Refused{}},
    {"html_marker_taken_for_a_tag", Refused{}},
    {"separator_in_a_comment", Refused{11}},
    {"name_of_sixty", Refused{5}},
    {"away_with_our_subject", Refused{}},
    // none of ours
    {"forwarded_as_attachment", Foreign{}},
    {"page_forwarded_as_attachment", Foreign{}},
    {"bounce_with_our_subject", Foreign{}},
    {"away_and_quoting_us", Foreign{}},
    {"read_receipt", Foreign{}},
    {"only_carriage_returns", Foreign{}},
    {"rubbish", Foreign{}},
};

std::string MailNamed(const std::string& file) { return ReadFile(mailsFolder + file + ".eml"); }

/// Bernd's program on a machine that delivers into a Maildir, without any game at first.
class Reader {
 public:
  Reader() {
    post::Maildir(folder_ / "").Create();
    desktop.settings.groups["Mail"] = {{"MailKind", "System"}, {"MyAddress", "bernd@example.org"}};
    platform::TheSeams().MSess = &service_;
    platform::TheSeams().MMess = &service_;
    service_.SignOn();
  }

  void Put(const std::string& name, const std::string& bytes) { WriteFile(folder_ / name, bytes); }

  /// As a tick does, which leaves marks and deletions for later; the folders show them now.
  void Retrieve() {
    mail::RetrieveMoveMails(false, false);
    service_.Flush();
  }

  /// The files of the Maildir with their content.
  std::map<std::string, std::string> Files() const {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder_ / "")) {
      if (!entry.is_regular_file()) continue;
      const std::string path = entry.path().string();
      files[path.substr((folder_ / "").size())] = ReadFile(path);
    }
    return files;
  }

  std::string GameFile() {
    const std::string path = "/program/Data/Tvgdb.dat";
    return desktop.files.Exists(path) ? desktop.files.Read(path) : std::string{};
  }

  fakes::FakeDesktop desktop;

 private:
  TemporaryFolder folder_;
  fakes::PlainEvents events_;
  fakes::MemoryPasswords passwords_;
  post::MailService service_{
      events_, passwords_, {}, [this](const post::MailAccount&, const std::string&) {
        return std::make_unique<post::SystemMail>(folder_ / "", "/bin/false");
      }};
};

std::string MovesLine(const char* first, const char* last) {
  return std::string(";;;;;;;|1|5254|e4|") + first + "|2|5755|e5||3|7163|Nf3|" + last + "\r\n";
}

void Check(const Game& game, const std::string& mail) {
  Reader reader;
  reader.Put("new/1.mail", mail);
  reader.Retrieve();
  EXPECT_EQ(reader.GameFile(),
            std::string("1|090320260805|7|Sunday game|09/03/2026|anna@example.org|") + game.name +
                "|Bernd|0|" + game.name + "|1|0|" + MovesLine(game.first, game.last));
  EXPECT_TRUE(reader.Files().empty());
  EXPECT_TRUE(reader.desktop.boxes.messages.empty());
}

void Check(const Refused& refused, const std::string& mail) {
  Reader reader;
  reader.Put("new/1.mail", mail);
  for (int tick = 0; tick < 2; ++tick) reader.Retrieve();
  EXPECT_EQ(reader.GameFile(), "");
  EXPECT_EQ(reader.Files(), (std::map<std::string, std::string>{{"cur/1.mail:2,S", mail}}));
  ASSERT_EQ(reader.desktop.boxes.messages.size(), 1U);
  const std::string stage = "Validation progress : " + std::to_string(refused.stage) + ".";
  EXPECT_NE(reader.desktop.LastMessage().second.find(stage), std::string::npos)
      << reader.desktop.LastMessage().second;
}

void Check(const Foreign&, const std::string& mail) {
  Reader reader;
  const std::map<std::string, std::string> files = {{"new/1.mail", mail}, {"cur/2.mail:2,F", mail}};
  for (const auto& [name, bytes] : files) reader.Put(name, bytes);
  for (int tick = 0; tick < 2; ++tick) reader.Retrieve();
  EXPECT_EQ(reader.GameFile(), "");
  EXPECT_EQ(reader.Files(), files);
  EXPECT_TRUE(reader.desktop.boxes.messages.empty());
}

TEST(MailMuseumTest, EachMailBecomesWhatItShould) {
  std::map<std::string, decltype(Exhibit::becomes)> museum;
  for (const auto& entry : fs::directory_iterator(mailsFolder)) {
    if (entry.path().extension() == ".eml") museum[entry.path().stem()];
  }
  ASSERT_GT(museum.size(), std::size(exceptions));
  for (const Exhibit& exhibit : exceptions) museum.at(exhibit.file) = exhibit.becomes;
  for (const auto& [file, becomes] : museum) {
    SCOPED_TRACE(file);
    const std::string mail = MailNamed(file);
    std::visit([&mail](const auto& expected) { Check(expected, mail); }, becomes);
  }
}

/// The text behind an attachment of so many bytes.
std::string MailOfSize(std::size_t size) {
  std::string mail =
      "From: Anna <anna@example.org>\nSubject: Tarvolenix : e4\nMIME-Version: 1.0\n"
      "Content-Type: multipart/mixed; boundary=big\n\n--big\n"
      "Content-Type: image/png\nContent-Transfer-Encoding: base64\n\n";
  while (mail.size() < size) mail += std::string(76, 'A') + '\n';
  const std::string text = MailNamed("eight_bit");
  return mail + "--big\n" + text.substr(text.find("Content-Type")) + "\n--big--\n";
}

TEST(MailMuseumTest, SizeIsNoMatterUntilItIsAbsurd) {
  Check(Game{}, MailOfSize(5 << 20));
  Check(Foreign{}, MailOfSize(9 << 20));
}

}  // namespace

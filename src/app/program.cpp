// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/program.h"

#include <QApplication>
#include <QDesktopServices>
#include <QIcon>
#include <QSystemTrayIcon>
#include <QTimer>
#include <QUrl>

#include <chrono>
#include <cstdlib>
#include <utility>

#include "desktop/tray_host.h"
#include "mail/mail_session.h"
#include "platform/mail_address.h"
#include "platform/messages.h"
#include "platform/polling.h"
#include "platform/process_state.h"
#include "platform/registry.h"
#include "platform/seams.h"
#include "platform/setting_variables.h"
#include "post/account_check.h"
#include "post/accounts/discovery_network.h"
#include "post/accounts/known_providers.h"
#include "post/outbox.h"
#include "post/servers/patience.h"
#include "shell/held_mail_questions.h"
#include "shell/mail_watch.h"
#include "shell/past_opponents.h"
#include "shell/polling_loop.h"
#include "shell/settings.h"
#include "shell/shell_hooks.h"
#include "shell/shut_down.h"
#include "shell/start_up.h"
#include "sign_in/browser_sign_in.h"
#include "skin/program_pictures.h"
#include "ui/people/address_book_dialog.h"

namespace app {

using platform::Process;

namespace {

ui::ProviderGuess Guess(const post::MailAccount& account) {
  const post::MailAccount guessed = post::WithGuessedServers(account);
  return {guessed, post::IsKnownProvider(account.MyAddress), post::PasswordAdvice(guessed)};
}

/// Without what the provider has to know the program by, the user hears what works.
ui::AccountHelp::SignInOffer OfferFor(const post::MailAccount& account,
                                      const sign_in::ClientFiles& files) {
  const std::string name = sign_in::ServiceNameFor(account, files);
  if (name.empty()) return {};
  try {
    sign_in::ServiceNamed(name, files);
    return {name, sign_in::RemarkOn(files), true};
  } catch (const platform::MailError& error) {
    return {name,
            std::string(error.what()) +
                " What works without is a password for programs (an app password) where the "
                "provider gives one, or a token command.",
            false};
  }
}

/// An account that nobody has chosen yet begins with what its user most likely has.
post::MailAccount ForNewcomer(post::MailAccount suggestion) {
  for (const char* value : {"MailKind", "MyAddress"}) {
    if (!platform::IsEmptyValue(platform::ReadRegistry(platform::mailSection, value))) {
      return suggestion;
    }
  }
  suggestion.MailKind = "Imap";
  return suggestion;
}

/// Where no kind is wanted, what the user has or is likely to have.
post::MailAccount OfKind(post::MailAccount suggestion, const char* wantedKind) {
  if (!wantedKind) return ForNewcomer(std::move(suggestion));
  suggestion.MailKind = wantedKind;
  return suggestion;
}

/// There is no skin yet to tell it in.
void TellOfUserFolder(platform::MessageBoxes& boxes, const std::string& failure) {
  boxes.PlainBox(platform::PlainIcon::Warning, "Folder of your games",
                 "Tarvolenix can't write into the folder \"" + platform::Process().DataPath +
                     "\" (" + failure + "), so no game that you play now can be kept.");
}

void TellOfSettingsFolder(platform::MessageBoxes& boxes, const std::string& failure) {
  boxes.PlainBox(platform::PlainIcon::Warning, "Settings",
                 "Tarvolenix can't write into the folder of its settings, " + failure +
                     ", so what you choose now is forgotten when it ends.");
}

void TellThatNobodyTakesThem(platform::MessageBoxes& boxes) {
  boxes.PlainBox(platform::PlainIcon::Warning, "Move file",
                 "The Tarvolenix that runs is busy and took no file. Please try again when it is "
                 "done.");
}

/// The toolkit isn't asked before there is a tray: its first look decides where it looks from then
/// on.
bool IsTrayThere() {
  return desktop::TrayHostIsThere() && QSystemTrayIcon::isSystemTrayAvailable();
}

}  // namespace

Program::Program(const desktop::Folders& folders, const std::string& commandLine,
                 std::unique_ptr<desktop::SingleInstance> instance)
    : contacts_(shell::PastOpponents),
      screen_([this] { return instance_->IsAnotherRunning(); }),
      instance_(std::move(instance)) {
  // Windows come and go before the last one: the program ends when it is told to.
  QApplication::setQuitOnLastWindowClosed(false);
  platform::SetupGlobalVariables(folders.program, commandLine, folders.user);
  folderFailure_ = desktop::PrepareUserFolder(folders);
  settingsFailure_ = desktop::PrepareSettingsFolder(folders);
  desktop_ = std::make_unique<wiring::RealSeams>(
      folders.settingsFile, [this](const auto& suggestion) { return AskAtLogon(suggestion); },
      post::MailService::AskRecipients{
          [this](const auto& caption) { return ui::PickRecipients(contacts_, caption); },
          [this](const auto& typed, bool mayAsk) {
            return ui::ResolveRecipient(contacts_, typed, mayAsk);
          }});
  desktop_->Events().OnWait([this](bool waiting) { waiting_.Wait(waiting); });
  if (!instance_) instance_ = std::make_unique<desktop::SingleInstance>(folders.user);
  platform::Seams& seams = platform::TheSeams();
  seams.messageBoxes = &boxes_;
  seams.help = &help_;
  seams.printers = &printers_;
  seams.addressBook = &contacts_;
  seams.screen = &screen_;
  tray_ = std::make_unique<ui::SystemTray>([this](const char* kind) { ChangeAccount(kind); },
                                           [] { shell::AskAboutHeldMails(shell::HeldMails::All); },
                                           IsTrayThere);
  seams.mailState->OnChange([this] {
    network_.Follow();
    shell::FollowMails();
  });
  shell::FillHooks();
  seams.hooks.signIn = [this] { return HasChangedAccount("Imap", ui::AccountErrand::SignIn); };
  seams.hooks.endProcess = [] { std::_Exit(EXIT_FAILURE); };
  QApplication::setWindowIcon(ui::ProgramPicture(QLatin1StringView(ui::programIcon)));
}

Program::~Program() {
  platform::TheSeams().mailState->OnChange({});
  HurryInquiries();
}

bool Program::HandOver(const desktop::GivenFiles& files) {
  if (instance_->IsAnotherRunning()) {
    const bool isTaken = desktop::HandOverFiles(instance_->Socket(), files);
    if (!isTaken && !files.empty()) TellThatNobodyTakesThem(boxes_);
    return !files.empty();
  }
  const auto give = [this](const auto& given) {
    if (given.empty()) return tray_->ComeToFront();
    tray_->Windows().Files().Give(given);
  };
  if (instance_->IsHeld()) {
    channel_ = std::make_unique<desktop::InstanceChannel>(instance_->Socket(), give);
  }
  if (!files.empty()) give(files);
  return false;
}

bool Program::Start() {
  if (!folderFailure_.empty()) TellOfUserFolder(boxes_, folderFailure_);
  if (!settingsFailure_.empty()) TellOfSettingsFolder(boxes_, settingsFailure_);
  return shell::StartUp();
}

void Program::End() {
  HurryInquiries();
  if (desktop_->Events().IsWaiting()) {
    desktop_->Mail().Hurry();
    if (QWidget* dialog = QApplication::activeModalWidget()) dialog->close();
    // Whoever is impatient may end the process before the wait is over.
    if (Process().StartupComplete) shell::SaveSettings();
    QTimer::singleShot(100, tray_.get(), [this] { End(); });
    return;
  }
  shell::ExitProgram();
}

void Program::Stop() { shell::ExitProgram(); }

std::optional<std::string> Program::KeptPassword(const post::MailAccount& account) {
  if (!post::NeedsPassword(account)) return std::nullopt;
  return desktop_->KeptPasswords().Read(post::PasswordKey(account));
}

std::optional<post::AccountAnswer> Program::AskAccount(const post::MailAccount& suggestion,
                                                       ui::AccountErrand errand) {
  // Looked up once: a keyring may ask its user to unlock it.
  const bool isKept = KeptPassword(suggestion).has_value();
  const ui::AccountHelp help{
      post::HasUsableAddress,
      Guess,
      [this](const auto& account, auto found) { LookUpServers(account, std::move(found)); },
      [isKept, key = post::PasswordKey(suggestion)](const post::MailAccount& account) {
        return isKept && post::PasswordKey(account) == key;
      },
      [this](const auto& answer, auto told) { TestAccount(answer, std::move(told)); },
      [&files = desktop_->Tokens().Files()](const auto& account) {
        return OfferFor(account, files);
      },
      [this](const auto& account, const auto& name, auto sent, auto signedIn) {
        SignIn(account, name, std::move(sent), std::move(signedIn));
      },
      [this] { HurryInquiries(); },
      platform::TheSeams().mailState->Connection().wantsSignIn};
  auto answer = ui::AskForAccount(suggestion, help, errand);
  HurryInquiries();  // nobody hears of them any more
  // A test may have spent what the sign-in left.
  if (answer && answer->password && !answer->account.SignIn.empty()) {
    answer->password = desktop_->Tokens().Newest(*answer->password);
  }
  return answer;
}

std::optional<post::AccountAnswer> Program::AskAtLogon(const post::MailAccount& suggestion) {
  // The program may have been ended over the keyring's question.
  auto answer = Process().Stopping ? std::nullopt : AskAccount(ForNewcomer(suggestion));
  if (answer && !answer->password) answer->password = KeptPassword(answer->account);
  return answer;
}

void Program::HurryInquiries() {
  for (const Inquiry& inquiry : inquiries_) inquiry.hurry();
}

void Program::Inquire(std::function<void()> work, std::function<void()> hurry) {
  HurryInquiries();
  std::erase_if(inquiries_, [](const Inquiry& inquiry) {
    return inquiry.end.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
  });
  inquiries_.push_back({std::move(hurry), std::async(std::launch::async, std::move(work))});
}

void Program::TestAccount(const post::AccountAnswer& answer, ui::AccountHelp::Told told) {
  const std::string password =
      answer.password.value_or(KeptPassword(answer.account).value_or(std::string{}));
  const auto check =
      std::make_shared<post::AccountCheck>(answer.account, password, &desktop_->Tokens());
  Inquire(
      [check, told = std::move(told), &events = *platform::TheSeams().events] {
        const std::string problem = check->Problem();
        const bool wantsSignIn = check->WantsSignIn();
        events.Post([told, problem, wantsSignIn] { told(problem, wantsSignIn); });
      },
      [check] { check->Hurry(); });
}

void Program::SignIn(const post::MailAccount& account, const std::string& name,
                     ui::AccountHelp::Sent sent, ui::AccountHelp::SignedIn signedIn) {
  const auto patience = std::make_shared<post::Patience>(std::chrono::seconds(30));
  // The browser is asked for on the window's thread. Whether it comes up nobody tells for certain.
  const auto open = [sent = std::move(sent),
                     &events = *platform::TheSeams().events](const std::string& url) {
    events.Post([sent, url] {
      QDesktopServices::openUrl(QUrl(QString::fromStdString(url)));
      sent(url);
    });
    return true;
  };
  Inquire(
      [open, address = account.MyAddress, name, files = desktop_->Tokens().Files(), patience,
       signedIn = std::move(signedIn), &events = *platform::TheSeams().events] {
        std::string secret, problem;
        try {
          const auto service = sign_in::ServiceNamed(name, files);
          secret = sign_in::SignInByBrowser(service, address, open, *patience).refresh;
        } catch (const std::exception& error) {
          problem = error.what();
        }
        events.Post([signedIn, secret, problem] { signedIn(secret, problem); });
      },
      [patience] { patience->Hurry(); });
}

void Program::LookUpServers(const post::MailAccount& account, ui::AccountHelp::Found found) {
  const auto patience = std::make_shared<post::Patience>(std::chrono::seconds(5));
  Inquire(
      [account, patience, found = std::move(found), &events = *platform::TheSeams().events] {
        const auto facts = post::AskAboutDomainOf(account.MyAddress, *patience);
        const auto discovery = post::DiscoveryIn(facts, account);
        const ui::ProviderGuess guess =
            discovery ? ui::ProviderGuess{discovery->account, true, discovery->remark}
                      : ui::ProviderGuess{};
        events.Post([found, guess] { found(guess); });
      },
      [patience] { patience->Hurry(); });
}

void Program::ChangeAccount(const char* wantedKind) {
  // Whoever has confirmed his account wants his mail.
  if (HasChangedAccount(wantedKind, ui::AccountErrand::LookOver)) shell::RetrieveByHand();
}

bool Program::HasChangedAccount(const char* wantedKind, ui::AccountErrand errand) {
  try {
    return ChangeAccountFrom(post::LoadMailAccount(), wantedKind, errand);
  } catch (const platform::SettingsError& error) {
    post::ReportAccountTrouble(error.what());
    return false;
  }
}

bool Program::ChangeAccountFrom(const post::MailAccount& stored, const char* wantedKind,
                                ui::AccountErrand errand) {
  const platform::PollingHold hold;
  auto answer = AskAccount(OfKind(post::WithLoginName(stored), wantedKind), errand);
  if (!answer || (answer->account == stored && !answer->password)) return false;
  if (!answer->password) {
    answer->account = post::WithLaterChanges(answer->account, stored, post::LoadMailAccount());
  }
  if (!post::SaveAccountAnswer(*answer, desktop_->KeptPasswords())) return false;
  // The next logon is the new account's, whatever became of the old one's.
  mail::MailLogoff(false);
  Process().Offline = true;
  GiveWaitingMailsTo(answer->account.MyAddress, stored.MyAddress);
  return !Process().Stopping;
}

/// Those of an account whose address stays go with it by themselves.
void Program::GiveWaitingMailsTo(const std::string& address, const std::string& oldAddress) {
  if (oldAddress.empty() || platform::SameAddress(address, oldAddress)) return;
  post::Outbox old(post::OutboxFolder(oldAddress)), next(post::OutboxFolder(address));
  try {
    const auto mails = old.Mails();
    if (mails.empty()) return;
    const bool isOne = mails.size() == 1;
    if (platform::ShowMessage(platform::MailIcon, "Mail account",
                              (isOne ? "A mail waits" : "Mails wait") +
                                  std::string(" to be sent from your old address ") + oldAddress +
                                  ".||Shall " + (isOne ? "it" : "they") + " be sent from " +
                                  address + " instead?",
                              "Send", "Drop", false, platform::AttentionSound)) {
      old.MoveTo(next);
    } else if (!Process().Stopping) {
      old.Drop();
    }
  } catch (const std::exception& error) {
    post::ReportAccountTrouble(std::string("The mails that wait can't be taken over: ") +
                               error.what());
  }
}

}  // namespace app

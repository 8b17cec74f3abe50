// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/options/notification_page.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>

#include <utility>

#include "platform/setting_variables.h"
#include "shell/tray_status.h"
#include "skin/look.h"
#include "ui/options/labelled_box.h"
#include "widgets/shown_text.h"
#include "widgets/tool_tips.h"

namespace ui {

using namespace Qt::StringLiterals;
using platform::Settings;

namespace {

constexpr int bySound = 1;
constexpr int byDialog = 2;

/// The place in the list is the setting, whatever the words say.
constexpr const char* timeouts[] = {"Never",      "30 seconds",  "1 minute",   "1.5 minutes",
                                    "2 minutes",  "2.5 minutes", "3 minutes",  "3.5 minutes",
                                    "4 minutes",  "4.5 minutes", "5 minutes",  "10 minutes",
                                    "20 minutes", "30 minutes",  "40 minutes", "50 minutes",
                                    "1 hour",     "2 hours",     "5 hours",    "10 hours"};

}  // namespace

NotificationPage::NotificationPage(std::function<void()> pickSound, QWidget* parent)
    : QWidget(parent),
      pickSound_(std::move(pickSound)),
      opNotifySound_(new LabelledBox("opNotifySound", "Play a sound", this)),
      opBrowseSound_(
          NewButton(*this, {"opBrowseSound", "opBrowseSound"}, u"Browse..."_s, u"&Browse..."_s)),
      opNotificationSound_(new QLabel(u"None"_s, this)),
      opNotifyDialog_(new LabelledBox("opNotifyDialog", "Display a message", this)),
      Label4_(new QLabel(u"Notification dialog timeout:"_s, this)),
      opTimeoutCombo_(new QComboBox(this)),
      opNotifyDesktop_(
          new LabelledBox("opNotifyDesktop", "Show a notification of the desktop, too", this)),
      opComputerGames_(new LabelledBox(
          "opComputerGames", "Show games against the computer as new moves in the tray?", this)),
      opGamePreview_(new LabelledBox(
          "opGamePreview", "Show the board of a game that is pointed at in the list?", this)),
      opAskSurrender_(new LabelledBox("opAskSurrender", "Ask before a game is given up?", this)),
      opWhyInMailGames_(new LabelledBox("opWhyInMailGames",
                                        "Explain moves in games against people, too?", this)) {
  opNotificationSound_->setObjectName(u"opNotificationSound"_s);
  opNotificationSound_->setTextFormat(Qt::PlainText);
  opNotificationSound_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  Label4_->setObjectName(u"Label4"_s);
  Label4_->setBuddy(opTimeoutCombo_);
  opTimeoutCombo_->setObjectName(u"opTimeoutCombo"_s);
  opTimeoutCombo_->setAccessibleName(Label4_->text());
  for (const char* timeout : timeouts) opTimeoutCombo_->addItem(QLatin1StringView(timeout));
  for (LabelledBox* box : {opNotifySound_, opNotifyDialog_}) {
    connect(box, &QCheckBox::clicked, this, &NotificationPage::SetNotifyMethod);
  }
  for (LabelledBox* box :
       {opNotifyDesktop_, opComputerGames_, opGamePreview_, opAskSurrender_, opWhyInMailGames_}) {
    connect(box, &QCheckBox::clicked, this, &NotificationPage::ApplyWanted);
  }
  connect(opBrowseSound_, &QAbstractButton::clicked, this, &NotificationPage::BrowseSound);
  connect(opTimeoutCombo_, &QComboBox::activated, this, &NotificationPage::ApplyWanted);
  if (IsSimpleUI()) SetSimpleUI();
}

void NotificationPage::SetSimpleUI() {
  auto* layout = new QGridLayout(this);
  layout->setSpacing(8);
  layout->addWidget(opNotifySound_, 0, 0);
  layout->addWidget(&opNotifySound_->Caption(), 0, 1, 1, 2);
  layout->addWidget(opBrowseSound_, 1, 1);
  layout->addWidget(opNotificationSound_, 1, 2);
  layout->addWidget(opNotifyDialog_, 2, 0);
  layout->addWidget(&opNotifyDialog_->Caption(), 2, 1, 1, 2);
  layout->addWidget(Label4_, 3, 1);
  layout->addWidget(opTimeoutCombo_, 3, 2, Qt::AlignLeft);
  layout->addWidget(opNotifyDesktop_, 4, 0);
  layout->addWidget(&opNotifyDesktop_->Caption(), 4, 1, 1, 2);
  int row = 5;
  layout->setRowMinimumHeight(row++, 8);
  for (LabelledBox* box : {opComputerGames_, opGamePreview_, opAskSurrender_, opWhyInMailGames_}) {
    layout->addWidget(box, row, 0);
    layout->addWidget(&box->Caption(), row++, 1, 1, 2);
  }
  layout->setColumnStretch(2, 1);
  layout->setRowStretch(row, 1);
  opBrowseSound_->setMinimumSize(96, 28);
}

int NotificationPage::Method() const {
  return (opNotifySound_->isChecked() ? bySound : 0) +
         (opNotifyDialog_->isChecked() ? byDialog : 0);
}

void NotificationPage::LoadOptions() {
  const int method = Settings().NotificationMethod;
  opNotifySound_->setChecked((method & bySound) != 0);
  opNotifyDialog_->setChecked((method & byDialog) != 0);
  ShowSound();
  SetSoundPickEnable();
  opTimeoutCombo_->setCurrentIndex(Settings().NotificationTimeout);
  opNotifyDesktop_->setChecked(Settings().DesktopNotices);
  opComputerGames_->setChecked(Settings().ComputerGamesCount);
  opGamePreview_->setChecked(Settings().ShowGamePreview);
  opAskSurrender_->setChecked(Settings().AskBeforeSurrender);
  opWhyInMailGames_->setChecked(Settings().WhyInMailGames);
}

void NotificationPage::SetOptions() {
  Settings().NotificationMethod = Method();
  // One beyond the list stays until another is chosen.
  const int timeout = opTimeoutCombo_->currentIndex();
  if (timeout >= 0) Settings().NotificationTimeout = timeout;
  Settings().DesktopNotices = opNotifyDesktop_->isChecked();
  shell::CountComputerGames(opComputerGames_->isChecked());
  Settings().ShowGamePreview = opGamePreview_->isChecked();
  Settings().AskBeforeSurrender = opAskSurrender_->isChecked();
  Settings().WhyInMailGames = opWhyInMailGames_->isChecked();
}

void NotificationPage::SetNotifyMethod() {
  Settings().NotificationMethod = Method();
  SetSoundPickEnable();
  Q_EMIT ApplyWanted();
}

void NotificationPage::SetSoundPickEnable() {
  opBrowseSound_->setEnabled((Settings().NotificationMethod & bySound) != 0);
}

void NotificationPage::BrowseSound() {
  pickSound_();
  ShowSound();
  Q_EMIT ApplyWanted();
}

void NotificationPage::ShowSound() {
  opNotificationSound_->setText(ShownLine(Settings().NotificationSoundWav));
}

void NotificationPage::SetToolTips() {
  opNotifySound_->SetTip("Whether to play a sound when a new move arrives");
  opNotifyDialog_->SetTip("Whether to display a message when a new move arrives");
  SetTip(*opBrowseSound_, "Click to choose a sound to play for new move notification");
  SetTip(*opNotificationSound_, "The sound chosen to notify you of a new move");
  SetTip(*opTimeoutCombo_, "How long to leave the new move notification dialog on screen");
  opNotifyDesktop_->SetTip("Whether your desktop shows a new move as it shows those of others");
  opComputerGames_->SetTip("Whether a game against the computer shows as a new move in the tray");
  opGamePreview_->SetTip("Whether the list shows the board of a game after a second");
  opAskSurrender_->SetTip("Whether to ask once more before a surrender is sent");
  opWhyInMailGames_->SetTip(
      "Whether the computer may tell you about the moves of a game against a person that still "
      "goes on");
}

}  // namespace ui

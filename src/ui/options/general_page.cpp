// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/options/general_page.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QScopedValueRollback>

#include <algorithm>

#include "ai/search_depths.h"
#include "platform/messages.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "platform/setting_variables.h"
#include "shell/tray_status.h"
#include "skin/look.h"
#include "skin/program_pictures.h"
#include "ui/options/labelled_box.h"
#include "ui/options/look_menu.h"
#include "widgets/row_table.h"
#include "widgets/tool_tips.h"

namespace ui {

using namespace Qt::StringLiterals;
using platform::Settings;

namespace {

constexpr int longestInterval = 30;  // seconds
constexpr int millisecondsPerSecond = 1000;
constexpr int picturesOfSet = 3;
constexpr int iconColumn = 48;
constexpr int iconSize = 22;

QLabel* NewLabel(QWidget* page, const char* name, const char* caption) {
  auto* label = new QLabel(QString::fromUtf8(caption), page);
  label->setObjectName(QLatin1StringView(name));
  return label;
}

}  // namespace

GeneralPage::GeneralPage(QWidget* parent)
    : QWidget(parent),
      Label1_(NewLabel(this, "Label1", "New move email check interval (seconds):")),
      opSysTrayTimerCombo_(NewCombo("opSysTrayTimerCombo", Label1_->text())),
      vsCSearchDepth_L_(NewLabel(this, "vsCSearchDepth_L", "Search depth:")),
      vsCSearchDepth_(NewCombo("vsCSearchDepth", vsCSearchDepth_L_->text())),
      Label2_(NewLabel(this, "Label2", "System tray icons:")),
      opIconList_(new RowTable({u"Normal"_s, u"New move"_s, u"No network"_s}, iconSize - 12, this)),
      opDisplaySplash_(new LabelledBox("opDisplaySplash", "Show splash screen at startup?", this)),
      opVerbose_(new LabelledBox("opVerbose", "Verbose notifications?", this)),
      opShowToolTips_(new LabelledBox("opShowToolTips", "Show tooltips?", this)),
      opDefaultView_(new LabelledBox("opDefaultView", "Always default to White view?", this)),
      opShowMoves_(new LabelledBox("opShowMoves", "Show where a piece may go?", this)),
      opSimpleUI_(new LabelledBox("opSimpleUI", "Windows style User Interface?", this)),
      opSystrayStartup_(
          new LabelledBox("opSystrayStartup", "Start Tarvolenix as a system tray icon?", this)),
      opSessionStart_(
          new LabelledBox("opSessionStart", "Start Tarvolenix when you log in?", this)) {
  Label1_->setBuddy(opSysTrayTimerCombo_);
  vsCSearchDepth_L_->setBuddy(vsCSearchDepth_);
  Label2_->setBuddy(opIconList_);
  opIconList_->setObjectName(u"opIconList"_s);
  opIconList_->setAccessibleName(Label2_->text());
  FillCombos();
  SetupIconList();
  for (QComboBox* combo : {opSysTrayTimerCombo_, vsCSearchDepth_}) {
    connect(combo, &QComboBox::activated, this, &GeneralPage::ApplyWanted);
  }
  connect(opIconList_, &QTableWidget::itemSelectionChanged, this, [this] {
    if (!loading_) Q_EMIT ApplyWanted();
  });
  for (LabelledBox* box : {opDisplaySplash_, opVerbose_, opShowToolTips_, opDefaultView_,
                           opShowMoves_, opSimpleUI_, opSystrayStartup_, opSessionStart_}) {
    connect(box, &QCheckBox::clicked, this, &GeneralPage::ApplyWanted);
  }
  connect(opSimpleUI_, &QCheckBox::clicked, this, &GeneralPage::WarnOfLaterStyle);
  connect(opSystrayStartup_, &QCheckBox::clicked, this, &GeneralPage::WarnOfLaterStart);
  if (IsSimpleUI()) SetSimpleUI();
}

QComboBox* GeneralPage::NewCombo(const char* name, const QString& accessibleName) {
  auto* combo = new QComboBox(this);
  combo->setObjectName(QLatin1StringView(name));
  combo->setAccessibleName(accessibleName);
  return combo;
}

void GeneralPage::FillCombos() {
  opSysTrayTimerCombo_->addItem(u"Never"_s, 0);
  for (int seconds = 1; seconds <= longestInterval; ++seconds) {
    opSysTrayTimerCombo_->addItem(QString::number(seconds), seconds * millisecondsPerSecond);
  }
  for (const char* depth : ai::searchDepths) vsCSearchDepth_->addItem(QLatin1StringView(depth));
}

/// A row for each set, so that its number, from 1, is the setting.
void GeneralPage::SetupIconList() {
  opIconList_->setRowCount(TrayPictureCount() / picturesOfSet);
  opIconList_->setIconSize({iconSize, iconSize});
  for (int row = 0; row < opIconList_->rowCount(); ++row) {
    for (int kind = 0; kind < picturesOfSet; ++kind) {
      auto* cell = new QTableWidgetItem;
      cell->setData(Qt::DecorationRole, TrayPicture(row * picturesOfSet + kind + 1));
      cell->setData(Qt::AccessibleTextRole, opIconList_->horizontalHeaderItem(kind)->text());
      opIconList_->setItem(row, kind, cell);
    }
    opIconList_->setRowHeight(row, iconSize + 6);
  }
  opIconList_->horizontalHeader()->setMinimumSectionSize(iconColumn);
  opIconList_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  opIconList_->horizontalHeader()->setStretchLastSection(true);
  opIconList_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void GeneralPage::SetSimpleUI() {
  auto* layout = new QGridLayout(this);
  layout->setSpacing(8);
  layout->addWidget(Label1_, 0, 0, 1, 3);
  layout->addWidget(opSysTrayTimerCombo_, 0, 3);
  layout->addWidget(vsCSearchDepth_L_, 1, 0, 1, 2);
  layout->addWidget(vsCSearchDepth_, 1, 2, 1, 2);
  int row = 2;
  for (LabelledBox* box : {opDisplaySplash_, opVerbose_, opShowToolTips_, opDefaultView_,
                           opShowMoves_, opSimpleUI_, opSystrayStartup_, opSessionStart_}) {
    layout->addWidget(box, row, 0);
    layout->addWidget(&box->Caption(), row++, 1);
  }
  layout->addWidget(Label2_, 2, 2, 1, 2);
  layout->addWidget(opIconList_, 3, 2, 7, 2);
  layout->setColumnStretch(1, 1);
  layout->setColumnStretch(2, 1);
  layout->setRowStretch(row, 1);
}

void GeneralPage::LoadOptions() {
  const QScopedValueRollback loading(loading_, true);
  const platform::SettingVariables& settings = Settings();
  opSysTrayTimerCombo_->setCurrentIndex(platform::Process().CheckTimer.Interval /
                                        millisecondsPerSecond);
  opDisplaySplash_->setChecked(settings.DisplaySplash);
  opVerbose_->setChecked(settings.Verbose);
  vsCSearchDepth_->setCurrentIndex(settings.SearchDepth);
  opIconList_->selectRow(settings.SysTrayIcons - 1);
  opShowToolTips_->setChecked(settings.ShowToolTips);
  opDefaultView_->setChecked(settings.DefaultView);
  opShowMoves_->setChecked(settings.ShowMoves);
  opSimpleUI_->setChecked(settings.SimpleUISaved);
  opSystrayStartup_->setChecked(settings.SystrayStartupSaved);
  opSessionStart_->setChecked(platform::TheSeams().sessionStart->StartsProgram());
}

void GeneralPage::SetOptions() {
  platform::SettingVariables& settings = Settings();
  platform::Process().CheckTimer.Interval = opSysTrayTimerCombo_->currentData().toInt();
  settings.DisplaySplash = opDisplaySplash_->isChecked();
  settings.Verbose = opVerbose_->isChecked();
  settings.SearchDepth = vsCSearchDepth_->currentIndex();
  settings.ShowToolTips = opShowToolTips_->isChecked();
  settings.ShowMoves = opShowMoves_->isChecked();
  const int icons = opIconList_->currentRow() + 1;
  if (icons < 1 || icons == settings.SysTrayIcons) return;
  settings.SysTrayIcons = icons;
  shell::UpdateTrayStatus(platform::TrayOperation::Modify);
}

void GeneralPage::SetLaterOptions() {
  platform::SettingVariables& settings = Settings();
  settings.DefaultView = opDefaultView_->isChecked();
  settings.SimpleUISaved = opSimpleUI_->isChecked();
  settings.SystrayStartupSaved = opSystrayStartup_->isChecked();
  SetSessionStart();
}

void GeneralPage::SetSessionStart() {
  platform::SessionStart& session = *platform::TheSeams().sessionStart;
  const bool wanted = opSessionStart_->isChecked();
  if (wanted == session.StartsProgram()) return;
  try {
    session.StartProgram(wanted);
  } catch (const platform::FileError& error) {
    platform::ShowMessage(
        platform::ErrorIcon, "Application startup",
        std::string("What starts when you log in stays as it was: ") + error.what() + ".", "OK", {},
        false, platform::FailureSound);
  }
}

/// Of the live value: turning the box back says nothing.
void GeneralPage::WarnOfLaterStyle(bool simple) {
  if (simple != Settings().SimpleUI) TellOfLaterStyle(simple);
}

void GeneralPage::WarnOfLaterStart(bool inTray) {
  if (inTray == Settings().SystrayStartup) return;
  platform::ShowMessage(
      platform::InformationIcon, "Application startup",
      inTray ? "Changing to a system tray startup will not take effect until the next time you run "
               "Tarvolenix."
             : "Changing to a windowed application startup will not take effect until the next "
               "time you run Tarvolenix.",
      "OK");
}

void GeneralPage::SetToolTips() {
  SetTip(*opSysTrayTimerCombo_, "The number of seconds between checking for new move emails");
  SetTip(*opIconList_, "Icons used in the system tray");
  SetTip(*vsCSearchDepth_, "How many moves the computer should look ahead when playing chess");
  opDisplaySplash_->SetTip("Whether to display the splash screen at application launch");
  opVerbose_->SetTip("Whether to display warning messages when illegal chess moves are attempted");
  opShowToolTips_->SetTip("Whether to display these little tool tips");
  opDefaultView_->SetTip(
      "View the board from the White side regardless of which colour you are playing");
  opShowMoves_->SetTip("Whether to mark the squares that a lifted piece may go to");
  opSimpleUI_->SetTip("Whether to display the skined UI or a simple Windows style User Interface");
  opSystrayStartup_->SetTip(
      "Whether to start tarvolenix as a system tray icon or a windowed application");
  opSessionStart_->SetTip("Whether the desktop starts Tarvolenix by itself when you log in");
}

}  // namespace ui

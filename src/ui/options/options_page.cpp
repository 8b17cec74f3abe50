// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/options/options_page.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QShortcut>
#include <QStackedLayout>
#include <QTabBar>
#include <QVBoxLayout>

#include <utility>

#include "platform/messages.h"
#include "platform/seams.h"
#include "platform/setting_variables.h"
#include "skin/layouts/options_page_layout.h"
#include "skin/look.h"
#include "skin/skin.h"
#include "skin/system_button.h"
#include "ui/options/chess_set_page.h"
#include "ui/options/general_page.h"
#include "ui/options/heuristics_page.h"
#include "ui/options/notification_page.h"
#include "ui/options/saved_ai_page.h"
#include "ui/options/skins_page.h"
#include "widgets/scrolling_page.h"
#include "widgets/tool_tips.h"
#include "widgets/window_places.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int margin = 16;
constexpr QSize plainSize(7700 / 15, 5500 / 15);
constexpr int plainTabCount = 5;  // without the skins

struct Tab {
  const char* caption;
  const char* tip;
  int help;
};

constexpr Tab tabRows[OptionsPage::tabCount] = {
    {"General", "General options", 7},
    {"Notification", "Chess move notification options", 8},
    {"Chess set", "Chess set selection options", 9},
    {"Heuristics", "Computer AI settings", 10},
    {"Saved AI", "Saved computer AI settings", 11},
    {"Skins", "Select user interface skins", platform::HelpOfSkins},
};

void Report(const char* title, const char* what, const char* page) {
  platform::ShowMessage(platform::ErrorIcon, title,
                        std::string("You do not have a valid ") + what +
                            " selected.  Please go to the " + page + " page and select one.",
                        "OK");
}

}  // namespace

OptionsPage::OptionsPage(std::function<void()> pickSound, QWidget* parent) : QDialog(parent) {
  setObjectName(u"OptionsPage"_s);
  setWindowTitle(u"Tarvolenix options"_s);
  AddTabs();
  AddPages(std::move(pickSound));
  AddButtons();
  if (!TakeLook(*this, layouts::optionsPage, [this] { SetSimpleUI(); })) return;
  ChangeTab(1);
  AddPageKeys();
  open_ = Load();
}

/// Ahead of the list or slider that has the focus.
void OptionsPage::AddPageKeys() {
  const std::pair<const char*, int> keys[] = {
      {"Ctrl+Tab", 1}, {"Ctrl+PgDown", 1}, {"Ctrl+Shift+Tab", -1}, {"Ctrl+PgUp", -1}};
  for (const auto& [key, by] : keys) {
    connect(new QShortcut(QKeySequence(QLatin1StringView(key)), this), &QShortcut::activated, this,
            [this, by = by] { TurnPage(by); });
  }
}

void OptionsPage::AddTabs() {
  if (IsSimpleUI()) {
    tabStrip_ = new QTabBar(this);
    tabStrip_->setObjectName(u"TabStrip"_s);
    for (int i = 0; i < plainTabCount; ++i)
      tabStrip_->addTab(QLatin1StringView(tabRows[i].caption));
    connect(tabStrip_, &QTabBar::currentChanged, this, [this](int index) { ChangeTab(index + 1); });
    return;
  }
  for (int tab = 1; tab <= tabCount; ++tab) {
    auto* button = new SystemButton(u"Tabset%1"_s.arg(tab), this);
    button->setText(QLatin1StringView(tabRows[tab - 1].caption));
    button->setCheckable(true);  // down while its page is shown
    button->setAutoExclusive(true);
    connect(button, &QAbstractButton::pressed, this, [this, tab] { ChangeTab(tab); });
    connect(button, &QAbstractButton::toggled, this, [this, tab](bool down) {
      if (down) ChangeTab(tab);  // by an arrow key
    });
    tabs_[static_cast<std::size_t>(tab - 1)] = button;
  }
}

void OptionsPage::AddPages(std::function<void()> pickSound) {
  general_ = new GeneralPage(this);
  notification_ = new NotificationPage(std::move(pickSound), this);
  chessSet_ = new ChessSetPage(this);
  heuristics_ = new HeuristicsPage(this);
  savedAI_ = new SavedAIPage(*heuristics_, this);
  skins_ = new SkinsPage(this);
  pages_ = {general_, notification_, chessSet_, heuristics_, savedAI_, skins_};
  for (int tab = 1; tab <= tabCount; ++tab) {
    Page(tab).setObjectName(u"Page_%1"_s.arg(tab));
    Page(tab).hide();
  }
  const auto enable = [this] { EnableApply(true); };
  connect(general_, &GeneralPage::ApplyWanted, this, enable);
  connect(notification_, &NotificationPage::ApplyWanted, this, enable);
  connect(chessSet_, &ChessSetPage::ApplyWanted, this, enable);
  connect(heuristics_, &HeuristicsPage::ApplyWanted, this, enable);
  connect(savedAI_, &SavedAIPage::ApplyWanted, this, enable);
  connect(skins_, &SkinsPage::ApplyWanted, this, enable);
}

void OptionsPage::AddButtons() {
  help_ = NewButton(*this, {"HelpButton", "HelpButtonS"}, u"?"_s, u"&Help"_s);
  help_->setAccessibleName(u"Help"_s);
  ok_ = NewButton(*this, {"OkButton", "OKButtonS"}, u"OK"_s, u"&OK"_s);
  cancel_ = NewButton(*this, {"CancelButton", "CancelButtonS"}, u"Cancel"_s, u"&Cancel"_s);
  apply_ = NewButton(*this, {"ApplyButton", "ApplyButtonS"}, u"Apply"_s, u"&Apply"_s);
  connect(help_, &QAbstractButton::clicked, this, &OptionsPage::ShowHelp);
  connect(ok_, &QAbstractButton::clicked, this, [this] {
    if (SetOptions()) accept();
  });
  connect(cancel_, &QAbstractButton::clicked, this, &QDialog::reject);
  connect(apply_, &QAbstractButton::clicked, this, &OptionsPage::Apply);
}

void OptionsPage::SetSimpleUI() {
  auto* buttons = new QHBoxLayout;
  help_->setMinimumSize(96, 28);
  buttons->addWidget(help_);
  buttons->addLayout(NewButtonRow({ok_, cancel_, apply_}), 1);
  static_cast<QPushButton*>(ok_)->setDefault(true);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(margin, margin, margin, margin);
  layout->setSpacing(8);
  layout->addWidget(tabStrip_);
  plainPages_ = new QStackedLayout;
  layout->addLayout(plainPages_, 1);
  QSize largest;
  for (int tab = 1; tab <= plainTabCount; ++tab) {
    largest = largest.expandedTo(Page(tab).minimumSizeHint());
    plainPages_->addWidget(new ScrollingPage(&Page(tab)));  // for large letters on a small screen
    Page(tab).show();
  }
  layout->addLayout(buttons);
  const QSize whole = minimumSizeHint() - plainPages_->minimumSize() + largest;
  resize(plainSize.expandedTo(whole).boundedTo(RoomOnScreen(*this)));
}

/// False where a list that must be there can't be filled.
bool OptionsPage::Load() {
  LoadOptions();
  chessSet_->PreviewSet();
  heuristics_->PopulateHeuristicsList();
  heuristics_->SetHeuristicSlider();
  if (!savedAI_->PopulateAIFileList()) return false;
  if (!IsSimpleUI()) {
    if (!skins_->PopulateSkinsList()) return false;
    skins_->PreviewSkin();
  }
  SetToolTips();
  EnableApply(false);
  return true;
}

void OptionsPage::LoadOptions() {
  general_->LoadOptions();
  notification_->LoadOptions();
  chessSet_->LoadOptions();
  skins_->LoadOptions();
}

void OptionsPage::EnableApply(bool flag) {
  applies_ = flag;
  apply_->setEnabled(flag);
}

bool OptionsPage::OptionsValid() const {
  if (!chessSet_->HasSet()) {
    Report("Chess set selection", "chess set", "Chess set");
  } else if (!chessSet_->HasBoard()) {
    Report("Chess board selection", "chess board", "Chess set");
  } else if (IsSimpleUI() ? skins_->Selected().isEmpty() : !skins_->HasSkin()) {
    Report("Skin selection", "skin", "Skins");
  } else {
    return true;
  }
  return false;
}

bool OptionsPage::SetOptions() {
  if (!OptionsValid()) return false;
  general_->SetOptions();
  notification_->SetOptions();
  chessSet_->SetOptions();
  heuristics_->ApplyHeuristics();
  skins_->SetWindowSize();
  const std::string skin = skins_->Selected().toStdString();
  if (!IsSimpleUI() && skin != platform::Settings().Skin && !ChangeSkin(skin)) return false;
  general_->SetLaterOptions();
  SetToolTips();
  EnableApply(false);
  return true;
}

void OptionsPage::Apply() {
  if (!applies_) return;
  SetOptions();
  RefreshInterfaceButtons();
  heuristics_->SetHeuristicSlider();
}

void OptionsPage::RefreshInterfaceButtons() {
  update();
  apply_->setEnabled(false);  // also where nothing was applied: until the next change
  ChangeTab(tab_);
}

void OptionsPage::ChangeTab(int tab) {
  const int before = std::exchange(tab_, tab);
  if (tabStrip_) {
    tabStrip_->setCurrentIndex(tab - 1);
    plainPages_->setCurrentIndex(tab - 1);
    return;
  }
  QAbstractButton* shown = tabs_[static_cast<std::size_t>(tab - 1)];
  shown->setChecked(true);
  if (tabs_[static_cast<std::size_t>(before - 1)]->hasFocus()) shown->setFocus();
  Page(before).hide();
  Page(tab).show();
}

void OptionsPage::SetToolTips() {
  for (int i = 0; i < tabCount; ++i) {
    const QString tip =
        platform::Settings().ShowToolTips ? QLatin1StringView(tabRows[i].tip) : QLatin1StringView();
    if (!tabStrip_) {
      tabs_[static_cast<std::size_t>(i)]->setToolTip(tip);
    } else if (i < plainTabCount) {
      tabStrip_->setTabToolTip(i, tip);
    }
  }
  general_->SetToolTips();
  notification_->SetToolTips();
  chessSet_->SetToolTips();
  heuristics_->SetToolTips();
  savedAI_->SetToolTips();
  skins_->SetToolTips();
}

void OptionsPage::ShowHelp() const { platform::TheSeams().help->ShowHelp(tabRows[tab_ - 1].help); }

void OptionsPage::done(int result) {
  platform::TheSeams().help->CloseHelp();
  QDialog::done(result);
}

void OptionsPage::TurnPage(int by) {
  const int count = tabStrip_ ? plainTabCount : tabCount;
  ChangeTab((tab_ - 1 + by + count) % count + 1);
}

void OptionsPage::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F1) {
    ShowHelp();
  } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    ok_->click();
  } else {
    QDialog::keyPressEvent(event);
  }
}

}  // namespace ui

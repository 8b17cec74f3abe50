// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/games/computer_opponent.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>

#include <algorithm>
#include <exception>
#include <utility>

#include "ai/ai_files.h"
#include "ai/heuristic_rows.h"
#include "ai/search_depths.h"
#include "platform/messages.h"
#include "platform/process_state.h"
#include "platform/setting_variables.h"
#include "widgets/shown_text.h"
#include "widgets/tool_tips.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

QComboBox* NewCombo(QWidget* dialog, const char* name, const char* tip) {
  auto* combo = new QComboBox(dialog);
  combo->setObjectName(QLatin1StringView(name));
  combo->setMinimumSize(220, 28);
  // A file's name may be long.
  combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  SetTip(*combo, tip);
  return combo;
}

void FillStyles(QComboBox& styles) {
  styles.addItem(u"As it is set now"_s);
  try {
    for (const std::string& name : ai::ListAIFiles()) {
      styles.addItem(ShownLine(name), QByteArray::fromStdString(name));
    }
  } catch (const std::exception&) {
    // There are none to choose from.
  }
}

/// What a file leaves out it doesn't change either.
bool Holds(const std::string& style, const ai::HeuristicTable& table) {
  bool isSame = true;
  try {
    const auto compare = [&](int row, std::int16_t value) {
      isSame = isSame && table.at(static_cast<std::size_t>(ai::HeuristicOnRow(row))) == value;
    };
    return !ai::ReadAIFile(style, compare) && isSame;
  } catch (const std::exception&) {
    return false;
  }
}

bool IsAnyStyle(const ai::HeuristicTable& table) {
  const auto styles = ai::ListAIFiles();
  return std::any_of(styles.begin(), styles.end(),
                     [&table](const std::string& style) { return Holds(style, table); });
}

std::string NewStyleName() {
  std::string name = "My style";
  for (int number = 2; ai::AIFileExists(name); ++number) {
    name = "My style " + std::to_string(number);
  }
  return name;
}

/// What the user has tuned by himself is nowhere else.
void KeepOwnStyle() {
  if (ai::Heuristics == ai::DefaultHeuristics() || IsAnyStyle(ai::Heuristics)) return;
  const std::string name = NewStyleName();
  ai::WriteAIFile(name, ai::Heuristics);
  platform::ShowMessage(platform::InformationIcon, "Computer AI settings",
                        "Your own settings of the computer's play are kept as the style \"" + name +
                            "\".||You can choose it here whenever you like to have them back.",
                        "OK");
}

bool HasKeptOwnStyle() {
  try {
    KeepOwnStyle();
    return true;
  } catch (const std::exception&) {
    platform::ShowMessage(platform::ErrorIcon, "Computer AI settings",
                          "Your own settings of the computer's play can't be kept as a style, so "
                          "they stay as they are.||Is the folder \"AI Files\" full or protected?",
                          "OK");
    return false;
  }
}

bool LoadStyle(const QByteArray& name) {
  if (!HasKeptOwnStyle()) return false;
  try {
    if (ai::LoadAIFile(name.toStdString())) return true;
  } catch (const std::exception&) {
    // It has gone, or can't be read.
  }
  platform::ShowMessage(
      platform::ErrorIcon, "File read error.",
      "There was an unknown error reading the heuristic data file.  Please try again.", "OK");
  return false;
}

}  // namespace

ComputerOpponent::ComputerOpponent(QWidget* dialog)
    : QObject(dialog),
      depth_(NewCombo(dialog, "SearchDepth", "How many moves the computer looks ahead")),
      style_(NewCombo(dialog, "Style", "What the computer wants and fears on the board")),
      setUp_(new QCheckBox(u"Set the &pieces up first"_s, dialog)) {
  for (const char* depth : ai::searchDepths) depth_->addItem(QLatin1StringView(depth));
  depth_->setCurrentIndex(platform::Settings().SearchDepth);
  FillStyles(*style_);
  setUp_->setObjectName(u"SetUpFirst"_s);
  setUp_->setChecked(platform::Process().SetupGame && platform::Settings().SetUpFirst);
  SetTip(*setUp_, "Else the game begins at once, from the usual position");
}

int ComputerOpponent::AddRows(QGridLayout& layout, int row) const {
  for (const auto& [caption, combo] :
       {std::pair(u"Searc&h depth"_s, depth_), std::pair(u"S&tyle"_s, style_)}) {
    auto* label = new QLabel(caption);
    label->setBuddy(combo);
    combo->setAccessibleName(QString(caption).remove(u'&'));
    layout.addWidget(label, row, 0);
    layout.addWidget(combo, row++, 1);
  }
  layout.addWidget(setUp_, row++, 1);
  return row;
}

bool ComputerOpponent::Apply() const {
  const QByteArray style = style_->currentData().toByteArray();
  if (!style.isEmpty() && !LoadStyle(style)) return false;
  platform::Settings().SearchDepth = depth_->currentIndex();
  platform::Process().SetupGame = platform::Settings().SetUpFirst = setUp_->isChecked();
  return true;
}

}  // namespace ui

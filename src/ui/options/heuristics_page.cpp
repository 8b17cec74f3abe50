// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/options/heuristics_page.h"

#include <QGridLayout>
#include <QLabel>
#include <QScopedValueRollback>

#include <algorithm>
#include <cstdlib>

#include "ai/heuristic_rows.h"
#include "skin/look.h"
#include "ui/options/heuristics_list.h"
#include "ui/options/motivation_slider.h"
#include "widgets/tool_tips.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

QLabel* NewLabel(QWidget* page, const QString& name, const QString& caption,
                 Qt::Alignment alignment) {
  auto* label = new QLabel(caption, page);
  label->setObjectName(name);
  label->setAlignment(alignment);
  return label;
}

/// What is hidden for a while keeps its place.
void KeepPlace(QWidget& control) {
  QSizePolicy policy = control.sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  control.setSizePolicy(policy);
}

}  // namespace

HeuristicsPage::HeuristicsPage(QWidget* parent)
    : QWidget(parent),
      opHeuristicsList_(new HeuristicsList(this)),
      opHeuristicSlider_(new MotivationSlider(this)),
      HLabelLow_(NewLabel(this, u"HLabelLow"_s, u"Low"_s, Qt::AlignLeft)),
      HLabelDontCare_(NewLabel(this, u"HLabelDontCare"_s, u"Dont care"_s, Qt::AlignHCenter)),
      HLabelHigh_(NewLabel(this, u"HLabelHigh"_s, u"High"_s, Qt::AlignRight)) {
  opHeuristicsList_->setObjectName(u"opHeuristicsList"_s);
  opHeuristicsList_->setAccessibleName(u"Heuristics"_s);
  opHeuristicSlider_->setObjectName(u"opHeuristicSlider"_s);
  connect(opHeuristicsList_, &HeuristicsList::RowSelected, this,
          &HeuristicsPage::SetHeuristicSlider);
  connect(opHeuristicsList_, &HeuristicsList::DropWanted, this, &HeuristicsPage::DropNewValue);
  connect(opHeuristicSlider_, &QSlider::valueChanged, this, &HeuristicsPage::MoveSlider);
  if (IsSimpleUI()) SetSimpleUI();
}

void HeuristicsPage::SetSimpleUI() {
  auto* layout = new QGridLayout(this);
  layout->setSpacing(8);
  layout->addWidget(opHeuristicsList_, 0, 0, 1, 3);
  layout->addWidget(opHeuristicSlider_, 1, 0, 1, 3);
  int column = 0;
  for (QLabel* label : {HLabelLow_, HLabelDontCare_, HLabelHigh_}) {
    layout->setColumnStretch(column, 1);
    layout->addWidget(label, 2, column++);
    KeepPlace(*label);
  }
  layout->setRowStretch(0, 1);
  KeepPlace(*opHeuristicSlider_);
}

void HeuristicsPage::SetToolTips() {
  SetTip(*opHeuristicsList_,
         "All the motivations to perform chess actions used to determin the computers next move");
  SetTip(*opHeuristicSlider_,
         "Set the value for a given heuristic from very low motivation to very high");
}

void HeuristicsPage::PopulateHeuristicsList() { opHeuristicsList_->Fill(ai::Heuristics); }

bool HeuristicsPage::SetHListLine(int row, int newValue) {
  const bool changed = opHeuristicsList_->CurrentValue(row) != newValue;
  opHeuristicsList_->SetNewValue(row, changed ? std::optional(newValue) : std::nullopt);
  opHeuristicsList_->MarkNewValue(row, changed);
  return changed;
}

std::int16_t HeuristicsPage::ApplyHeuristicListItem(int row) {
  if (const auto value = opHeuristicsList_->NewValue(row)) {
    opHeuristicsList_->SetCurrentValue(row, *value);
  }
  return static_cast<std::int16_t>(*opHeuristicsList_->CurrentValue(row));
}

void HeuristicsPage::ApplyHeuristics() {
  for (int row = ai::firstHeuristicRow; row < ai::heuristicRowCount; ++row) {
    const int index = ai::HeuristicOnRow(row);
    if (index < 0) continue;
    ai::Heuristics[static_cast<std::size_t>(index)] = ApplyHeuristicListItem(row);
    opHeuristicsList_->SetNewValue(row, std::nullopt);
    opHeuristicsList_->MarkNewValue(row, false);
  }
}

void HeuristicsPage::ResetHeuristics() {
  for (int row = ai::firstHeuristicRow; row < ai::heuristicRowCount; ++row) {
    if (ai::HeuristicOnRow(row) >= 0) SetHListLine(row, ai::GetDefaultOfRow(row));
  }
  opHeuristicsList_->SelectRow(ai::firstHeuristicRow);
  SetHeuristicSlider();
}

ai::HeuristicTable HeuristicsPage::CurrentMotivations() const {
  ai::HeuristicTable table{};
  for (int row = ai::firstHeuristicRow; row < ai::heuristicRowCount; ++row) {
    const auto value = opHeuristicsList_->CurrentValue(row);
    if (!value) continue;
    table[static_cast<std::size_t>(ai::HeuristicOnRow(row))] = static_cast<std::int16_t>(*value);
  }
  return table;
}

void HeuristicsPage::ShowSlider(bool shown) {
  for (QWidget* control : std::initializer_list<QWidget*>{opHeuristicSlider_, HLabelLow_,
                                                          HLabelDontCare_, HLabelHigh_}) {
    control->setVisible(shown);
  }
}

void HeuristicsPage::SetHeuristicSlider() {
  const QScopedValueRollback guard(settingSlider_, true);
  MotivationSlider& slider = *opHeuristicSlider_;
  const int row = opHeuristicsList_->Row();
  const auto stored = opHeuristicsList_->CurrentValue(row);
  const auto clamped = [&slider](int value) {
    return std::clamp(value, slider.minimum(), slider.maximum());
  };
  const int current = clamped(stored.value_or(0));
  slider.SetSelection(std::min(current, 0), std::abs(current));
  slider.setValue(clamped(opHeuristicsList_->NewValue(row).value_or(current)));
  if (stored) {
    slider.setAccessibleName(
        QString::fromUtf8(ai::heuristicRows[static_cast<std::size_t>(row)].text));
  }
  ShowSlider(stored.has_value());
}

void HeuristicsPage::MoveSlider() {
  if (settingSlider_) return;
  const QScopedValueRollback guard(settingSlider_, true);
  UpdateNewValue();
  UpdateHeuristicsList();
}

void HeuristicsPage::UpdateNewValue() {
  const int row = opHeuristicsList_->Row();
  const auto current = opHeuristicsList_->CurrentValue(row);
  if (!current) return;
  const int value = opHeuristicSlider_->value();
  if (value == *current) {
    opHeuristicsList_->SetNewValue(row, std::nullopt);
  } else {
    opHeuristicsList_->SetNewValue(row, value);
    Q_EMIT ApplyWanted();
  }
}

void HeuristicsPage::UpdateHeuristicsList() {
  const int row = opHeuristicsList_->Row();
  const auto current = opHeuristicsList_->CurrentValue(row);
  if (!current) return;
  const auto value = opHeuristicsList_->NewValue(row);
  opHeuristicsList_->MarkNewValue(row, value && value != current);
}

/// A current value beyond the slider's range isn't one that the slider has: it comes back all the
/// same.
void HeuristicsPage::DropNewValue(int row) {
  opHeuristicsList_->SetNewValue(row, std::nullopt);
  opHeuristicsList_->MarkNewValue(row, false);
  SetHeuristicSlider();
}

}  // namespace ui

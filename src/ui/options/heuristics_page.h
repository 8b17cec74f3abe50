// SPDX-License-Identifier: GPL-3.0-or-later
// The options page on which the user reads and changes what the computer wants. What he changes is
// pending in the list until ApplyHeuristics; who fills the list anew drops it.
#pragma once

#include <QWidget>

#include <cstdint>

#include "ai/heuristics.h"

class QLabel;

namespace ui {

class HeuristicsList;
class MotivationSlider;

class HeuristicsPage : public QWidget {
  Q_OBJECT

 public:
  /// In the skinned look its controls are placed by their names.
  explicit HeuristicsPage(QWidget* parent = nullptr);

  /// Shows the table that the computer plays with.
  void PopulateHeuristicsList();

  /// Makes a value of a row with a motivation pending, unless it is the current one. Whether it
  /// differs from that.
  bool SetHListLine(int row, int newValue);

  /// Makes the pending value of such a row its current one. Answers what is current then.
  std::int16_t ApplyHeuristicListItem(int row);

  /// The computer plays with what was pending from now on.
  void ApplyHeuristics();

  /// Makes the defaults pending, and selects the first motivation.
  void ResetHeuristics();

  /// Brings the slider in line with the selected row. A heading has none.
  void SetHeuristicSlider();

  /// What the list shows as current.
  ai::HeuristicTable CurrentMotivations() const;

  void SetToolTips();

 Q_SIGNALS:
  /// There is something to apply.
  void ApplyWanted();

 private:
  void SetSimpleUI();
  void MoveSlider();
  void DropNewValue(int row);
  void UpdateNewValue();
  void UpdateHeuristicsList();
  void ShowSlider(bool shown);

  HeuristicsList* opHeuristicsList_;
  MotivationSlider* opHeuristicSlider_;
  QLabel* HLabelLow_;
  QLabel* HLabelDontCare_;
  QLabel* HLabelHigh_;
  bool settingSlider_ = false;  ///< the slider moves, but not by the user's hand
};

}  // namespace ui

// SPDX-License-Identifier: GPL-3.0-or-later
// The list of motivations: what each is worth now, and what it is about to be worth. Its rows are
// those of ai/heuristic_rows.h; row 0 has the captions, which its heading shows. The rows under a
// heading can be folded away, by a double click, Enter, Space, Left and Right.
#pragma once

#include <bitset>
#include <optional>

#include "ai/heuristic_rows.h"
#include "ai/heuristics.h"
#include "widgets/row_table.h"

namespace ui {

class HeuristicsList : public RowTable {
  Q_OBJECT

 public:
  explicit HeuristicsList(QWidget* parent);

  /// Anew, with all rows unfolded, nothing pending and the first motivation selected.
  void Fill(const ai::HeuristicTable& table);

  int Row() const { return currentRow(); }  ///< the selected one; -1 where there is none

  /// Unfolds what it lies under.
  void SelectRow(int row);

  /// Nothing on a row without a motivation.
  std::optional<int> CurrentValue(int row) const;

  /// Nothing where none is pending.
  std::optional<int> NewValue(int row) const;

  void SetCurrentValue(int row, int value);
  void SetNewValue(int row, std::optional<int> value);

  /// Whether the new value shows blue and bold.
  void MarkNewValue(int row, bool marked);

  bool IsFolded(int heading) const { return folded_[static_cast<std::size_t>(heading)]; }
  void SetFolded(int heading, bool folded);

  QSize minimumSizeHint() const override;

 Q_SIGNALS:
  void RowSelected();

  /// The new value of this row isn't wanted any more.
  void DropWanted(int row);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void FillRow(int row);
  void ShowRows();
  bool IsFoldedAway(int row) const;
  bool ActOn(int row, int key);

  std::bitset<ai::heuristicRowCount> folded_;
};

}  // namespace ui

// SPDX-License-Identifier: GPL-3.0-or-later
// Two lists of moves side by side: the user's own, and the one that a mail has brought. Where they
// say different things, a word says so.
#pragma once

#include <vector>

#include "platform/windows.h"
#include "widgets/row_table.h"

namespace ui {

class MoveComparison : public RowTable {
  Q_OBJECT

 public:
  using Moves = std::vector<platform::HeldMailQuestion::MoveRow>;

  /// `moves` by number.
  explicit MoveComparison(const Moves& moves, QWidget* parent = nullptr);

  QSize sizeHint() const override { return {420, 220}; }

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void AddMove(const Moves::value_type& move);

  int parting_ = 0;  // the first row where the lists part
};

}  // namespace ui

// SPDX-License-Identifier: GPL-3.0-or-later
// The options page of how a game looks: chess sets and the boards that each of them has, and what
// stands beside the board.
#pragma once

#include <QWidget>

class QLabel;

namespace ui {

class LabelledBox;
class NameList;
class SetPreview;

class ChessSetPage : public QWidget {
  Q_OBJECT

 public:
  /// In the skinned look its controls are placed by their names.
  explicit ChessSetPage(QWidget* parent);

  void LoadOptions();
  void SetOptions();
  void SetToolTips();

  /// Whether one is selected, and still there.
  bool HasSet() const;
  bool HasBoard() const;

  void PreviewSet();

 Q_SIGNALS:
  /// There is something to apply.
  void ApplyWanted();

 private:
  void PopulateSetList();

  /// Without the program's own board the `previous` one is selected, where the set has it.
  void PopulateBoardList(const QString& previous = {});

  QString BoardPath() const;
  void SetSimpleUI();

  QLabel* Label8_;
  NameList* opChessSet_;
  QLabel* Label9_;
  NameList* opChessBoard_;
  LabelledBox* opCoordinates_;
  LabelledBox* opPairs_;
  SetPreview* pCBoard_;
};

}  // namespace ui

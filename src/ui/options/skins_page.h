// SPDX-License-Identifier: GPL-3.0-or-later
// The options page of the skins, and of how large the skinned windows are.
#pragma once

#include <QWidget>

class QComboBox;
class QLabel;

namespace ui {

class NameList;

class SkinsPage : public QWidget {
  Q_OBJECT

 public:
  /// Its controls are placed by their names: the plain look never shows it.
  explicit SkinsPage(QWidget* parent);

  /// False where the skins can't be listed; the user was told.
  bool PopulateSkinsList();

  void LoadOptions();
  void PreviewSkin();
  void SetToolTips();

  /// The name of the selected one; blank where there is none.
  QString Selected() const;

  /// Whether one is selected, and still there.
  bool HasSkin() const;

  void SetWindowSize();

 Q_SIGNALS:
  /// There is something to apply.
  void ApplyWanted();

 private:
  void WarnOfLaterSize();

  QLabel* SkinsList_L_;
  NameList* opSkinsList_;
  QLabel* opWindowSize_L_;
  QComboBox* opWindowSize_;
  QLabel* SkinPreview_L_;
  QLabel* PreviewBoard_;
  QLabel* PreviewInterface_;
};

}  // namespace ui

// SPDX-License-Identifier: GPL-3.0-or-later
// The two looks of a window, by the setting SimpleUI. A window declares what they are and takes one
// of them when it is made:
//
//   NewGameInfo::NewGameInfo() {
//     setObjectName(u"NewGameInfo"_s);                     // its row, its outline
//     ok_ = NewButton(*this, {"OkButton", "OKButtonS"}, u"OK"_s);
//     ...                                                  // the other controls, by their names
//     TakeLook(*this, layouts::newGameInfo, [this] { SetSimpleUI(); });
//   }
//
// In the skinned look the controls go to their places in the layout; SetSimpleUI lays them out
// plainly.
#pragma once

#include <QAbstractButton>
#include <QWidget>

#include <functional>
#include <initializer_list>

#include "platform/setting_variables.h"
#include "skin/layouts/layout.h"

class QHBoxLayout;

namespace ui {

inline bool IsSimpleUI() { return platform::Settings().SimpleUI; }

/// The names of a button in the two looks.
struct ButtonTwins {
  const char* skinned;
  const char* plain;
};

/// The button of the look that is chosen. A "&" of the plain caption, where there is another one,
/// marks its key; in both looks, where the captions are the same but for that.
QAbstractButton* NewButton(QWidget& window, const ButtonTwins& twins, const QString& caption,
                           const QString& plainCaption = {});

/// The buttons at the lower right of a plain dialog.
QHBoxLayout* NewButtonRow(std::initializer_list<QAbstractButton*> buttons);

/// False where the window's skin failed: it closes then, and needn't be made any further.
bool TakeLook(QWidget& window, const layouts::Layout& layout,
              const std::function<void()>& setSimpleUI);

/// The same for a dialog that is laid out in one way in both looks, once its controls are there: in
/// the skinned look it gets a frame round them. It wears it from now on, whatever the settings say
/// later.
bool TakeDialogLook(QWidget& dialog);

}  // namespace ui

// SPDX-License-Identifier: GPL-3.0-or-later
// Tool tips as the user wants them: all or none.
#pragma once

#include <QWidget>

#include "platform/setting_variables.h"

namespace ui {

/// Takes the control's tip away where the user wants none.
inline void SetTip(QWidget& control, const QString& tip) {
  control.setToolTip(platform::Settings().ShowToolTips ? tip : QString());
}

inline void SetTip(QWidget& control, const char* tip) { SetTip(control, QString::fromUtf8(tip)); }

/// While the control is grey the tip says, below, what it waits for.
inline void SetTip(QWidget& control, const char* tip, const char* whyGrey) {
  const bool tells = !control.isEnabled() && *whyGrey != '\0';
  SetTip(control,
         QString::fromUtf8(tip) + (tells ? u'\n' + QString::fromUtf8(whyGrey) : QString()));
}

}  // namespace ui

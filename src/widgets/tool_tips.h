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

}  // namespace ui

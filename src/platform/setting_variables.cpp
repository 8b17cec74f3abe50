// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/setting_variables.h"

namespace platform {

SettingVariables& Settings() {
  static SettingVariables variables;
  return variables;
}

}  // namespace platform

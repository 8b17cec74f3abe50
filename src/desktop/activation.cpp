// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/activation.h"

namespace desktop {
namespace {

constexpr const char* variable = "XDG_ACTIVATION_TOKEN";  // which the toolkit takes, and clears

}  // namespace

QByteArray OwnActivation() { return qgetenv(variable); }

void LetNextWindowComeToFront(const QByteArray& token) {
  if (!token.isEmpty()) qputenv(variable, token);
}

}  // namespace desktop

// SPDX-License-Identifier: GPL-3.0-or-later
// The skinned file picker. Its two modes have their buttons in the same places.
#pragma once

#include "skin/layouts/layout.h"

namespace ui::layouts {

inline constexpr Control selectSoundControls[] = {
    {"Caption", Surface::Ornament, {22, 22, 265, 24}, "Select a sound file..."},
    {"DirList", Surface::Field, {22, 52, 128, 84}},
    {"DriveList", Surface::Field, {22, 144, 128, 28}},
    {"FileList", Surface::Field, {159, 52, 128, 120}},
    {"HelpButton", Surface::Button, {22, 184, 28, 28}},
    {"Play", Surface::Button, {58, 184, 71, 28}},
    {"CancelSelect", Surface::Button, {137, 184, 71, 28}},
    {"OkSelect", Surface::Button, {216, 184, 71, 28}},
    {"ImportCancel", Surface::Button, {137, 184, 71, 28}},
    {"ImportOK", Surface::Button, {216, 184, 71, 28}},
};

inline constexpr Layout selectSound{"SelectSound", {309, 233}, selectSoundControls};

}  // namespace ui::layouts

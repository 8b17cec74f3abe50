// SPDX-License-Identifier: GPL-3.0-or-later
// The skinned question about a mail that was set aside: who wrote it, for which game, on a panel
// why it wasn't taken, and what to do about it. It is higher where two lists of moves stand above
// the buttons.
#pragma once

#include "skin/layouts/layout.h"

namespace ui::layouts {

inline constexpr Control heldMailFormControls[] = {
    {"MessageIcon", Surface::Picture, {28, 28, 48, 48}},
    {"Heading", Surface::Label, {92, 26, 480, 20}},
    {"Sender_L", Surface::Label, {92, 56, 84, 38}},
    {"Sender", Surface::Label, {180, 56, 392, 38}},
    {"Game_L", Surface::Label, {92, 104, 84, 56}},
    {"Game", Surface::Label, {180, 104, 392, 56}},
    {"Why", Surface::Panel, {36, 180, 528, 90}},
    {"Moves", Surface::Grid, {28, 294, 544, 200}},
    {"LaterButton", Surface::Button, {124, 510, 96, 28}},
    {"RefuseButton", Surface::Button, {228, 510, 152, 28}},
    {"AcceptButton", Surface::Button, {388, 510, 184, 28}},
};

inline constexpr Control heldMailNoteControls[] = {
    heldMailFormControls[0],
    heldMailFormControls[1],
    heldMailFormControls[2],
    heldMailFormControls[3],
    heldMailFormControls[4],
    heldMailFormControls[5],
    heldMailFormControls[6],
    {"LaterButton", Surface::Button, {124, 294, 96, 28}},
    {"RefuseButton", Surface::Button, {228, 294, 152, 28}},
    {"AcceptButton", Surface::Button, {388, 294, 184, 28}},
};

inline constexpr Layout heldMailForm{"HeldMailForm", {600, 565}, heldMailFormControls};
inline constexpr Layout heldMailNote{"HeldMailNote", {600, 349}, heldMailNoteControls};

}  // namespace ui::layouts

// SPDX-License-Identifier: GPL-3.0-or-later
// What mail and board ask of the shell.
#pragma once

namespace shell {

/// Fills the hooks that are the shell's to answer; the windows fill the others.
void FillHooks();

}  // namespace shell

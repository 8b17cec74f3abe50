// SPDX-License-Identifier: GPL-3.0-or-later
// Whether there is a screen to show windows on. The toolkit itself would end the process with a
// crash report where there is none.
#pragma once

namespace front {

/// False where neither display server can be reached.
bool DisplayIsThere();

}  // namespace front

// SPDX-License-Identifier: GPL-3.0-or-later
// The program's settings between the store and their variables. They are read once at start and
// written once at an orderly stop; what the options pages change lives in the variables until then.
#pragma once

namespace shell {

/// Sets all variables, the table of motivations and the polling interval from the store, the
/// default standing in for what is missing. False where that table can't be used: the others are
/// set, but the program must not start then. Raises platform::SettingsError, as UpgradeSettings
/// does, where the store can't be read: a default that is saved later would take the place of what
/// is there.
bool LoadSettings();

/// "False" from a user's first start until he was greeted. Who comes from an earlier version hasn't
/// got it.
inline constexpr const char* greeted = "Greeted";

/// Makes way for the factory's motivations where the stored ones can't be used: those are kept as
/// HeuristicsUnread, or with a number behind that where such a one is kept already. False where
/// they can't be; all is as it was then.
bool SetHeuristicsAside();

/// Writes all of them. A value that can't be written keeps its old content without a word.
void SaveSettings();

/// Makes a first start's or an older version's store complete, before it is loaded. The older
/// layout, one group per version, is left in place.
void UpgradeSettings();

}  // namespace shell

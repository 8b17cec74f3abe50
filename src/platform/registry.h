// SPDX-License-Identifier: GPL-3.0-or-later
// Reading and writing single settings, with the program's value-or-default convention: a missing
// value and an empty one are the same, and 0 and "False" count as present.
//
// A section is "Tarvolenix" for the product's own values, or "Tarvolenix/" and the name of a group
// below it (a version text of the older layout, or "Mail").
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/settings_store.h"

namespace platform {

inline constexpr const char* productSection = "Tarvolenix";
inline constexpr const char* mailSection = "Tarvolenix/Mail";

/// A value as it came from a store: text, or nothing.
using StoredValue = std::optional<std::string>;

bool IsEmptyValue(const StoredValue& value);

/// The value, or `defaultValue` where it is blank.
std::string ReturnValue(const StoredValue& value, std::string_view defaultValue);

/// Nothing where the value is missing or can't be read. No error reaches the caller.
StoredValue ReadRegistry(const std::string& section, const std::string& valueName);

/// The same for who decides by a value's absence: raises SettingsError where it can't be read.
StoredValue ReadRegistryOrRaise(const std::string& section, const std::string& valueName);

/// A numeric value is stored as a 32-bit whole number unless `forceText` is set, so "007" reads
/// back as "7". False on any error; the old value then stands.
bool WriteRegistry(const std::string& section, const std::string& valueName,
                   const std::string& value, bool forceText = false);

/// All of them as text, in one change that takes place whole or not at all.
bool WriteRegistry(const std::string& section, const SettingsStore::Values& values);

bool CreateRegistryKey(const std::string& section);

/// The names of the groups below the product's own values. Raises SettingsError.
std::vector<std::string> EnumRegistryKeys();

/// The crash guard of the mail logon: set from just before a logon until just after it, written
/// through at once.
void SetLogonStatus(bool inProgress);
bool GetLogonStatus();

/// Looks at the settings before anything is read or written, and mends them where they are damaged.
/// Answers what the user must be told then, else nothing. Raises SettingsError where the program
/// can't go on with them.
std::string MendSettings();

/// How booleans are written in the settings store.
std::string BooleanText(bool value);

}  // namespace platform

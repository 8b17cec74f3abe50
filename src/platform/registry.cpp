// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/registry.h"

#include "platform/conversions.h"
#include "platform/seams.h"

namespace platform {
namespace {

std::string GroupOf(const std::string& section) {
  const auto slash = section.find('/');
  return slash == std::string::npos ? std::string{} : section.substr(slash + 1);
}

}  // namespace

bool IsEmptyValue(const StoredValue& value) { return !value || value->empty(); }

std::string ReturnValue(const StoredValue& value, std::string_view defaultValue) {
  return IsEmptyValue(value) ? std::string(defaultValue) : *value;
}

StoredValue ReadRegistryOrRaise(const std::string& section, const std::string& valueName) {
  return TheSeams().settings->Read(GroupOf(section), valueName);
}

StoredValue ReadRegistry(const std::string& section, const std::string& valueName) {
  try {
    return ReadRegistryOrRaise(section, valueName);
  } catch (const SettingsError&) {
    return std::nullopt;
  }
}

bool WriteRegistry(const std::string& section, const std::string& valueName,
                   const std::string& value, bool forceText) {
  std::string stored = value;
  if (!forceText && IsNumeric(value)) {
    const auto number = ToInteger32(value);
    if (!number) return false;
    stored = std::to_string(*number);
  }
  return WriteRegistry(section, {{valueName, stored}});
}

bool WriteRegistry(const std::string& section, const SettingsStore::Values& values) {
  return TheSeams().settings->Write(GroupOf(section), values);
}

bool CreateRegistryKey(const std::string& section) {
  return TheSeams().settings->CreateGroup(GroupOf(section));
}

std::vector<std::string> EnumRegistryKeys() { return TheSeams().settings->Groups(); }

void SetLogonStatus(bool inProgress) {
  WriteRegistry(productSection, "LogonStatus", BooleanText(inProgress));
}

bool GetLogonStatus() {
  return ReturnValue(ReadRegistry(productSection, "LogonStatus"), "False") == "True";
}

std::string MendSettings() {
  std::string told = TheSeams().settings->Mend();
  // The state before the latest change is mostly that of a logon, which has long come back.
  if (!told.empty()) SetLogonStatus(false);
  return told;
}

std::string BooleanText(bool value) { return value ? "True" : "False"; }

}  // namespace platform

// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/exchange/exchange_settings.h"

#include <QDir>
#include <QFileInfo>

#include "platform/registry.h"
#include "widgets/shown_text.h"

namespace ui {
namespace {

constexpr const char* folderValue = "PgnFolder";

std::string MailValue(const char* name) {
  return platform::ReturnValue(platform::ReadRegistry(platform::mailSection, name), "");
}

}  // namespace

Myself WhoIAm() { return {MailValue("MyName"), MailValue("MyAddress")}; }

QString LastFolder() {
  const auto kept = platform::ReadRegistry(platform::productSection, folderValue);
  const QString folder = AsItIs(platform::ReturnValue(kept, ""));
  return QFileInfo(folder).isDir() ? folder : QDir::homePath();
}

void KeepFolderOf(const QString& path) {
  platform::WriteRegistry(platform::productSection, folderValue,
                          QFileInfo(path).absolutePath().toStdString());
}

}  // namespace ui

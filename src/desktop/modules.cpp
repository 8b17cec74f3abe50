// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/modules.h"

#include <QFile>
#include <QLibrary>

#include <string>

#include "desktop/folders.h"
#include "platform/process_state.h"

namespace desktop {

QFunctionPointer ModuleFunction(const char* module, const char* name, QString& failure) {
  const std::string file =
      std::string("tarvolenix-") + module + '-' + platform::GetVersionText() + ".so";
  // Beside a program that lies in one folder with all that is its own.
  for (const std::string& folder : {ProgramFolder(), std::string(TARVOLENIX_MODULES)}) {
    const QString path = QString::fromStdString(folder + file);
    QLibrary library(path);
    if (const QFunctionPointer function = library.resolve(name)) return function;
    failure = library.errorString();
    if (QFile::exists(path)) break;  // another build's wouldn't fit
  }
  return nullptr;
}

}  // namespace desktop

// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/modules.h"

#include <QLibrary>

#include <string>

#include "desktop/folders.h"

namespace desktop {

QFunctionPointer ModuleFunction(const char* file, const char* name, QString& failure) {
  // Beside a program that lies in one folder with all that is its own.
  for (const std::string& folder : {ProgramFolder(), std::string(TARVOLENIX_MODULES)}) {
    QLibrary module(QString::fromStdString(folder + file));
    if (const QFunctionPointer function = module.resolve(name)) return function;
    failure = module.errorString();
  }
  return nullptr;
}

}  // namespace desktop

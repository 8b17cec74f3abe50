// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/modules.h"

#include <QFile>
#include <QLibrary>

#include <string>

#include "desktop/folders.h"

namespace desktop {

QFunctionPointer ModuleFunction(const char* file, const char* name, QString& failure) {
  // Beside a program that lies in one folder with all that is its own.
  for (const std::string& folder : {ProgramFolder(), std::string(TARVOLENIX_MODULES)}) {
    const QString path = QString::fromStdString(folder + file);
    QLibrary module(path);
    if (const QFunctionPointer function = module.resolve(name)) return function;
    failure = module.errorString();
    if (QFile::exists(path)) break;  // another build's wouldn't fit
  }
  return nullptr;
}

}  // namespace desktop

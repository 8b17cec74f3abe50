// SPDX-License-Identifier: GPL-3.0-or-later
// Parts of the program that are loaded when they are first needed: modules that lie beside it, or
// where the package has them. Their files have the version in their names: what a running program
// loads after another one was installed would not fit.
#pragma once

#include <QFunctionPointer>
#include <QString>

namespace desktop {

/// A function of a module by its C name. Null where there is none, with the reason in `failure`.
QFunctionPointer ModuleFunction(const char* module, const char* name, QString& failure);

}  // namespace desktop

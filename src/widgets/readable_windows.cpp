// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/readable_windows.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QWidget>

namespace ui {
namespace {

/// Asked with the name of the widget's own class first. Dialogs are known as what they are.
QAccessibleInterface* ReadableFor(const QString& className, QObject* object) {
  auto* widget = qobject_cast<QWidget*>(object);
  if (!widget || !className.startsWith(QLatin1StringView("ui::"))) return nullptr;
  if (widget->windowType() != Qt::Window) return nullptr;
  return new QAccessibleWidget(widget, QAccessible::Window);
}

}  // namespace

void LetWindowsBeRead() { QAccessible::installFactory(ReadableFor); }

}  // namespace ui

// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/readable_windows.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QWidget>

namespace ui {
namespace {

/// May be asked for before the widget has found its place in a window.
class ReadableWidget : public QAccessibleWidget {
 public:
  using QAccessibleWidget::QAccessibleWidget;

  QAccessible::Role role() const override {
    return widget()->windowType() == Qt::Window ? QAccessible::Window : QAccessibleWidget::role();
  }
};

/// Asked with the name of the widget's own class first. Dialogs, buttons and their like are known
/// as what they are.
QAccessibleInterface* ReadableFor(const QString& className, QObject* object) {
  auto* widget = qobject_cast<QWidget*>(object);
  if (!widget || !className.startsWith(QLatin1StringView("ui::"))) return nullptr;
  if (widget->metaObject()->superClass() != &QWidget::staticMetaObject) return nullptr;
  return new ReadableWidget(widget);
}

}  // namespace

void LetWindowsBeRead() { QAccessible::installFactory(ReadableFor); }

}  // namespace ui

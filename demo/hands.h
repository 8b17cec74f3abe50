// SPDX-License-Identifier: GPL-3.0-or-later
// Mouse and keyboard as a user has them: what they do goes through the X server and arrives at
// whatever window is there. They work while the program's own event loop goes on.
#pragma once

#include <QPoint>
#include <QProcess>
#include <QString>
#include <QStringList>

namespace demo {

class Hands {
 public:
  Hands() = default;
  ~Hands() { xdotool_.waitForFinished(); }
  Hands(const Hands&) = delete;
  Hands& operator=(const Hands&) = delete;

  void Click(QPoint at);
  void RightClick(QPoint at);
  void PointAt(QPoint at);
  void Drag(QPoint from, QPoint to);

  /// Into the field at that place, in the stead of what stands there.
  void Type(QPoint field, const QString& text);

  bool AreBusy() const { return xdotool_.state() != QProcess::NotRunning; }

 private:
  void Do(const QStringList& words);

  QProcess xdotool_;
};

}  // namespace demo

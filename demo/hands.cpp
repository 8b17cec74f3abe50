// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/hands.h"

namespace demo {

using namespace Qt::StringLiterals;

namespace {

/// A moment between two movements of a hand.
const QStringList pause{u"sleep"_s, u"0.03"_s};

QStringList MoveTo(QPoint point) {
  return QStringList{u"mousemove"_s, QString::number(point.x()), QString::number(point.y())} +
         pause;
}

}  // namespace

void Hands::Click(QPoint at) { Do(MoveTo(at) + QStringList{u"click"_s, u"1"_s}); }

void Hands::RightClick(QPoint at) { Do(MoveTo(at) + QStringList{u"click"_s, u"3"_s}); }

void Hands::PointAt(QPoint at) { Do(MoveTo(at - QPoint(3, 0)) + MoveTo(at)); }

void Hands::Drag(QPoint from, QPoint to) {
  Do(MoveTo(from) + QStringList{u"mousedown"_s, u"1"_s} + pause + MoveTo((from + to) / 2) +
     MoveTo(to) + QStringList{u"mouseup"_s, u"1"_s});
}

void Hands::Type(QPoint field, const QString& text) {
  Do(MoveTo(field) + QStringList{u"click"_s, u"1"_s} + pause +
     QStringList{u"key"_s, u"ctrl+a"_s, u"type"_s, u"--delay"_s, u"8"_s, text});
}

void Hands::Do(const QStringList& words) {
  xdotool_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  xdotool_.start(u"xdotool"_s, words);
}

}  // namespace demo

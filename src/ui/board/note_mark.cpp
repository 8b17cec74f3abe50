// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/note_mark.h"

#include <QResizeEvent>

#include "widgets/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {
constexpr int longestStart = 200;
constexpr int fewestLetters = 12;
}  // namespace

NoteMark::NoteMark(QWidget* parent) : LinkButton(u"NoteMark"_s, {}, parent, Qt::AlignLeft) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  hide();
}

void NoteMark::Show(const QString& note) {
  words_ = ShownLine(note.left(longestStart)).simplified();
  setAccessibleName(u"Note: "_s + words_);
  Fit();
  setVisible(!words_.isEmpty());
}

QSize NoteMark::sizeHint() const {
  return {fewestLetters * fontMetrics().averageCharWidth(), LinkButton::sizeHint().height()};
}

void NoteMark::Fit() {
  const int room =
      width() - LinkButton::sizeHint().width() + fontMetrics().horizontalAdvance(text());
  setText(fontMetrics().elidedText(u"Note: "_s + words_, Qt::ElideRight, room));
}

void NoteMark::resizeEvent(QResizeEvent* event) {
  LinkButton::resizeEvent(event);
  Fit();
}

}  // namespace ui

// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/study/note_box.h"

#include <QMimeData>
#include <QSignalBlocker>
#include <QToolTip>

#include "study/game_study.h"
#include "widgets/shown_text.h"
#include "widgets/typed_text.h"

namespace ui {

using namespace Qt::StringLiterals;
using study::longestNote;

namespace {
constexpr int visibleLines = 4;
}

NoteBox::NoteBox(const QString& name, const QString& meaning, QWidget* parent)
    : QPlainTextEdit(parent) {
  setObjectName(name);
  setAccessibleName(meaning);
  setPlaceholderText(u"Only you see what you write here"_s);
  setTabChangesFocus(true);
  setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  connect(this, &QPlainTextEdit::textChanged, this, [this] {
    CutToLength();
    Q_EMIT Changed();
  });
}

void NoteBox::Show(const std::string& note) {
  if (Note() == note) return;
  const QSignalBlocker quiet(this);
  setPlainText(AsItIs(note));
}

void NoteBox::MakeWritable(bool writable) {
  setReadOnly(!writable);
  if (!writable) setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

/// The end of a text that is pasted, or a letter at the end of a long note, doesn't fit any more.
void NoteBox::insertFromMimeData(const QMimeData* source) {
  const int room =
      longestNote - CountCharacters(toPlainText()) + CountCharacters(textCursor().selectedText());
  QString text = source->text();
  text.remove(QChar::Null);
  textCursor().insertText(FirstCharacters(text, std::max(0, room)));
}

void NoteBox::CutToLength() {
  const QString text = toPlainText();
  if (text.size() <= longestNote || CountCharacters(text) <= longestNote) return;
  QTextCursor typed = textCursor();
  const QSignalBlocker quiet(this);
  while (CountCharacters(toPlainText()) > longestNote && typed.position() > 0) {
    typed.deletePreviousChar();
  }
  QToolTip::showText(mapToGlobal(rect().bottomLeft()), u"A note has at most 10,000 characters."_s,
                     this);
}

QSize NoteBox::sizeHint() const {
  const int edges = 2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
  return {240, visibleLines * fontMetrics().lineSpacing() + edges};
}

QSize NoteBox::minimumSizeHint() const {
  return {120, sizeHint().height() - (visibleLines - 2) * fontMetrics().lineSpacing()};
}

}  // namespace ui

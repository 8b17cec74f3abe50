// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/study/notes_form.h"

#include <QLabel>
#include <QVBoxLayout>

#include "platform/help.h"
#include "skin/look.h"
#include "ui/help/help_key.h"
#include "ui/study/note_box.h"
#include "widgets/outcome_line.h"
#include "widgets/reading_dialog.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {
constexpr QSize usualSize(46, 24);  // characters and lines
}

NotesForm::NotesForm(QWidget* parent)
    : QDialog(parent),
      game_(new NoteBox(u"GameNote"_s, u"Note on this game"_s, this)),
      where_(new QLabel(this)),
      position_(new NoteBox(u"PositionNote"_s, u"Note on this position"_s, this)),
      trouble_(new OutcomeLine(this)) {
  setObjectName(u"NotesForm"_s);
  setWindowTitle(u"Notes"_s);
  GiveHelpKey(*this, platform::HelpOfBoard);
  auto* ofGame = new QLabel(u"On this &game"_s, this);
  ofGame->setBuddy(game_);
  where_->setBuddy(position_);
  where_->setTextFormat(Qt::PlainText);
  connect(game_, &NoteBox::Changed, this, [this] { Q_EMIT GameNoteChanged(game_->Note()); });
  connect(position_, &NoteBox::Changed, this,
          [this] { Q_EMIT PositionNoteChanged(position_->Note()); });
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setSpacing(6);
  layout->addWidget(ofGame);
  layout->addWidget(game_, 1);
  layout->addSpacing(8);
  layout->addWidget(where_);
  layout->addWidget(position_, 1);
  layout->addWidget(trouble_);
  layout->addSpacing(8);
  layout->addWidget(NewCloseButton(*this), 0, Qt::AlignRight);
  ResizeToText(*this, usualSize);
  TakeDialogLook(*this);
}

void NotesForm::ShowGame(const std::string& note) { game_->Show(note); }

void NotesForm::ShowPosition(const QString& where, const std::string& note) {
  where_->setText(u"On this &position: "_s + where);
  position_->Show(note);
}

void NotesForm::ShowTrouble(const QString& sentence, bool writable) {
  trouble_->ShowRemark(sentence);
  for (NoteBox* box : {game_, position_}) box->MakeWritable(writable);
}

}  // namespace ui

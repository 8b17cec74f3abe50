// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/exchange/import_result.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include <map>

#include "platform/help.h"
#include "skin/look.h"
#include "ui/exchange/clipboard.h"
#include "ui/help/help_key.h"
#include "widgets/dialog_button.h"
#include "widgets/reading_dialog.h"
#include "widgets/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize usualSize(98, 20);  // characters and lines

/// More than anybody reads; all of them are in what is copied.
constexpr qsizetype mostLines = 2000;

/// Such as "14... Qxh9", as players write it.
QString MoveText(const pgn::RefusedGame& game) {
  if (game.ply == 0) return {};
  const QString number =
      QString::number((game.ply + 1) / 2) + (game.ply % 2 == 1 ? u"."_s : u"..."_s);
  return u", move "_s + (number + u' ' + ShownLine(game.move)).trimmed();
}

QString ShownLines(const QStringList& lines) {
  if (lines.size() <= mostLines) return lines.join(u'\n');
  return lines.first(mostLines).join(u'\n') + u"\n... and %1 more."_s.arg(lines.size() - mostLines);
}

class ResultDialog : public QDialog {
 public:
  ResultDialog(QWidget& window, const QString& heading, const QStringList& lines)
      : QDialog(&window), heading_(heading), lines_(lines) {
    setObjectName(u"ImportResult"_s);
    setWindowTitle(u"Import PGN"_s);
    GiveHelpKey(*this, platform::HelpOfGameList);
    auto* told = new QLabel(heading + u'.');
    told->setObjectName(u"Heading"_s);
    told->setTextFormat(Qt::PlainText);
    told->setWordWrap(true);
    auto* text = new QPlainTextEdit(ShownLines(lines));
    text->setObjectName(u"LeftOut"_s);
    text->setAccessibleName(u"Games that were left out"_s);
    text->setReadOnly(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text->setTabChangesFocus(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSpacing(12);
    layout->addWidget(told);
    layout->addWidget(text, 1);
    layout->addLayout(NewButtons());
    ResizeToText(*this, usualSize);
    TakeDialogLook(*this);
  }

 private:
  QHBoxLayout* NewButtons() {
    auto* copy = NewDialogButton(u"CopyButton"_s, u"&Copy"_s);
    connect(copy, &QPushButton::clicked, this, [this] {
      CopyText(*this, heading_ + u".\n"_s + lines_.join(u'\n') + u'\n', u"The list was copied."_s);
    });
    auto* ok = NewDialogButton(u"OkButton"_s, u"OK"_s);
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addStretch();
    buttons->addWidget(copy);
    buttons->addWidget(ok);
    ok->setFocus();
    return buttons;
  }

  const QString heading_;
  const QStringList lines_;
};

}  // namespace

QStringList LeftOutLines(const pgn::ImportedGames& games, const std::vector<pgn::KnownGame>& known,
                         bool areKept) {
  std::map<int, QString> lines;
  for (const pgn::ImportedNote& note : games.notes) {
    lines[note.number] =
        areKept ? u": its comments are in your private note, and go out with no mail."_s
                : u": taken without its comments, as your notes couldn't be kept."_s;
  }
  for (const auto& game : known) lines[game.number] = u": already there."_s;
  for (const pgn::RefusedGame& game : games.refused) {
    lines[game.number] = MoveText(game) + u": "_s + ShownLine(game.why);
  }
  QStringList texts;
  for (const auto& [number, text] : lines) texts << u"Game %1"_s.arg(number) + text;
  return texts;
}

void ShowImportResult(QWidget& window, const QString& heading, const QStringList& lines) {
  ResultDialog(window, heading, lines).exec();
}

}  // namespace ui

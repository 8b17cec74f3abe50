// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/opponent_words.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QPointer>

#include "board/history.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "widgets/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int longestBold = 100;
constexpr int quietMilliseconds = 8000;

/// Why everything is grey; nothing where the user can move.
QString OfflineNotice() {
  const platform::ProcessState& process = platform::Process();
  if (!process.Offline || process.StandAlone || process.ComputerGame) return {};
  return u"You are working offline: moves can't be made or sent until your mail service is "
         u"reached."_s;
}

bool IsModifier(int key) {
  return (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) || key == Qt::Key_AltGr;
}

}  // namespace

OpponentWords::OpponentWords(const board::Game& board, QWidget* parent)
    : PlainTextView(parent), board_(board) {
  setObjectName(u"OpponentComment"_s);
  setAccessibleName(u"Player comments"_s);
  setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  quietTimer_.setSingleShot(true);
  connect(&quietTimer_, &QTimer::timeout, this, &OpponentWords::EndQuiet);
  // The next board may open before this one is gone.
  platform::TheSeams().hooks.quietMessage = [self = QPointer(this)](const std::string& text) {
    if (self) self->TellQuietly(ShownLine(text));
  };
}

void OpponentWords::Refresh() {
  const bool same = board_.Moves.Count() == quietCount_ && Words() == quietWords_;
  if (quietTimer_.isActive() && !same) EndQuiet();
  ShowWords();
}

/// The program sees it wherever it is done; what is typed with a key that does nothing alone isn't.
bool OpponentWords::eventFilter(QObject* watched, QEvent* event) {
  const bool acts = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::Wheel ||
                    (event->type() == QEvent::KeyPress &&
                     !IsModifier(static_cast<const QKeyEvent&>(*event).key()));
  if (acts && event->spontaneous()) EndQuiet();
  return PlainTextView::eventFilter(watched, event);
}

void OpponentWords::TellQuietly(const QString& text) {
  quietMessage_ = text;
  quietWords_ = Words();
  quietCount_ = board_.Moves.Count();
  quietTimer_.start(quietMilliseconds);
  QCoreApplication::instance()->installEventFilter(this);
  ShowWords();
  QAccessibleEvent alert(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

void OpponentWords::EndQuiet() {
  quietTimer_.stop();
  QCoreApplication::instance()->removeEventFilter(this);
  ShowWords();
}

QString OpponentWords::Words() const {
  QStringList words;
  for (const std::string& part : {board::LastWords(board_), board_.OpponentComment}) {
    if (!part.empty()) words << Shown(part);
  }
  return words.join(u'\n');
}

void OpponentWords::ShowWords() {
  const QString words = quietTimer_.isActive() ? quietMessage_ : Words();
  QFont own = font();
  own.setBold(!words.isEmpty() && words.size() <= longestBold);
  if (own != font()) setFont(own);
  SetText(words.isEmpty() ? OfflineNotice() : words);
}

}  // namespace ui

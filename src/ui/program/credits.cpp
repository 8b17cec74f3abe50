// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/program/credits.h"

#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>

#include "skin/layouts/credits_layout.h"
#include "skin/look.h"
#include "ui/help/help_key.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int beatMilliseconds = 40;
constexpr int firstPlace = 32;  ///< of the first line, below the top

constexpr const char* names =
    "<p><b>Tarvolenix</b><br>Chess by ordinary e-mail</p>"
    "<p><b>Made and published by</b><br>Norlewick</p>"
    "<p><b>Rules, board, mail and store</b><br>The programmers of the Tarvolenix project</p>"
    "<p><b>Chess sets, boards, skins, icons and sounds</b><br>Drawn and tuned for this program by "
    "the project</p>"
    "<p><b>Help and texts</b><br>The writers of the project</p>"
    "<p><b>Trying it out, and finding what was wrong</b><br>The testers of the project</p>"
    "<p><b>With thanks to those who made</b><br>Qt, which draws the windows<br>VMime, which reads "
    "and writes the mails<br>libcurl, which carries them<br>QtKeychain, which keeps the "
    "passwords<br>CMake, Ninja and GCC, which build it<br>GoogleTest and Google Benchmark, which "
    "check it<br>and Debian, on which it all stands</p>"
    "<p><b>And to you,</b><br>who still write letters.</p>";

}  // namespace

Credits::Credits(QWidget* parent)
    : QDialog(parent),
      page_(new QScrollArea(this)),
      ok_(NewButton(*this, {"OkButton", "OKButtonS"}, u"OK"_s)) {
  setObjectName(u"Credits"_s);
  setWindowTitle(u"Credits"_s);
  page_->setObjectName(u"CreditsText"_s);
  page_->setFrameShape(QFrame::NoFrame);
  page_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  page_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  page_->setWidgetResizable(true);
  page_->setAccessibleName(windowTitle());
  auto* text = new QLabel(QLatin1StringView(names));
  text->setAlignment(Qt::AlignHCenter);
  text->setWordWrap(true);
  page_->setWidget(text);
  // The window's own ground shows through.
  page_->viewport()->setAutoFillBackground(false);
  text->setAutoFillBackground(false);
  connect(ok_, &QAbstractButton::clicked, this, &QDialog::accept);
  auto* beat = new QTimer(this);
  connect(beat, &QTimer::timeout, this, &Credits::Rise);
  beat->start(beatMilliseconds);
  TakeLook(*this, layouts::credits, [this] { SetSimpleUI(); });
  ok_->setFocus();
  GiveHelpKey(*this, platform::HelpContents);
}

/// With a page of nothing ahead and behind, the names come in from below and leave at the top.
void Credits::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  page_->widget()->setContentsMargins(0, page_->height(), 0, page_->height());
  page_->verticalScrollBar()->setValue(page_->height() - firstPlace);
}

/// They stand still for who points at them, or goes there with the keyboard.
void Credits::Rise() {
  if (page_->underMouse() || page_->hasFocus()) return;
  QScrollBar& place = *page_->verticalScrollBar();
  place.setValue(place.value() < place.maximum() ? place.value() + 1 : 0);
}

void Credits::SetSimpleUI() {
  page_->setMinimumSize(400, 200);
  ok_->setMinimumSize(96, 28);
  static_cast<QPushButton*>(ok_)->setDefault(true);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setSpacing(16);
  layout->addWidget(page_, 1);
  layout->addWidget(ok_, 0, Qt::AlignHCenter);
}

}  // namespace ui

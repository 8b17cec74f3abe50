// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/program/credits.h"

#include <QPushButton>
#include <QVBoxLayout>

#include "skin/layouts/credits_layout.h"
#include "skin/look.h"
#include "ui/help/help_key.h"
#include "widgets/rising_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr QColor ivory(0xf6, 0xed, 0xd6);

struct CreditRow {
  const char* text;
  bool isHeading;
};

constexpr CreditRow creditRows[] = {
    {"Tarvolenix", true},
    {"Chess by ordinary e-mail", false},
    {"", false},
    {"Made and published by", true},
    {"Norlewick", false},
    {"", false},
    {"Rules, board, mail and store", true},
    {"The programmers of the Tarvolenix project", false},
    {"", false},
    {"Chess sets, boards, skins, icons and sounds", true},
    {"Drawn and tuned for this program by the project", false},
    {"", false},
    {"Help and texts", true},
    {"The writers of the project", false},
    {"", false},
    {"Trying it out, and finding what was wrong", true},
    {"The testers of the project", false},
    {"", false},
    {"With thanks to those who made", true},
    {"Qt, which draws the windows", false},
    {"VMime, which reads and writes the mails", false},
    {"libcurl, which carries them", false},
    {"QtKeychain, which keeps the passwords", false},
    {"CMake, Ninja and GCC, which build it", false},
    {"GoogleTest and Google Benchmark, which check it", false},
    {"and Debian, on which it all stands", false},
    {"", false},
    {"And to you,", true},
    {"who still write letters.", false},
    {"", false},
};

std::vector<RisingLine> Lines() {
  std::vector<RisingLine> lines;
  for (const CreditRow& row : creditRows) {
    lines.push_back({QLatin1StringView(row.text), row.isHeading});
  }
  return lines;
}

}  // namespace

Credits::Credits(QWidget* parent)
    : QDialog(parent),
      text_(new RisingText(Lines(), this)),
      ok_(NewButton(*this, {"OkButton", "OKButtonS"}, u"OK"_s)) {
  setObjectName(u"Credits"_s);
  setWindowTitle(u"Credits"_s);
  text_->setObjectName(u"CreditsText"_s);
  connect(ok_, &QAbstractButton::clicked, this, &QDialog::accept);
  // A skin has no colour for this text, so it brings its own.
  if (!IsSimpleUI()) text_->WriteOnPicture(ivory);
  TakeLook(*this, layouts::credits, [this] { SetSimpleUI(); });
  ok_->setFocus();
  GiveHelpKey(*this, platform::HelpContents);
}

void Credits::SetSimpleUI() {
  text_->setMinimumSize(400, 200);
  ok_->setMinimumSize(96, 28);
  static_cast<QPushButton*>(ok_)->setDefault(true);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setSpacing(16);
  layout->addWidget(text_, 1);
  layout->addWidget(ok_, 0, Qt::AlignHCenter);
}

}  // namespace ui

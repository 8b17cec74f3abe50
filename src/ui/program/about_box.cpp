// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/program/about_box.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/process_state.h"
#include "skin/layouts/about_box_layout.h"
#include "skin/look.h"
#include "skin/program_pictures.h"
#include "ui/help/help_key.h"
#include "ui/program/credits.h"
#include "widgets/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int pictureSize = 64;

struct LabelRow {
  const char* name;
  const char* text;
};

constexpr LabelRow labelRows[] = {
    {"lblTitle", "Tarvolenix"},
    {"lblVersion", "Version"},
    {"VerNo", nullptr},
    {"CopywriteLabel", "Made and published by Norlewick"},
    {"Rights_L", "Free software under the GNU GPL, version 3 or later"},
    {"lblDescription",
     "Chess by ordinary e-mail, between two people who take their time. There is no server between "
     "them: the mail is all it takes."},
    {"Info1", "News and new versions:"},
    {"Email", "https://tarvolenix.example"},
    {"Info2", "Built on Debian:"},
    {"Web1", "https://www.debian.org"},
};

void AddLabel(const LabelRow& row, QWidget* window) {
  auto* label = new QLabel(window);
  label->setObjectName(QLatin1StringView(row.name));
  label->setTextFormat(Qt::PlainText);
  label->setText(row.text ? QString::fromUtf8(row.text) : Shown(platform::GetVersionText()));
  // An address is there to be copied; on a skin the text is what the window is dragged by.
  if (IsSimpleUI()) label->setTextInteractionFlags(Qt::TextSelectableByMouse);
}

}  // namespace

AboutBox::AboutBox(QWidget* parent) : QDialog(parent) {
  setObjectName(u"AboutBox"_s);
  setWindowTitle(u"About Tarvolenix"_s);
  auto* picture = new QLabel(this);
  picture->setObjectName(u"ProgramIcon"_s);
  picture->setPixmap(ProgramPicture(u"tarvolenix.png"_s).pixmap(pictureSize));
  for (const LabelRow& row : labelRows) AddLabel(row, this);
  credits_ = NewButton(*this, {"CreditsButton", "CreditsButtonS"}, u"Credits"_s, u"&Credits"_s);
  ok_ = NewButton(*this, {"OkButton", "OKButtonS"}, u"OK"_s);
  connect(credits_, &QAbstractButton::clicked, this, [this] { Credits(this).exec(); });
  connect(ok_, &QAbstractButton::clicked, this, &QDialog::accept);
  TakeLook(*this, layouts::aboutBox, [this] { SetSimpleUI(); });
  auto* description = findChild<QLabel*>(u"lblDescription"_s);
  description->setWordWrap(true);
  auto* title = findChild<QLabel*>(u"lblTitle"_s);
  QFont large = title->font();
  large.setBold(true);
  if (IsSimpleUI()) {
    large.setPointSizeF(large.pointSizeF() * 1.4);
  } else {
    large.setPixelSize(18);
    description->setMargin(4);
  }
  title->setFont(large);
  ok_->setFocus();
  GiveHelpKey(*this, platform::HelpContents);
}

void AboutBox::SetSimpleUI() {
  const auto control = [this](const char* name) {
    return findChild<QWidget*>(QLatin1StringView(name));
  };
  auto* version = new QHBoxLayout;
  version->setSpacing(4);
  version->addWidget(control("lblVersion"));
  version->addWidget(control("VerNo"), 1);
  auto* program = new QVBoxLayout;
  program->setSpacing(4);
  program->addWidget(control("lblTitle"));
  program->addLayout(version);
  program->addWidget(control("CopywriteLabel"));
  program->addWidget(control("Rights_L"));
  QHBoxLayout* buttons = NewButtonRow({credits_, ok_});
  static_cast<QPushButton*>(ok_)->setDefault(true);

  auto* layout = new QGridLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setHorizontalSpacing(16);
  layout->setVerticalSpacing(8);
  layout->addWidget(control("ProgramIcon"), 0, 0, Qt::AlignTop);
  layout->addLayout(program, 0, 1);
  layout->addWidget(control("lblDescription"), 1, 0, 1, 2);
  auto* addresses = new QGridLayout;
  addresses->setHorizontalSpacing(16);
  addresses->setVerticalSpacing(4);
  addresses->addWidget(control("Info1"), 0, 0);
  addresses->addWidget(control("Email"), 0, 1);
  addresses->addWidget(control("Info2"), 1, 0);
  addresses->addWidget(control("Web1"), 1, 1);
  layout->addLayout(addresses, 2, 0, 1, 2);
  layout->setRowMinimumHeight(3, 8);
  layout->addLayout(buttons, 4, 0, 1, 2);
}

}  // namespace ui

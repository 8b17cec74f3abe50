// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/games/change_address.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/help.h"
#include "platform/seams.h"
#include "skin/look.h"
#include "ui/help/help_key.h"
#include "widgets/dialog_button.h"
#include "widgets/shown_text.h"
#include "widgets/typed_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int longestAddress = 255;

class AddressDialog : public QDialog {
 public:
  AddressDialog(const std::string& name, const std::string& address)
      : address_(new QLineEdit(AsItIs(address))), ok_(NewDialogButton(u"OkButton"_s, u"OK"_s)) {
    setObjectName(u"ChangeAddress"_s);
    setWindowTitle(u"Change address"_s);
    GiveHelpKey(*this, platform::HelpOfGameList);
    address_->setObjectName(u"Address"_s);
    address_->setMaxLength(longestAddress);
    address_->setPlaceholderText(u"name@example.org"_s);
    KeepFitForFields(address_);
    LayOut(name);
    TakeDialogLook(*this);
    address_->selectAll();
  }

  std::string Address() const { return address_->text().trimmed().toStdString(); }

 private:
  void LayOut(const std::string& name) {
    auto* label = new QLabel(
        u"&Where do the moves for %1 go?"_s.arg(QString(ShownLine(name)).replace(u'&', u"&&"_s)));
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(address_);
    auto* cancel = NewDialogButton(u"CancelButton"_s, u"Cancel"_s);
    ok_->setDefault(true);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addStretch();
    buttons->addWidget(cancel);
    buttons->addWidget(ok_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSpacing(12);
    layout->addWidget(label);
    layout->addWidget(address_);
    layout->addLayout(buttons);
    resize(400, sizeHint().height());
    const auto refresh = [this] {
      ok_->setEnabled(platform::TheSeams().addressBook->IsUsableAddress(Address()));
    };
    connect(address_, &QLineEdit::textChanged, this, refresh);
    connect(ok_, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    refresh();
  }

  QLineEdit* address_;
  QPushButton* ok_;
};

}  // namespace

std::optional<std::string> AskForAddress(const std::string& name, const std::string& address) {
  AddressDialog dialog(name, address);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.Address();
}

}  // namespace ui

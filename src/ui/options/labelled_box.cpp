// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/options/labelled_box.h"

#include <QMouseEvent>

#include "widgets/tool_tips.h"

namespace ui {

using namespace Qt::StringLiterals;

LabelledBox::LabelledBox(const char* name, const char* caption, QWidget* page)
    : QCheckBox(page), caption_(new QLabel(QString::fromUtf8(caption), page)) {
  setObjectName(QLatin1StringView(name));
  setAccessibleName(caption_->text());
  caption_->setObjectName(objectName() + u"_L"_s);
  caption_->setBuddy(this);
  caption_->installEventFilter(this);
}

void LabelledBox::SetTip(const char* tip) {
  ui::SetTip(*this, tip);
  ui::SetTip(*caption_, tip);
}

bool LabelledBox::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonPress &&
      static_cast<const QMouseEvent&>(*event).button() == Qt::LeftButton) {
    setFocus();
    click();
    return true;  // the window isn't dragged by it
  }
  return QCheckBox::eventFilter(watched, event);
}

}  // namespace ui

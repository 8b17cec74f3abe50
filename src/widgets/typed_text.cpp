// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/typed_text.h"

#include <QLineEdit>

#include <algorithm>

#include "widgets/placed_tip.h"

namespace ui {

QString FitForFields(QString text) {
  text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
  text.replace(u'|', u'/');
  for (QChar& c : text) {
    const QChar::Category category = c.category();
    if (category == QChar::Other_Control || category == QChar::Separator_Line ||
        category == QChar::Separator_Paragraph) {
      c = u' ';
    }
  }
  return text;
}

void TellOfReplacedBar(QWidget& field) {
  TellBeside(field, QStringLiteral("\"|\" can't be sent, and becomes \"/\"."));
}

void KeepFitForFields(QLineEdit* field) {
  QObject::connect(field, &QLineEdit::textEdited, field, [field](const QString& text) {
    const QString fit = FitForFields(text);
    if (fit == text) return;
    const int behindCursor = static_cast<int>(text.size()) - field->cursorPosition();
    field->setText(fit);
    field->setCursorPosition(std::max(0, static_cast<int>(fit.size()) - behindCursor));
    if (text.contains(u'|')) TellOfReplacedBar(*field);
  });
}

int CountCharacters(const QString& text) { return static_cast<int>(text.toUcs4().size()); }

QString FirstCharacters(const QString& text, int count) {
  const auto characters = text.toUcs4();
  if (characters.size() <= count) return text;
  return QString::fromUcs4(reinterpret_cast<const char32_t*>(characters.constData()), count);
}

}  // namespace ui

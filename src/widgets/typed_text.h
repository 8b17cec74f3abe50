// SPDX-License-Identifier: GPL-3.0-or-later
// What a user may type where it goes into the game file and into mails: one line, without the
// character that separates the fields there.
#pragma once

#include <QString>

class QLineEdit;
class QWidget;

namespace ui {

/// `text` with "/" for "|"; line breaks, tabs and other control characters become blanks.
QString FitForFields(QString text);

/// Says beside a field, without asking for anything, what became of a "|" there.
void TellOfReplacedBar(QWidget& field);

/// Keeps a field to such text, however it comes in.
void KeepFitForFields(QLineEdit* field);

/// The characters of a text as people count them.
int CountCharacters(const QString& text);

/// The first `count` of them.
QString FirstCharacters(const QString& text, int count);

}  // namespace ui

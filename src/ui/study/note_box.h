// SPDX-License-Identifier: GPL-3.0-or-later
// A box for a note: plain text of some length, nobody's but the user's.
#pragma once

#include <QPlainTextEdit>

namespace ui {

class NoteBox : public QPlainTextEdit {
  Q_OBJECT

 public:
  NoteBox(const QString& name, const QString& meaning, QWidget* parent);

  /// Another note, whose typing begins now. Says nothing of it.
  void Show(const std::string& note);

  /// Where it isn't writable, its text can still be marked and copied.
  void MakeWritable(bool writable);
  std::string Note() const { return toPlainText().toStdString(); }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 Q_SIGNALS:
  /// The user has changed it.
  void Changed();

 protected:
  void insertFromMimeData(const QMimeData* source) override;

 private:
  void CutToLength();
};

}  // namespace ui

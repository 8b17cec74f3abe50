// SPDX-License-Identifier: GPL-3.0-or-later
#include "parameter_file.h"

namespace art {

using namespace Qt::StringLiterals;

ParameterFile::ParameterFile(const QString& path) : settings_(path, QSettings::IniFormat) {}

QString ParameterFile::Text(const char* key) {
  QString text = settings_.value(NameOf(key)).toString();
  if (text.isEmpty()) Fail(key);
  return text;
}

QStringList ParameterFile::List(const char* key) {
  QStringList list = settings_.value(NameOf(key)).toStringList();
  if (list.isEmpty()) Fail(key);
  return list;
}

float ParameterFile::Number(const char* key) {
  bool read = false;
  const float number = Text(key).toFloat(&read);
  if (!read) Fail(key);
  return number;
}

int ParameterFile::Whole(const char* key) { return static_cast<int>(Number(key)); }

QColor ParameterFile::Colour(const char* key) {
  const QColor colour(Text(key));
  if (!colour.isValid()) Fail(key);
  return colour;
}

bool ParameterFile::AllRead(QString* error) const {
  if (fault_.isEmpty()) return true;
  *error = u"%1: no usable value for %2"_s.arg(settings_.fileName(), fault_);
  return false;
}

QString ParameterFile::NameOf(const char* key) const {
  return group_ + u'/' + QString::fromLatin1(key);
}

void ParameterFile::Fail(const char* key) {
  if (fault_.isEmpty()) fault_ = NameOf(key);
}

}  // namespace art

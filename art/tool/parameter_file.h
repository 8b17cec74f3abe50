// SPDX-License-Identifier: GPL-3.0-or-later
// An .ini file of parameters.
//
// A key that is missing or unreadable is an error: nothing renders from a value that nobody wrote.
#pragma once

#include <QColor>
#include <QSettings>
#include <QString>
#include <QStringList>

namespace art {

/// Reads keys of one group after another and remembers the first one that failed.
class ParameterFile {
 public:
  explicit ParameterFile(const QString& path);

  /// The group that the keys read from here on belong to.
  void Enter(const QString& group) { group_ = group; }

  QString Text(const char* key);
  QStringList List(const char* key);
  float Number(const char* key);
  int Whole(const char* key);
  QColor Colour(const char* key);

  /// True if every key so far could be read; otherwise `error` names the first that could not.
  bool AllRead(QString* error) const;

 private:
  QString NameOf(const char* key) const;
  void Fail(const char* key);

  QSettings settings_;
  QString group_, fault_;
};

}  // namespace art

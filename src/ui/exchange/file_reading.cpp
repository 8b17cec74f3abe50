// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/exchange/file_reading.h"

#include <QFileInfo>

#include <fstream>
#include <istream>
#include <stdexcept>

#include "widgets/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

/// A file that tells how much of it was read, and can't be read any further once that is cancelled.
class WatchedFile : public std::filebuf {
 public:
  WatchedFile(const std::string& name, WorkProgress& progress) : progress_(progress) {
    open(name, std::ios::in | std::ios::binary);
  }

 protected:
  std::streamsize xsgetn(char* to, std::streamsize count) override {
    if (progress_.isCancelled) throw std::runtime_error("cancelled");
    const std::streamsize read = std::filebuf::xsgetn(to, count);
    progress_.done += read;
    if (progress_.done >= progress_.whole) progress_.BeginLastStep();
    return read;
  }

 private:
  WorkProgress& progress_;
};

using Read = std::function<void(std::istream& text, WorkProgress& progress)>;

FileReading ReadAll(const std::string& name, const Read& read, WorkProgress& progress) try {
  WatchedFile file(name, progress);
  if (!file.is_open()) return {.why = "The file " + name + " can't be read."};
  std::istream text(&file);
  read(text, progress);
  if (text.bad()) return {.why = "The file " + name + " can't be read to its end."};
  return {.isDone = true};
} catch (const std::exception& error) {
  return {.why = "The file " + name + " can't be read: " + error.what() + "."};
}

}  // namespace

FileReading ReadFile(QWidget& window, const QString& path, const Read& read) {
  const QFileInfo file(path);
  const std::string name = path.toStdString();
  if (!file.isFile()) return {.why = "There is no file " + name + "."};
  WorkProgress progress;
  progress.whole = file.size();
  FileReading reading;
  const WorkWords words{"ImportProgress", "Import PGN",
                        u"Importing the games of %1"_s.arg(ShownLine(file.fileName()))};
  DoWatched(window, words, progress, [&] { reading = ReadAll(name, read, progress); });
  if (progress.isCancelled) return {};
  return reading;
}

}  // namespace ui

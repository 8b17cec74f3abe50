// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/exchange/file_reading.h"

#include <QDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QTimer>
#include <QVBoxLayout>

#include <atomic>
#include <chrono>
#include <fstream>
#include <future>
#include <istream>
#include <stdexcept>

#include "skin/look.h"
#include "widgets/dialog_button.h"
#include "widgets/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

/// What takes no longer needs no window of its own.
constexpr std::chrono::milliseconds soon(300);
constexpr int beat = 50;
constexpr int parts = 1000;

struct Progress {
  std::atomic<std::int64_t> bytes = 0;
  std::atomic<bool> isCancelled = false;
};

/// A file that tells how much of it was read, and can't be read any further once that is cancelled.
class WatchedFile : public std::filebuf {
 public:
  WatchedFile(const std::string& name, Progress& progress) : progress_(progress) {
    open(name, std::ios::in | std::ios::binary);
  }

 protected:
  std::streamsize xsgetn(char* to, std::streamsize count) override {
    if (progress_.isCancelled) throw std::runtime_error("cancelled");
    const std::streamsize read = std::filebuf::xsgetn(to, count);
    progress_.bytes += read;
    return read;
  }

 private:
  Progress& progress_;
};

using Read = std::function<pgn::ImportedGames(std::istream& text)>;

FileReading ReadAll(const std::string& name, const Read& read, Progress& progress) try {
  WatchedFile file(name, progress);
  if (!file.is_open()) return {.why = "The file " + name + " can't be read."};
  std::istream text(&file);
  FileReading reading{.games = read(text)};
  if (text.bad()) return {.why = "The file " + name + " can't be read to its end."};
  reading.isDone = !progress.isCancelled;
  return reading;
} catch (const std::exception& error) {
  return {.why = "The file " + name + " can't be read: " + error.what() + "."};
}

class ProgressDialog : public QDialog {
 public:
  ProgressDialog(QWidget& window, const QFileInfo& file)
      : QDialog(&window), size_(file.size()), bar_(new QProgressBar) {
    setObjectName(u"ImportProgress"_s);
    setWindowTitle(u"Import PGN"_s);
    auto* label = new QLabel(u"Reading the games of %1"_s.arg(ShownLine(file.fileName())));
    label->setTextFormat(Qt::PlainText);
    bar_->setRange(0, parts);
    bar_->setAccessibleName(label->text());
    auto* cancel = NewDialogButton(u"CancelButton"_s, u"Cancel"_s);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSpacing(12);
    layout->addWidget(label);
    layout->addWidget(bar_);
    layout->addWidget(cancel, 0, Qt::AlignRight);
    resize(420, sizeHint().height());
    TakeDialogLook(*this);
  }

  void Show(std::int64_t bytes) {
    if (size_ > 0) bar_->setValue(static_cast<int>(bytes * parts / size_));
  }

 private:
  const std::int64_t size_;
  QProgressBar* bar_;
};

}  // namespace

FileReading ReadFile(QWidget& window, const QString& path, const Read& read) {
  const QFileInfo file(path);
  const std::string name = path.toStdString();
  if (!file.isFile()) return {.why = "There is no file " + name + "."};
  Progress progress;
  auto reading = std::async(std::launch::async, [&] { return ReadAll(name, read, progress); });
  const auto isDone = [&reading](std::chrono::milliseconds patience) {
    return reading.wait_for(patience) == std::future_status::ready;
  };
  if (isDone(soon)) return reading.get();
  ProgressDialog dialog(window, file);
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, &dialog, [&] {
    dialog.Show(progress.bytes);
    if (isDone({})) dialog.accept();
  });
  timer.start(beat);
  progress.isCancelled = dialog.exec() != QDialog::Accepted;
  FileReading result = reading.get();
  if (progress.isCancelled) return {};
  return result;
}

}  // namespace ui

// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/exchange/watched_work.h"

#include <QDialog>
#include <QLabel>
#include <QProgressBar>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>
#include <future>

#include "platform/process_state.h"
#include "skin/look.h"
#include "widgets/dialog_button.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

/// What takes no longer needs no window of its own.
constexpr std::chrono::milliseconds soon(300);
constexpr int beat = 50;
constexpr int parts = 1000;

class ProgressDialog : public QDialog {
 public:
  ProgressDialog(QWidget& window, const WorkWords& words, WorkProgress& progress)
      : QDialog(&window),
        progress_(progress),
        bar_(new QProgressBar),
        cancel_(NewDialogButton(u"CancelButton"_s, u"Cancel"_s)) {
    setObjectName(QLatin1StringView(words.name));
    setWindowTitle(QLatin1StringView(words.title));
    auto* label = new QLabel(words.what);
    label->setTextFormat(Qt::PlainText);
    bar_->setAccessibleName(words.what);
    connect(cancel_, &QPushButton::clicked, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSpacing(12);
    layout->addWidget(label);
    layout->addWidget(bar_);
    layout->addWidget(cancel_, 0, Qt::AlignRight);
    resize(std::max(420, sizeHint().width()), sizeHint().height());
    TakeDialogLook(*this);
  }

  /// A bar that is full would say that all is done.
  void Show() {
    const std::int64_t whole = progress_.whole;
    bar_->setRange(0, whole > 0 ? parts : 0);
    if (whole > 0) bar_->setValue(static_cast<int>(progress_.done * parts / whole));
  }

  /// What is still to end does so in view, and not in a window that is frozen.
  void reject() override {
    progress_.isCancelled = true;
    cancel_->setEnabled(false);
    if (platform::Process().Stopping) QDialog::reject();
  }

 private:
  WorkProgress& progress_;
  QProgressBar* bar_;
  QPushButton* cancel_;
};

}  // namespace

void DoWatched(QWidget& window, const WorkWords& words, WorkProgress& progress,
               const std::function<void()>& work) {
  std::future<void> end = std::async(std::launch::async, work);
  const auto isDone = [&end](std::chrono::milliseconds patience) {
    return end.wait_for(patience) == std::future_status::ready;
  };
  if (isDone(soon)) return end.get();
  ProgressDialog dialog(window, words, progress);
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, &dialog, [&] {
    dialog.Show();
    if (isDone({})) dialog.accept();
  });
  timer.start(beat);
  dialog.Show();
  if (dialog.exec() != QDialog::Accepted) progress.isCancelled = true;
  end.get();
}

}  // namespace ui

// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/mail_thread.h"

#include <atomic>
#include <utility>

namespace post {

/// `failure` is written before `done` is set and taken by the one who waits, behind it.
struct MailThread::Outcome {
  std::exception_ptr failure;
  std::atomic<bool> done = false;
};

namespace {

/// For work of which nobody hears.
template <typename Work>
std::function<void()> Quiet(Work work) {
  return [work = std::move(work)] {
    try {
      work();
    } catch (const std::exception&) {
      // as it was put off, it isn't what anybody waits for
    }
  };
}

}  // namespace

MailThread::MailThread(platform::Events& events) : events_(events), thread_([this] { Work(); }) {}

void MailThread::Stop() {
  {
    const std::lock_guard lock(mutex_);
    stopping_ = true;
  }
  added_.notify_one();
  if (thread_.joinable()) thread_.join();
}

void MailThread::Run(std::function<void()> work) {
  const auto outcome = std::make_shared<Outcome>();
  Add({std::move(work), outcome});
  events_.RunUntil([&outcome] { return outcome->done.load(); });
  if (auto failure = std::exchange(outcome->failure, nullptr)) std::rethrow_exception(failure);
}

void MailThread::Post(std::function<void()> work) { Add({std::move(work), nullptr}); }

void MailThread::Flush() {
  Run([this] {
    std::exception_ptr failure;
    {
      const std::lock_guard lock(mutex_);
      std::swap(failure, failure_);
    }
    if (failure) std::rethrow_exception(failure);
  });
}

void MailThread::ForgetFailure() {
  Post([this] {
    const std::lock_guard lock(mutex_);
    failure_ = nullptr;
  });
}

void MailThread::Add(Item item) {
  {
    const std::lock_guard lock(mutex_);
    queue_.push_back(std::move(item));
  }
  added_.notify_one();
}

void MailThread::PostAt(Clock::time_point when, std::function<void()> work) {
  {
    const std::lock_guard lock(mutex_);
    putOff_ = {Quiet(std::move(work)), nullptr};
    due_ = when;
  }
  added_.notify_one();
}

/// Waits for it. Nothing where the thread is to end.
std::optional<MailThread::Item> MailThread::NextItem() {
  std::unique_lock lock(mutex_);
  while (!stopping_ && queue_.empty() && Clock::now() < due_) {
    if (due_ == Clock::time_point::max()) {
      added_.wait(lock);
    } else {
      added_.wait_until(lock, Clock::time_point(due_));
    }
  }
  if (stopping_) return std::nullopt;
  if (queue_.empty()) {
    due_ = Clock::time_point::max();
    return std::exchange(putOff_, {});
  }
  Item item = std::move(queue_.front());
  queue_.pop_front();
  return item;
}

void MailThread::Work() {
  while (auto item = NextItem()) {
    std::exception_ptr failure;
    try {
      item->work();
    } catch (...) {
      failure = std::current_exception();
    }
    item->work = nullptr;  // what it holds is given up before anybody hears that it is done
    Finish(*item, std::move(failure));
  }
}

void MailThread::Finish(const Item& item, std::exception_ptr failure) {
  if (item.outcome) {
    item.outcome->failure = std::move(failure);
    item.outcome->done = true;
    events_.Wake();
  } else if (failure) {
    const std::lock_guard lock(mutex_);
    if (!failure_) failure_ = std::move(failure);
  }
}

}  // namespace post

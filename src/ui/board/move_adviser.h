// SPDX-License-Identifier: GPL-3.0-or-later
// The computer's advice, sought beside the window.
#pragma once

#include <QObject>

#include <thread>

#include "ai/advice.h"

namespace ui {

class MoveAdviser : public QObject {
  Q_OBJECT

 public:
  explicit MoveAdviser(QObject* parent) : QObject(parent) {}
  /// Breaks off what goes on.
  ~MoveAdviser() override;

  /// Once. Where no thread is to be had, only the quick advice comes.
  void Start(ai::AdviceOrder order);

 Q_SIGNALS:
  /// At each depth; on the window's thread.
  void Advised(int depth, const ai::CandidateList& moves);

 private:
  void Hand(int depth, const ai::CandidateList& moves);

  ai::SearchWatch watch_;
  std::jthread search_;
};

}  // namespace ui

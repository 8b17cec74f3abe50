// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/batch.h"

#include <cassert>
#include <utility>

#include "store/data_files.h"
#include "store/saving.h"

namespace store {
namespace {

Batch* openBatch = nullptr;

}  // namespace

Batch::Batch() : content_(ReadGameFile()) {
  assert(!openBatch);
  openBatch = this;
}

Batch::~Batch() {
  if (openBatch == this) openBatch = nullptr;
}

Batch* Batch::Open() { return openBatch; }

void Batch::Change(std::string content) {
  content_ = std::move(content);
  hasChanged_ = true;
}

bool Batch::Keep() {
  openBatch = nullptr;
  return !hasChanged_ || ReplaceGames(std::move(*content_));
}

}  // namespace store

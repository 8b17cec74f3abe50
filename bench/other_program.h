// SPDX-License-Identifier: GPL-3.0-or-later
// What other programs take for the same work, in the same run.
#pragma once

#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <cstdlib>
#include <string>

namespace bench {

inline double ProcessorSecondsOfChildren() {
  rusage usage{};
  getrusage(RUSAGE_CHILDREN, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// Runs a command; the time of the benchmark, which wants UseManualTime, is its processor time.
inline void RunOther(benchmark::State& state, const std::string& command) {
  for (auto _ : state) {
    const double before = ProcessorSecondsOfChildren();
    if (std::system(command.c_str()) != 0) state.SkipWithError("it isn't there or failed");
    state.SetIterationTime(ProcessorSecondsOfChildren() - before);
  }
}

}  // namespace bench

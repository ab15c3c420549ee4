#pragma once

#include <benchmark/benchmark.h>
#include <time.h>

#include <charconv>
#include <string_view>
#include <utility>

#include "common/fixed_text.h"

namespace triaxlab {

/// What a part is measured in: what the clock on the wall tells, for one that waits for files, or what the thread
/// itself has computed, however busy the machine is with others.
enum class Seconds : clockid_t { Elapsed = CLOCK_MONOTONIC, Computed = CLOCK_THREAD_CPUTIME_ID };

template <class Work>
double secondsOf(Work&& work, Seconds kind) {
  const auto now = [kind] {
    timespec at{};
    clock_gettime(static_cast<clockid_t>(kind), &at);
    return static_cast<double>(at.tv_sec) + 1e-9 * static_cast<double>(at.tv_nsec);
  };
  const double start = now();
  work();
  return now() - start;
}

/// A work and the least that any program must do for the same, in turn, so that they meet the same machine. `ratio` is
/// the figure to watch. What `prepare` does in front of each turn isn't measured. For a benchmark with UseManualTime.
template <class Work, class Least, class Prepare>
void compare(benchmark::State& state, Seconds kind, Work&& work, Least&& least, Prepare&& prepare) {
  double worked = 0, needed = 0;
  for ([[maybe_unused]] auto turn : state) {
    prepare();
    const double seconds = secondsOf(work, kind);
    needed += secondsOf(least, kind);
    worked += seconds;
    state.SetIterationTime(seconds);
  }
  constexpr double kMilliseconds = 1e3;
  state.counters["ms"] = {worked * kMilliseconds, benchmark::Counter::kAvgIterations};
  state.counters["least_ms"] = {needed * kMilliseconds, benchmark::Counter::kAvgIterations};
  state.counters["ratio"] = worked / needed;
}

template <class Work, class Least>
void compare(benchmark::State& state, Seconds kind, Work&& work, Least&& least) {
  compare(state, kind, std::forward<Work>(work), std::forward<Least>(least), [] {});
}

/// A field as the standard library reads it: the least that any program must do that keeps its numbers as text.
template <std::size_t N>
double readByFromChars(const FixedText<N>& field) {
  double value = 0;
  const std::string_view places = field.view();
  std::from_chars(places.data(), places.data() + places.size(), value);
  return value;
}

}  // namespace triaxlab

#pragma once

#include <charconv>
#include <chrono>
#include <string_view>

#include "common/fixed_text.h"

namespace triaxlab {

template <class Work>
double secondsOf(Work&& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
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

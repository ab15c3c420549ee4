// Text numbers against the standard library's conversions of the same values, which know neither blanks nor the
// system's rounding. The records hold millions of them, so these few nanoseconds are the opening of a file.
#include <benchmark/benchmark.h>

#include <array>
#include <charconv>
#include <cstddef>
#include <random>
#include <string>
#include <vector>

#include "common/fixed_text.h"
#include "common/gbk.h"
#include "common/text_number.h"

namespace triaxlab {
namespace {

constexpr std::size_t kCount = 4096;  // stays in the first caches, as one stage of readings does

/// Readings as the apparatus gives them: stresses in whole kPa, measures with two decimals.
const std::vector<FixedText<6>>& readings() {
  static const std::vector<FixedText<6>> fields = [] {
    std::mt19937 random{1};
    std::vector<FixedText<6>> made(kCount);
    for (auto& field : made) {
      if (random() % 4 != 0)
        SetNumber(field, static_cast<double>(random() % 2000), NumberFormat::Whole);
      else
        SetNumber(field, static_cast<double>(random() % 100'000) / 100 - 50, NumberFormat::Hundredths);
    }
    return made;
  }();
  return fields;
}

/// What formulas give: any fraction.
const std::vector<double>& results() {
  static const std::vector<double> values = [] {
    std::mt19937 random{2};
    std::uniform_real_distribution<double> kPa(-50, 1500);
    std::vector<double> made(kCount);
    for (double& value : made) value = kPa(random);
    return made;
  }();
  return values;
}

const std::vector<float>& strains() {
  static const std::vector<float> values = [] {
    std::mt19937 random{3};
    std::vector<float> made(kCount);
    for (float& value : made) value = static_cast<float>(random() % 25'000) / 1000.0F;
    return made;
  }();
  return values;
}

template <class Values, class Work>
void overAll(benchmark::State& state, const Values& values, Work work) {
  for (auto _ : state)
    for (const auto& value : values) benchmark::DoNotOptimize(work(value));
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(values.size()));
}

void ParseByStandard(benchmark::State& state) {
  overAll(state, readings(), [](const FixedText<6>& field) {
    double value = 0;
    const auto text = field.view();
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
  });
}
BENCHMARK(ParseByStandard);

void Parse(benchmark::State& state) {
  overAll(state, readings(), [](const FixedText<6>& field) { return field.number(); });
}
BENCHMARK(Parse);

void FormatByStandard(benchmark::State& state) {
  const int decimals = static_cast<int>(state.range(0));
  overAll(state, results(), [decimals](double value) {
    std::array<char, 32> text;
    const auto end = std::to_chars(text.begin(), text.end(), value, std::chars_format::fixed, decimals);
    return std::string(text.begin(), end.ptr);
  });
}
BENCHMARK(FormatByStandard)->Arg(0)->Arg(2);

void Format(benchmark::State& state) {
  const auto format = static_cast<NumberFormat>(state.range(0));
  overAll(state, results(), [format](double value) { return FormatNumber(value, format); });
}
BENCHMARK(Format)->Arg(0)->Arg(2);

void FormatIntoField(benchmark::State& state) {
  const auto format = static_cast<NumberFormat>(state.range(0));
  FixedText<6> field;
  overAll(state, results(), [&](double value) {
    SetNumber(field, value, format);
    return field;
  });
}
BENCHMARK(FormatIntoField)->Arg(0)->Arg(2);

void FormatFloat(benchmark::State& state) {
  overAll(state, strains(), [](float value) { return FormatNumber(value, NumberFormat::Hundredths); });
}
BENCHMARK(FormatFloat);

void SevenDigitsByStandard(benchmark::State& state) {
  overAll(state, strains(), [](float value) {
    std::array<char, 32> text;
    const auto end = std::to_chars(text.begin(), text.end(), value, std::chars_format::scientific, 6);
    double parsed = 0;
    std::from_chars(text.begin(), end.ptr, parsed);
    return parsed;
  });
}
BENCHMARK(SevenDigitsByStandard);

void SevenDigits(benchmark::State& state) {
  overAll(state, strains(), [](float value) { return ThroughSevenDigits(value); });
}
BENCHMARK(SevenDigits);

void GbkToUtf8(benchmark::State& state) {
  const std::string gbk = utf8ToGbk("粉质粘土，固结不排水剪(CU) ");
  for (auto _ : state) benchmark::DoNotOptimize(gbkToUtf8(gbk));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(gbk.size()));
}
BENCHMARK(GbkToUtf8);

}  // namespace
}  // namespace triaxlab

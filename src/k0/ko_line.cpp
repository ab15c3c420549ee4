#include "k0/ko_line.h"

namespace triaxlab {
namespace {

struct Fit {
  int count = 0;  // stages
  StraightLine line;
};

Fit fitOf(const K0SampleRecord& record) {
  Fit fit;
  LineSums<double> sums;
  for (std::size_t stage = 0; stage < kLoadStages; ++stage) {
    const double x = record.axialPressure[stage].number(), y = record.lateralPressure[stage].number();
    if (x == 0 || y == 0) continue;
    ++fit.count;
    sums.add(x, y);
  }
  fit.line = fittedLine(sums, fit.count).value_or(StraightLine{});
  return fit;
}

void store(K0SampleRecord& record, const StraightLine& line) {
  SetNumber(record.koIntercept, line.intercept, NumberFormat::Tenths);
  SetNumber(record.koValue, line.slope, NumberFormat::Thousandths);
}

}  // namespace

void fitKoLine(K0SampleRecord& record) {
  const Fit fit = fitOf(record);
  if (record.koAdjusted != 0) return;
  if (fit.count > 1) {
    store(record, fit.line);
  } else {
    record.koIntercept.clear();
    record.koValue.clear();
  }
}

void fitKoLine(K0SampleRecord& record, std::string_view samplingDepth) {
  SetText(record.samplingDepth, samplingDepth);
  fitKoLine(record);
}

StraightLine koLineOf(const K0SampleRecord& record) { return {record.koValue.number(), record.koIntercept.number()}; }

void storeAdjustedKoLine(K0SampleRecord& record, const StraightLine& line) {
  record.koAdjusted = 1;
  store(record, line);
}

}  // namespace triaxlab

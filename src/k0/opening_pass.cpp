#include "k0/opening_pass.h"

#include "k0/ko_line.h"
#include "k0/settlement.h"

namespace triaxlab {

void reduceAllK0Samples(std::span<K0SampleRecord> table) {
  for (K0SampleRecord& record : table)
    if (isLive(record)) fitKoLine(record);
}

void reduceAllTK0Samples(std::span<TK0SampleRecord> table) {
  for (TK0SampleRecord& record : table) {
    if (!isLive(record)) continue;
    computeStageResults(record);
    fitKoLine(record.k0);
  }
}

}  // namespace triaxlab

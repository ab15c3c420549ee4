#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "common/fixed_text.h"
#include "triaxial/derived_columns.h"

namespace triaxlab {

/// A reading of the consolidation, as a record holds it.
struct ConsolidationReading {
  std::int32_t seconds = 0;
  std::int16_t porePressure = 0;  // 0.1 kPa
  std::int16_t volume = 0;        // 0.01 ml
};

/// One specimen of a test with as many readings as there are, in the units and texts of a record.
struct TestStage {
  FixedText<6> cellPressure;                       // kPa
  FixedText<6> initialHeight, consolidatedHeight;  // cm
  FixedText<6> initialArea, consolidatedArea;      // cm2
  FixedText<6> consolidationDrainage;              // ml
  std::vector<ConsolidationReading> consolidation;
  std::vector<ShearReading> shear;
};

/// A test as the database of a controller holds it, of any kind and with as many stages as it has. Texts are UTF-8.
struct StagedTest {
  std::string projectNo, sampleNo, projectName;
  std::string testDate;                        // yyyy/mm/dd
  std::string savedOn;                         // yyyy-mm-dd
  std::string baseArea;                        // of the specimen's base, cm2
  std::string kind;                            // what is tested: 常规三轴试验
  std::string consolidation;                   // the controller's own word for how
  std::uint8_t testMethod = 0, shearMode = 0;  // as in a record
  std::int16_t shearRate = 0;                  // 1/1000 %/min
  std::vector<TestStage> stages;
};

}  // namespace triaxlab

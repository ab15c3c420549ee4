#pragma once

#include <array>
#include <cstddef>
#include <type_traits>

#include "common/fixed_text.h"

namespace triaxlab {

/// The head of a summary file, the per-project table that all tools of the laboratory share.
struct SummaryHeader {                     // offset
  FixedText<4> sampleCount;                //   0
  FixedText<15> projectNo;                 //   4
  FixedText<10> createdDate;               //  19
  FixedText<1> fileState;                  //  29
  std::array<FixedText<10>, 5> toolDates;  //  30  [0] is this tool's
  FixedText<8> reportNoMask;               //  80
  FixedText<200> text;                     //  88
  FixedText<2> textEnd;                    // 288  CR LF
  std::array<FixedText<6>, 21> table;      // 290
  FixedText<120> projectName;              // 416
  FixedText<60> secondTitleLine;           // 536
  FixedText<2> layoutCode;                 // 596
  FixedText<2> headerEnd;                  // 598  CR LF
};                                         // 600

/// c and phi of one test method, and the effective pair beside them.
struct StrengthPair {             // offset
  FixedText<4> frictionAngle;     //  0  degrees
  FixedText<4> frictionAngleEff;  //  4
  FixedText<5> cohesion;          //  8  kPa
  FixedText<5> cohesionEff;       // 13
};                                // 18

/// One sample's results from every test. Each tool fills its own section and keeps the others; a section begins with
/// its tag and ends with CR LF. The sections of the sibling tools are carried along unread.
struct SummaryRecord {                           // offset
  FixedText<3> noTag;                            //    0  "NO."
  FixedText<4> sequenceNo;                       //    3
  FixedText<15> sampleNo;                        //    7
  FixedText<15> boreholeNo;                      //   22
  FixedText<15> samplingDepth;                   //   37
  std::array<FixedText<1>, 5> noFlags;           // 52
  FixedText<2> noEnd;                            //   57
  FixedText<74> wsSection;                       //   59
  FixedText<172> kfSection;                      //  133
  FixedText<3> gjTag;                            //  305  "GJ:"
  std::array<FixedText<1>, 2> gjFlags;           // 308
  FixedText<10> gjText1;                         //  310
  FixedText<10> gjText2;                         //  320
  FixedText<1> gjFlag3;                          //  330
  FixedText<776> gjTables;                       //  331
  FixedText<30> samplingSpot;                    // 1107
  FixedText<6> koValue;                          // 1137
  FixedText<420> gjPairs;                        // 1143
  FixedText<2> gjEnd;                            // 1563
  FixedText<33> pcSection;                       // 1565
  FixedText<305> cvSection;                      // 1598
  FixedText<42> htSection;                       // 1903
  FixedText<426> psSection;                      // 1945
  FixedText<138> cbSection;                      // 2371
  FixedText<3> zjTag;                            // 2509  "ZJ:"
  std::array<FixedText<10>, 2> zjDates;          // 2512
  FixedText<1> zjFlag;                           // 2532
  FixedText<50> zjUnread;                        // 2533
  FixedText<2> zjEnd;                            // 2583
  FixedText<3> szTag;                            // 2585  "SZ:"
  FixedText<10> szDate;                          // 2588
  FixedText<10> testDateSz;                      // 2598
  FixedText<1> testMethod;                       // 2608  0 or blank: no triaxial result
  FixedText<31> szUnread;                        // 2609
  FixedText<5> cSz;                              // 2640
  FixedText<4> phiSz;                            // 2645
  FixedText<5> cEffSz;                           // 2649
  FixedText<4> phiEffSz;                         // 2654
  std::array<StrengthPair, 4> strengthByMethod;  // 2658  testMethod 1 to 4
  FixedText<2> szEnd;                            // 2730
  FixedText<3> wcTag;                            // 2732  "WC:"
  std::array<FixedText<5>, 2> wcTexts;           // 2735
  FixedText<2> wcEnd;                            // 2745
};                                               // 2747

}  // namespace triaxlab

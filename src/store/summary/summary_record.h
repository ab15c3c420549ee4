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

static_assert(sizeof(SummaryHeader) == 600 && alignof(SummaryHeader) == 1);
static_assert(offsetof(SummaryHeader, projectNo) == 4 && offsetof(SummaryHeader, createdDate) == 19);
static_assert(offsetof(SummaryHeader, fileState) == 29 && offsetof(SummaryHeader, toolDates) == 30);
static_assert(offsetof(SummaryHeader, reportNoMask) == 80 && offsetof(SummaryHeader, text) == 88);
static_assert(offsetof(SummaryHeader, textEnd) == 288 && offsetof(SummaryHeader, table) == 290);
static_assert(offsetof(SummaryHeader, projectName) == 416 && offsetof(SummaryHeader, secondTitleLine) == 536);
static_assert(offsetof(SummaryHeader, layoutCode) == 596 && offsetof(SummaryHeader, headerEnd) == 598);

/// c and phi of one test method, and the effective pair beside them.
struct StrengthPair {             // offset
  FixedText<4> frictionAngle;     //  0  degrees
  FixedText<4> frictionAngleEff;  //  4
  FixedText<5> cohesion;          //  8  kPa
  FixedText<5> cohesionEff;       // 13
};                                // 18
static_assert(offsetof(StrengthPair, frictionAngle) == 0);
static_assert(offsetof(StrengthPair, frictionAngleEff) == 4);
static_assert(offsetof(StrengthPair, cohesion) == 8);
static_assert(offsetof(StrengthPair, cohesionEff) == 13);
static_assert(sizeof(StrengthPair) == 18);

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

static_assert(offsetof(SummaryRecord, noTag) == 0);
static_assert(offsetof(SummaryRecord, sequenceNo) == 3);
static_assert(offsetof(SummaryRecord, sampleNo) == 7);
static_assert(offsetof(SummaryRecord, boreholeNo) == 22);
static_assert(offsetof(SummaryRecord, samplingDepth) == 37);
static_assert(offsetof(SummaryRecord, noFlags) == 52);
static_assert(offsetof(SummaryRecord, noEnd) == 57);
static_assert(offsetof(SummaryRecord, wsSection) == 59);
static_assert(offsetof(SummaryRecord, kfSection) == 133);
static_assert(offsetof(SummaryRecord, gjTag) == 305);
static_assert(offsetof(SummaryRecord, gjFlags) == 308);
static_assert(offsetof(SummaryRecord, gjText1) == 310);
static_assert(offsetof(SummaryRecord, gjText2) == 320);
static_assert(offsetof(SummaryRecord, gjFlag3) == 330);
static_assert(offsetof(SummaryRecord, gjTables) == 331);
static_assert(offsetof(SummaryRecord, samplingSpot) == 1107);
static_assert(offsetof(SummaryRecord, koValue) == 1137);
static_assert(offsetof(SummaryRecord, gjPairs) == 1143);
static_assert(offsetof(SummaryRecord, gjEnd) == 1563);
static_assert(offsetof(SummaryRecord, pcSection) == 1565);
static_assert(offsetof(SummaryRecord, cvSection) == 1598);
static_assert(offsetof(SummaryRecord, htSection) == 1903);
static_assert(offsetof(SummaryRecord, psSection) == 1945);
static_assert(offsetof(SummaryRecord, cbSection) == 2371);
static_assert(offsetof(SummaryRecord, zjTag) == 2509);
static_assert(offsetof(SummaryRecord, zjDates) == 2512);
static_assert(offsetof(SummaryRecord, zjFlag) == 2532);
static_assert(offsetof(SummaryRecord, zjUnread) == 2533);
static_assert(offsetof(SummaryRecord, zjEnd) == 2583);
static_assert(offsetof(SummaryRecord, szTag) == 2585);
static_assert(offsetof(SummaryRecord, szDate) == 2588);
static_assert(offsetof(SummaryRecord, testDateSz) == 2598);
static_assert(offsetof(SummaryRecord, testMethod) == 2608);
static_assert(offsetof(SummaryRecord, szUnread) == 2609);
static_assert(offsetof(SummaryRecord, cSz) == 2640);
static_assert(offsetof(SummaryRecord, phiSz) == 2645);
static_assert(offsetof(SummaryRecord, cEffSz) == 2649);
static_assert(offsetof(SummaryRecord, phiEffSz) == 2654);
static_assert(offsetof(SummaryRecord, strengthByMethod) == 2658);
static_assert(offsetof(SummaryRecord, szEnd) == 2730);
static_assert(offsetof(SummaryRecord, wcTag) == 2732);
static_assert(offsetof(SummaryRecord, wcTexts) == 2735);
static_assert(offsetof(SummaryRecord, wcEnd) == 2745);
static_assert(sizeof(SummaryRecord) == 2747 && alignof(SummaryRecord) == 1);
static_assert(std::is_trivially_copyable_v<SummaryHeader> && std::is_trivially_copyable_v<SummaryRecord>);

}  // namespace triaxlab

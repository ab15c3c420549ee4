#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string_view>
#include <tuple>

#include "common/record_fields.h"
#include "store/summary/summary_record.h"

namespace triaxlab {

constexpr auto fieldsOf(RecordTag<SummaryHeader> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(SummaryHeader, sampleCount, "",
                     "number of records, decimal text: \"0\" in a new file, then four digits"),
      TRIAXLAB_FIELD(SummaryHeader, projectNo, "", "project number"),
      TRIAXLAB_FIELD(SummaryHeader, createdDate, "", "yyyy/mm/dd"),
      TRIAXLAB_FIELD(SummaryHeader, fileState, "", "\"1\" when this system made the file"),
      TRIAXLAB_FIELD(SummaryHeader, toolDates, "",
                     "yyyy/mm/dd: the first is this tool's, the others those of the sibling tools"),
      TRIAXLAB_FIELD(SummaryHeader, reportNoMask, "", "\"____\" in a new file"),
      TRIAXLAB_FIELD(SummaryHeader, text, "", "blank in a new file"),
      TRIAXLAB_FIELD(SummaryHeader, textEnd, "", "CR LF"),
      TRIAXLAB_FIELD(SummaryHeader, table, "", "blank in a new file"),
      TRIAXLAB_FIELD(SummaryHeader, projectName, "", "工程名称, name of the project"),
      TRIAXLAB_FIELD(SummaryHeader, secondTitleLine, "", "second line of the title"),
      TRIAXLAB_FIELD(SummaryHeader, layoutCode, "", "\"07\""),
      TRIAXLAB_FIELD(SummaryHeader, headerEnd, "", "CR LF"),
  };
}
static_assert(tiles<SummaryHeader>(600));

constexpr auto fieldsOf(RecordTag<StrengthPair> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(StrengthPair, frictionAngle, "degrees", "φ"),
      TRIAXLAB_FIELD(StrengthPair, frictionAngleEff, "degrees", "φ′"),
      TRIAXLAB_FIELD(StrengthPair, cohesion, "kPa", "c"),
      TRIAXLAB_FIELD(StrengthPair, cohesionEff, "kPa", "c′"),
  };
}
static_assert(tiles<StrengthPair>(18));

constexpr auto fieldsOf(RecordTag<SummaryRecord> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(SummaryRecord, noTag, "", "\"NO.\""),
      TRIAXLAB_FIELD(SummaryRecord, sequenceNo, "", "position in this file + 1, four digits"),
      TRIAXLAB_FIELD(SummaryRecord, sampleNo, "", "sample number"),
      TRIAXLAB_FIELD(SummaryRecord, boreholeNo, "",
                     "borehole; with a trial pit 7 places of the pit and 8 of the borehole"),
      TRIAXLAB_FIELD(SummaryRecord, samplingDepth, "", "sampling depth"),
      TRIAXLAB_FIELD(SummaryRecord, noFlags, "", "\"1\" in a new record; carried along"),
      TRIAXLAB_FIELD(SummaryRecord, noEnd, "", "CR LF"),
      TRIAXLAB_FIELD(SummaryRecord, wsSection, "", "section of a sibling tool; carried along unread"),
      TRIAXLAB_FIELD(SummaryRecord, kfSection, "", "section of a sibling tool; carried along unread"),
      TRIAXLAB_FIELD(SummaryRecord, gjTag, "", "\"GJ:\""),
      TRIAXLAB_FIELD(SummaryRecord, gjFlags, "", "\"1\" in a new record; carried along"),
      TRIAXLAB_FIELD(SummaryRecord, gjText1, "", "carried along unread"),
      TRIAXLAB_FIELD(SummaryRecord, gjText2, "", "carried along unread"),
      TRIAXLAB_FIELD(SummaryRecord, gjFlag3, "", "\"1\" in a new record; carried along"),
      TRIAXLAB_FIELD(SummaryRecord, gjTables, "", "carried along unread"),
      TRIAXLAB_FIELD(SummaryRecord, samplingSpot, "", "sampling place"),
      TRIAXLAB_FIELD(SummaryRecord, koValue, "", "Ko of the sample, at most five places"),
      TRIAXLAB_FIELD(SummaryRecord, gjPairs, "", "carried along unread"),
      TRIAXLAB_FIELD(SummaryRecord, gjEnd, "", "CR LF"),
      TRIAXLAB_FIELD(SummaryRecord, pcSection, "", "section of a sibling tool; carried along unread"),
      TRIAXLAB_FIELD(SummaryRecord, cvSection, "", "section of a sibling tool; carried along unread"),
      TRIAXLAB_FIELD(SummaryRecord, htSection, "", "section of a sibling tool; carried along unread"),
      TRIAXLAB_FIELD(SummaryRecord, psSection, "", "section of a sibling tool; carried along unread"),
      TRIAXLAB_FIELD(SummaryRecord, cbSection, "", "section of a sibling tool; carried along unread"),
      TRIAXLAB_FIELD(SummaryRecord, zjTag, "", "\"ZJ:\""),
      TRIAXLAB_FIELD(SummaryRecord, zjDates, "", "today in a new record; carried along"),
      TRIAXLAB_FIELD(SummaryRecord, zjFlag, "", "\"1\" in a new record; carried along"),
      TRIAXLAB_FIELD(SummaryRecord, zjUnread, "", "carried along unread"),
      TRIAXLAB_FIELD(SummaryRecord, zjEnd, "", "CR LF"),
      TRIAXLAB_FIELD(SummaryRecord, szTag, "", "\"SZ:\""),
      TRIAXLAB_FIELD(SummaryRecord, szDate, "", "today in a new record; carried along"),
      TRIAXLAB_FIELD(SummaryRecord, testDateSz, "", "day of the triaxial test, yyyy/mm/dd"),
      TRIAXLAB_FIELD(SummaryRecord, testMethod, "", "1 UU, 2 CU, 3 CD; 0 or blank: no triaxial result"),
      TRIAXLAB_FIELD(SummaryRecord, szUnread, "", "carried along unread"),
      TRIAXLAB_FIELD(SummaryRecord, cSz, "kPa", "c; blank together with φ when both are 0"),
      TRIAXLAB_FIELD(SummaryRecord, phiSz, "degrees", "φ"),
      TRIAXLAB_FIELD(SummaryRecord, cEffSz, "kPa", "c′ of a CU sample"),
      TRIAXLAB_FIELD(SummaryRecord, phiEffSz, "degrees", "φ′ of a CU sample"),
      TRIAXLAB_FIELD(SummaryRecord, strengthByMethod, "",
                     "the same four once more, by test method; blank but for the sample's method"),
      TRIAXLAB_FIELD(SummaryRecord, szEnd, "", "CR LF"),
      TRIAXLAB_FIELD(SummaryRecord, wcTag, "", "\"WC:\""),
      TRIAXLAB_FIELD(SummaryRecord, wcTexts, "kPa", "unconfined: qu, qu′"),
      TRIAXLAB_FIELD(SummaryRecord, wcEnd, "", "CR LF"),
  };
}
static_assert(tiles<SummaryRecord>(2747));

/// Equal texts side by side.
struct TextRun {
  std::size_t count, width;
};
/// How the sibling tools divide bytes that this system carries along.
struct CarriedTexts {
  std::string_view field;  // of SummaryRecord
  std::string_view tag;    // of a whole section, which ends with CR LF; empty for a part of one
  std::size_t size;
  std::span<const TextRun> runs;

  constexpr std::size_t sizeOfRuns() const {
    std::size_t sum = tag.empty() ? 0 : tag.size() + 2;
    for (const TextRun& run : runs) sum += run.count * run.width;
    return sum;
  }
};

namespace detail {
inline constexpr TextRun kWs[]{{2, 10}, {1, 5}, {1, 6}, {2, 5}, {1, 6}, {1, 4}, {3, 6}};
inline constexpr TextRun kKf[]{{2, 10}, {21, 5}, {2, 7}, {2, 8}, {1, 12}};
inline constexpr TextRun kGjTables[]{{1, 2}, {30, 7}, {30, 10}, {22, 6}, {22, 6}};
inline constexpr TextRun kGjPairs[]{{60, 7}};  // thirty pairs
inline constexpr TextRun kPc[]{{4, 7}};
inline constexpr TextRun kCv[]{{30, 10}};
inline constexpr TextRun kHt[]{{2, 4}, {3, 5}, {1, 14}};
inline constexpr TextRun kPs[]{{3, 6}, {2, 5}, {8, 5}, {30, 5}, {30, 5}, {1, 6}, {3, 5}, {2, 10}, {1, 12}};
inline constexpr TextRun kCb[]{{10, 5}, {10, 5}, {3, 5}, {3, 6}};
inline constexpr TextRun kZj[]{{2, 5}, {1, 4}, {1, 6}, {1, 4}, {1, 6}, {1, 4}, {1, 6}, {1, 4}, {1, 6}};
}  // namespace detail

inline constexpr std::array<CarriedTexts, 10> kCarriedTexts{{
    {"wsSection", "WS:", sizeof(SummaryRecord::wsSection), detail::kWs},
    {"kfSection", "KF:", sizeof(SummaryRecord::kfSection), detail::kKf},
    {"gjTables", "", sizeof(SummaryRecord::gjTables), detail::kGjTables},
    {"gjPairs", "", sizeof(SummaryRecord::gjPairs), detail::kGjPairs},
    {"pcSection", "PC:", sizeof(SummaryRecord::pcSection), detail::kPc},
    {"cvSection", "CV:", sizeof(SummaryRecord::cvSection), detail::kCv},
    {"htSection", "HT:", sizeof(SummaryRecord::htSection), detail::kHt},
    {"psSection", "PS:", sizeof(SummaryRecord::psSection), detail::kPs},
    {"cbSection", "CB:", sizeof(SummaryRecord::cbSection), detail::kCb},
    {"zjUnread", "", sizeof(SummaryRecord::zjUnread), detail::kZj},
}};
static_assert(std::ranges::all_of(kCarriedTexts,
                                  [](const CarriedTexts& texts) { return texts.sizeOfRuns() == texts.size; }));

}  // namespace triaxlab

#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

#include "store/summary/summary_record.h"

namespace triaxlab {

// What of a summary file is this system's to write; all else in it is the sibling tools', which may be writing at the
// same time or between a save and its recovery.

/// Bytes of a header or record.
struct SummaryPart {
  std::size_t begin, end;
};

/// Which sample a record is of, and which project's a header: written unchanged with every other part, so that the
/// object is found again when a save is finished later.
inline constexpr SummaryPart kSampleNoPart{offsetof(SummaryRecord, sampleNo), offsetof(SummaryRecord, boreholeNo)};
inline constexpr SummaryPart kProjectNoPart{offsetof(SummaryHeader, projectNo), offsetof(SummaryHeader, createdDate)};

/// Written with a sample that is put into the file, and not when the results of one are blanked.
inline constexpr SummaryPart kSequenceNoPart{offsetof(SummaryRecord, sequenceNo), offsetof(SummaryRecord, sampleNo)};

inline constexpr std::array<SummaryPart, 6> kOwnRecordParts{{
    kSequenceNoPart,
    {kSampleNoPart.begin, offsetof(SummaryRecord, noFlags)},
    {offsetof(SummaryRecord, samplingSpot), offsetof(SummaryRecord, gjPairs)},
    {offsetof(SummaryRecord, testDateSz), offsetof(SummaryRecord, szUnread)},
    {offsetof(SummaryRecord, cSz), offsetof(SummaryRecord, szEnd)},
    {offsetof(SummaryRecord, wcTexts), offsetof(SummaryRecord, wcEnd)},
}};

/// Where results are blanked: no record is made for that.
inline constexpr std::span<const SummaryPart> kBlankedParts = std::span(kOwnRecordParts).subspan(1);

inline constexpr SummaryPart kOwnDatePart{offsetof(SummaryHeader, toolDates),
                                          offsetof(SummaryHeader, toolDates) + sizeof(FixedText<10>)};
inline constexpr SummaryPart kProjectNamePart{offsetof(SummaryHeader, projectName),
                                              offsetof(SummaryHeader, secondTitleLine)};
inline constexpr SummaryPart kSecondTitlePart{offsetof(SummaryHeader, secondTitleLine),
                                              offsetof(SummaryHeader, layoutCode)};
/// The count of records, which goes on from what stands there, is apart from these.
inline constexpr std::array<SummaryPart, 3> kOwnHeaderParts{kOwnDatePart, kProjectNamePart, kSecondTitlePart};
inline constexpr SummaryPart kSampleCountPart{offsetof(SummaryHeader, sampleCount), offsetof(SummaryHeader, projectNo)};

constexpr bool isInside(std::size_t at, std::span<const SummaryPart> parts) {
  return std::any_of(parts.begin(), parts.end(),
                     [at](const SummaryPart& part) { return part.begin <= at && at < part.end; });
}

/// Some bytes of an object as it lies in the file.
inline std::span<const std::byte> partOf(std::span<const std::byte> object, const SummaryPart& part) {
  return object.subspan(part.begin, part.end - part.begin);
}

}  // namespace triaxlab

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <stdexcept>

#include "format_pages.h"
#include "importers/importer.h"
#include "importers/raw_layouts.h"
#include "page.h"

namespace triaxlab::formats {
namespace {

constexpr std::string_view kSignAndMagnitude = R"(
Sign and magnitude: the top bit means minus, so `05 80` is −5. The word −30000 stands for a reading that was not taken,
wherever it occurs and before its sign is looked at: a stress or dial reading drops its row, a pore pressure stays blank,
any other word counts as 0.
)";

constexpr std::string_view kRowsFromOne = "Reading k of the shear phase is row k − 1.";

constexpr std::string_view kOneSample = R"(
Specimens with the same project, sample number and method are one sample. A specimen of a pressure that its sample has
already replaces the earlier one, and a sixth pressure is dropped.
)";

void addLayouts(Page& page, std::string_view source) {
  for (const RawLayout& layout : importerOfId(source)->layouts()) {
    page.heading(fmt::format("{}, {} bytes", layout.title, layout.size));
    page.record(layout.rows, layout.size);
  }
}

std::string automaticPage() {
  Page page("HSZSJ.KU: the fully automatic triaxial apparatus");
  page.text(R"(
Read by `src/importers/automatic.cpp`; the index is that of all `.KU` files but one (`src/importers/ku_file.h`). Never
written. Text ends at the first zero byte if there is one.

    file  = count entry*count ... block*count        the blocks stand anywhere behind
    count = int16                                    at most 100 entries are listed
    block = groups byte, groups x 5 specimens        older block
          | byte (passed over), specimens            newer block; the entry tells how many
)");
  addLayouts(page, "auto");
  page.heading("How they belong together");
  page.text(R"(
In an older block the project number goes on with the four places of `entryProjectTail`. In a newer one it goes on with
the last place there that isn't blank, then the three bytes behind: `entryFormat`, which tells the block, is a character
of the number, at least a blank.

An older block holds a sample as a group of five slots; a newer one holds specimens one by one.
)");
  page.text(kOneSample);
  page.text(kSignAndMagnitude);
  page.text(kRowsFromOne);
  page.text(R"(
The older reader (`auto-old`) takes every block for an older one and the words as they stand: no sign and magnitude, the
first 21 pore pressures of the consolidation only, no correction of the stress, a row for each group.
)");
  page.heading("Worked example");
  page.text(R"(
A newer block of one specimen at offset 32 of a file with one row, project `2024-018`:

    01 00                                count 1
    01                                   not used
    32 30 32 34 2D 30                    "2024-0"
    32 30 32 34 30 34 31 32              "20240412"
    01                                   one specimen
    00 00 20 00                          offset: high word 0, low word 32
    00 00                                not used
    01                                   UU
    20 20 20 31                          "   1": its last place is the seventh of the number
    38                                   "8": 56, above 10, so a newer block
    20 20                                "  "
    00                                   at 32: passed over
    FF 00 00 01 01 32 30 32 34 ...       at 33: the specimen
)");
  return page.markdown();
}

std::string qvb98Page() {
  Page page("KSZSJ.KU: the QVB98 triaxial apparatus");
  page.text(R"(
Read by `src/importers/qvb98.cpp`. Never written. The index is that of [HSZSJ.KU](automatic-triaxial-ku.md).

    block = groups byte, groups x group, long numbers
    group = 20 bytes (meaning unknown), 4 specimens
    long numbers = text 644: "zmgj", then ten places for each group

A group is one sample, whose number, method and `shearMode` are those of its first specimen. Where the long numbers begin
with `zmgj` and a group has one of more than six characters there, it goes before the packed one. The load is a dial
reading times the coefficient of the ring; it is put over the section that the specimen has then, in the unit that the
stored coefficient gives it.
)");
  addLayouts(page, "qvb98");
  page.text(kSignAndMagnitude);
  page.text("Here reading i stands at index i, and is row i; its volume change is that of index i + 1.");
  return page.markdown();
}

std::string newQvbPage() {
  Page page("RSZSJ.KU: the newer QVB triaxial apparatus");
  page.text(R"(
Read by `src/importers/new_qvb.cpp`. Never written. The index is that of [HSZSJ.KU](automatic-triaxial-ku.md).

    block = 2 bytes (passed over), specimens
)");
  addLayouts(page, "new-qvb");
  page.text(R"(
Specimens with the same project, sample number and method are one sample. A specimen of a pressure that its sample has
already is filled over the earlier one, of which what it doesn't write itself stays; a sixth pressure is dropped.
)");
  page.text(kSignAndMagnitude);
  page.text(kRowsFromOne);
  return page.markdown();
}

std::string manualPage() {
  Page page("SDSZSJ.KU: triaxial tests entered by hand");
  page.text(R"(
Read by `src/importers/manual.cpp`. Never written. There is no count: a hundred index entries stand from offset 0, and the
records, one specimen each, from offset 4000. An entry whose records lie outside the file is shown and brings what there is.
)");
  addLayouts(page, "manual");
  page.text(kOneSample);
  page.text(R"(
No word has a sign bit of its own. The word −30000 stands for a reading that was not taken: a stress drops its row, a pore
pressure stays blank, any other word counts as 0.
)");
  page.text(kRowsFromOne);
  return page.markdown();
}

std::string nanjingPage() {
  Page page("*.SZD: the Nanjing triaxial apparatus");
  page.text(R"(
Read by `src/importers/nanjing.cpp`. Never written. Lines of GBK text that end with a line feed, and binary readings
between them; the file has no fixed offsets. A block is one sample with one specimen:

    line    SZ-data                     the marker, alone; a carriage return behind it makes it none
    line    test date
    line    project number
    line    sample number
    9 lines with a number each          meaning unknown
    4 bytes                             meaning unknown
    pairs of uint16, at most 301        stress difference, 0.01 kPa; at a strain of 0, then each 0.1 %
    uint16 0x7141, 0x7A3D               two words that end the pairs
    3 bytes                             meaning unknown
    uint16                              high half of the cell pressure in kPa as a float32

The first 201 readings are taken. The cell pressures that are known are 0x4248 50, 0x42C8 100, 0x4348 200 and 0x4396 300;
any other word leaves it blank. Without the two end words the lines go on behind the last pair. What stands between the
blocks, or before the first marker, is passed over.
)");
  return page.markdown();
}

constexpr std::string_view kUnconfinedReadings = R"(
Word i of the readings is row i of the sample's record. The word −30000 stands for a reading that was not taken: reading,
strain and stress of its row stay blank.
)";

std::string kzjPage() {
  Page page("KZJSJ.KU: the unconfined compression apparatus");
  page.text(R"(
Read by `src/importers/unconfined_kzj.cpp`. Never written. The index is that of [HSZSJ.KU](automatic-triaxial-ku.md).

    block = groups byte, groups x group, long numbers
    long numbers = text 644: "zmgj", then ten places for each group
)");
  addLayouts(page, "unconfined-kzj");
  page.text(R"(
The bytes of a packed number stand in reverse: 0x10, 0x1F, 0xFF from the last to the first are the number 101. A long
number of more than six characters takes the place of both packed numbers of its group. Each side goes to the row of its
own number; a side whose packed number is zero bytes alone, or has no characters, is no specimen.
)");
  page.text(kUnconfinedReadings);
  return page.markdown();
}

std::string hwxPage() {
  Page page("HWXSJ.KU: the newer unconfined compression apparatus");
  page.text(R"(
Read by `src/importers/unconfined_hwx.cpp`. Never written. The index is that of [HSZSJ.KU](automatic-triaxial-ku.md).

    block = specimens byte, specimens

Which words of a specimen hold height, area and ring coefficient, what the byte of its side says and how its readings are
counted is settled by our own reading of descriptions alone: no file of the apparatus has shown it yet. When one does, the
table `HwxSpecimenRecord` and the constants in front of it are corrected, and nothing else has to be.
)");
  addLayouts(page, "unconfined-hwx");
  page.text(R"(
A specimen replaces its side of the row of its sample whole; a later one of the same side holds.
)");
  page.text(kUnconfinedReadings);
  return page.markdown();
}

std::string kgjPage() {
  Page page("KGJSJ.KU: the K0 apparatus");
  page.text(R"(
Told in `src/importers/k0_kgj.cpp`. The index is that of [HSZSJ.KU](automatic-triaxial-ku.md); the first two places of
the entry's tail are the number of the bench.

    block = stations                              as many as the groups of the index entry

Loads, deformations and lateral pressures are written with three decimals, the word divided by 1000: a load of 400 becomes
0.400, and only a file of the apparatus can tell whether that is kPa or MPa. Ko doesn't depend on it. A word of -30000 is no
reading. Stages up to the stage count are written, those behind it are blank.

## What a file of the apparatus has yet to settle

That a station has 2136 bytes and counts in thousandths is known. Everything else in the record below, and that the groups
of the entry are its stations, is this program's own reading, from descriptions. A file of a laboratory would be met by
moving the members of `KgjStationRecord`, which the compiler then holds to the record's size; divisor and decimals stand in
`kStageWords` beside it.
)");
  addLayouts(page, "k0-kgj");
  return page.markdown();
}

std::string hgjPage() {
  Page page("HGJSJ.KU: the newer K0 apparatus");
  page.text(R"(
Told in `src/importers/k0_hgj.cpp`, the calibration in `src/importers/pressure_calibration.h`. The index is that of
[HSZSJ.KU](automatic-triaxial-ku.md).

    block = header, [224 bytes], readings         the 224 bytes when sixteen unconfined stations are recorded as well
    readings = times, series                      modes 1 and 2
             | stage ends of each station         mode 3
    times = 31 x int32                            seconds since the beginning of a stage; 0: no reading
    series: the reading of a row, stage and station (all from 0) lies at ((row x 10 + stage) x 64 + station) x 4
    stage ends: those of a station (from 0) lie at station x stride, six bytes for each stage

The header has places for 64 stations. Of the ten bytes in `stationFlags` that each has, byte 0 tells its kind: 0 empty,
1 compression, 2 consolidation, 3 single line of loess, 4 K0, 5 double line of loess. Byte 2, modulo 10, is its row of
the load table, counted from 1; 0 means no loads. Byte 4 is its recording mode. Only K0 stations whose project number is
that of the index, or blank, are taken. The first load of 0 ends a row of the load table. Stations of different modes in one
block all count from the beginning of the readings.

A series goes into the TK0 table up to the last row that has a time. The K0 table takes its last row as the end of each
stage in mode 2, and in mode 1 nothing but the loads. A word of -30000 is no reading.

## Calibration: KGJYBXL1.TB to KGJYBXL7.TB

Raw lateral pressures go through the table of their channel, which is the station. The files lie in the source folder, are
text of GBK with LF or CR LF, and are read in the order of their numbers:

    some lines, of which one has 123456 in it
    a line of 22 raw points, in columns of seven bytes from the fifth byte on
    a line for each channel with the 22 pressures at these points, in the same columns

The first file gives the raw points of all; the channels of the next follow those of the one before, 64 at most. A file
without a line with 123456 is passed over; a blank line between channels is a channel of zeros, as is a column that is no
number. Between two points the pressure goes straight; outside the points, of a channel that doesn't exist and without any
table it is 0, and a remark says what was missing.

## What a file of the apparatus has yet to settle

Known are the header with the stations, kinds and loads, the 224 bytes, the deformation of a stage end, and of the
calibration the columns and the line with 123456. This program's own reading, from descriptions, is:

- that the stride of mode 3 is the word at 2174, and the third word of a stage end the raw lateral pressure;
- the whole of modes 1 and 2: the times in front, the order of the series, its two words;
- that the channel of a station is its number, the line behind 123456 holds the raw points, and channels run on from file
  to file.

A file of a laboratory would be met in one place each: the members of `HgjBlockHeader`, `StageEndWords` and `SeriesWords`,
the functions `readingsOfStageEnds` and `placeInSeries`, and `PressureCalibration::add`.
)");
  addLayouts(page, "k0-hgj");
  return page.markdown();
}

constexpr std::array kRawPages{
    FormatPage{"automatic-triaxial-ku.md", "`HSZSJ.KU`: fully automatic triaxial apparatus (read only)", automaticPage},
    FormatPage{"qvb98-triaxial-ku.md", "`KSZSJ.KU`: QVB98 triaxial apparatus (read only)", qvb98Page},
    FormatPage{"new-qvb-triaxial-ku.md", "`RSZSJ.KU`: newer QVB triaxial apparatus (read only)", newQvbPage},
    FormatPage{"manual-triaxial-ku.md", "`SDSZSJ.KU`: triaxial tests entered by hand (read only)", manualPage},
    FormatPage{"nanjing-triaxial-szd.md", "`*.SZD`: Nanjing triaxial apparatus (read only)", nanjingPage},
    FormatPage{"unconfined-kzj-ku.md", "`KZJSJ.KU`: unconfined compression apparatus (read only)", kzjPage},
    FormatPage{"unconfined-hwx-ku.md", "`HWXSJ.KU`: newer unconfined compression apparatus (read only)", hwxPage},
    FormatPage{"k0-kgj-ku.md", "`KGJSJ.KU`: K0 apparatus (read only)", kgjPage},
    FormatPage{"k0-hgj-ku.md", "`HGJSJ.KU`: newer K0 apparatus, and its calibration (read only)", hgjPage},
};

const FormatPage& rawPageOf(const Importer& importer) {
  const auto* const page = std::find_if(kRawPages.begin(), kRawPages.end(),
                                        [&](const FormatPage& raw) { return raw.file == importer.formatPage; });
  if (page == kRawPages.end())
    throw std::logic_error(fmt::format("{} of the source {} isn't written", importer.formatPage, importer.id));
  return *page;
}

}  // namespace

std::vector<FormatPage> rawFilePages() {
  std::vector<FormatPage> pages;
  for (const Importer* importer : importers()) {
    const auto isThere = [&](const FormatPage& page) { return page.file == importer->formatPage; };
    if (importer->formatPage.empty() || std::any_of(pages.begin(), pages.end(), isThere)) continue;
    pages.push_back(rawPageOf(*importer));
  }
  return pages;
}

}  // namespace triaxlab::formats

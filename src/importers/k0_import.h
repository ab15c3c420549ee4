#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "importers/import_plan.h"
#include "importers/importer.h"
#include "importers/indexed_source.h"
#include "importers/ku_file.h"
#include "importers/recognition.h"
#include "k0/record.h"

namespace triaxlab {

// What the sources of the K0 and TK0 tests have in common. A station is a sample, and a sample is a row of its own.

template <>
struct ImportTarget<K0SampleRecord> {
  static constexpr SampleTable<K0SampleRecord> Workspace::*kTable = &Workspace::K0SampleTable;
  static void finish(K0SampleRecord& /*record*/) {}
};

template <>
struct ImportTarget<TK0SampleRecord> {
  static constexpr SampleTable<TK0SampleRecord> Workspace::*kTable = &Workspace::TK0SampleTable;
  static void finish(TK0SampleRecord& /*record*/) {}
};

template <>
struct SampleIdentity<TK0SampleRecord> : SampleIdentity<K0SampleRecord> {};

template <class Record>
void addStation(ImportPlan<Record>& plan) {
  plan.addGroup({}, ImportPlan<Record>::Gathering::OwnRow);
}

using K0Entry = KuIndexEntry<FixedText<8>>;

/// A grid row with project number and date, as far as all these sources have it.
SourceRow k0GridRow(const K0Entry& entry);

/// The numbers of a station in use. One without a sample number says nothing of its file.
Likeness likenessOfStation(std::string_view projectNo, std::string_view sampleNo);

/// One project, and where the grid tells it one kind of test, can be read at a time. `columns` are those that must
/// agree, the project's first.
constexpr Marking markingOfOneProject(std::span<const std::size_t> columns) {
  return {.sameColumns = columns,
          .refusal = "与已选的工程编号或试验内容不同，不能同时处理",
          .label = "选中工程:",
          .withoutMarks = "对不起，你没有选中数据"};
}

inline constexpr std::string_view kK0MessageTitle = "打开K0试验原始数据";
inline constexpr ImportMessage kNoK0Data{kK0MessageTitle, "没有K0试验数据..."};

}  // namespace triaxlab

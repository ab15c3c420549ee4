#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "common/gbk.h"
#include "platform/files.h"
#include "shell/start_up.h"
#include "store/project/project_header.h"
#include "store/project/project_kinds.h"
#include "store/workspace.h"
#include "support/temporary_folder.h"
#include "triaxial/record.h"

namespace triaxlab::testing {

inline void append(std::string& to, std::span<const std::byte> bytes) {
  to.append(reinterpret_cast<const char*>(bytes.data()), bytes.size());
}

/// A live sample with one stage of 100 kPa cell pressure and a peak of 60 kPa at 3 %.
inline TriaxialSampleRecord sample(std::string_view projectNo, std::string_view sampleNo, TestMethod method = kUU) {
  TriaxialSampleRecord record;
  SetText(record.projectNo, projectNo);
  SetText(record.sampleNo, sampleNo);
  record.testMethod = method;
  record.shearMode = 1;
  SetText(record.cellPressure[0], "100");
  SetText(record.deviatorStress[0][0], "40");
  record.axialStrain[0][0] = 1.0F;
  SetText(record.deviatorStress[1][0], "60");
  record.axialStrain[1][0] = 3.0F;
  return record;
}

/// A project file of any kind with samples of these numbers (GBK) and nothing else in them but a letter at the very
/// end: a, b, c ... in their order.
inline std::string sampleFileBytes(ProjectKind kind, std::string_view projectNo,
                                   const std::vector<std::string>& sampleNumbers,
                                   std::string_view createdDate = "2024/01/02") {
  const ProjectKindInfo& info = infoOf(kind);
  ProjectHeader header;
  SetText(header.sampleCount, FormatPadded(static_cast<int>(sampleNumbers.size()), 4));
  SetText(header.projectNo, projectNo);
  SetText(header.createdDate, createdDate);
  SetText(header.versionTag, info.versionTag);
  std::string bytes;
  append(bytes, bytesOf(header));
  for (std::size_t i = 0; i < sampleNumbers.size(); ++i) {
    std::string record;
    append(record, info.blankRecord());
    const auto put = [&record](std::size_t at, std::size_t width, std::string text) {
      text.resize(width, ' ');
      record.replace(at, width, text);
    };
    put(0, 15, std::string(projectNo));
    put(15, info.identity.sampleNoWidth, sampleNumbers[i]);
    record.back() = static_cast<char>('a' + i % 26);
    bytes += record;
  }
  if (info.hasEndText) bytes.append(100, ' ');
  return bytes;
}

/// Count, then sample number and last letter of each record, and what is left behind them: "0002 Bb Aa +100".
inline std::string contentOfSampleFile(ProjectKind kind, const std::string& bytes) {
  const std::size_t size = infoOf(kind).recordSize;
  std::string content = bytes.substr(0, 4);
  std::size_t at = 81;
  for (; at + size <= bytes.size(); at += size)
    content += " " + std::string(Trim(std::string_view(bytes).substr(at + 15, 14))) + bytes[at + size - 1];
  return content + " +" + std::to_string(bytes.size() - at);
}

/// A laboratory on disk after its first start: application and data folder in one.
class Lab {
 public:
  Lab() {
    workspace.applicationFolder = folder.path();
    startUp(workspace);
    workspace.fixedToday = Date{2024, 5, 6};
  }

  /// Writes HSZS\WKSZ<projectNo>.txt. `projectNo` in GBK.
  void writeProject(std::string_view projectNo, const std::vector<TriaxialSampleRecord>& samples) const {
    ProjectHeader header;
    SetText(header.sampleCount, FormatPadded(static_cast<int>(samples.size()), 4));
    SetText(header.projectNo, projectNo);
    SetText(header.createdDate, "2024/01/02");
    SetText(header.processedDate, "2024/03/04");
    SetText(header.testDate, "2024/01/01");
    SetText(header.operatorName, "Wang");
    SetText(header.versionTag, "V2.0");
    std::string bytes;
    append(bytes, bytesOf(header));
    for (const TriaxialSampleRecord& record : samples) append(bytes, bytesOf(record));
    bytes.append(100, ' ');
    folder.write("HSZS/WKSZ" + gbkToUtf8(projectNo) + ".txt", bytes);
  }
  /// Writes the project file of sampleFileBytes and returns its name.
  std::string writeSamples(ProjectKind kind, std::string_view projectNo, const std::vector<std::string>& sampleNumbers,
                           std::string_view createdDate = "2024/01/02") const {
    std::string name = std::string(infoOf(kind).filePrefix) + gbkToUtf8(projectNo) + ".txt";
    folder.write("HSZS/" + name, sampleFileBytes(kind, projectNo, sampleNumbers, createdDate));
    return name;
  }
  bool hasProject(const std::string& projectNo) const {
    return fileExists(folder.path() / "HSZS" / ("WKSZ" + projectNo + ".txt"));
  }

  TemporaryFolder folder;
  Workspace workspace;
};

}  // namespace triaxlab::testing

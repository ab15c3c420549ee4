#include "sessions/dialogs/overwrite_session.h"

#include <algorithm>
#include <utility>

#include "common/gbk.h"

namespace triaxlab {

OverwriteSession::OverwriteSession(Workspace& workspace, std::vector<KnownSample> known)
    : m_workspace(workspace), m_known(std::move(known)) {}

std::vector<std::string> OverwriteSession::headings() const {
  return {"序号", m_workspace.settings.habits.sampleNoLabel, "已存围压", "已存土样名称", "导入围压", "导入土样名称",
          ""};
}

int OverwriteSession::largestScroll() const { return std::max(0, rowCount() - kVisibleRows); }

void OverwriteSession::setScroll(int value) { m_scroll = std::clamp(value, 0, largestScroll()); }

const KnownSample* OverwriteSession::sampleAt(int index) const {
  const int row = m_scroll + index;
  if (index < 0 || index >= kVisibleRows || row >= rowCount()) return nullptr;
  return &m_known[static_cast<std::size_t>(row)];
}

OverwriteSession::Line OverwriteSession::line(int index) const {
  const KnownSample* const sample = sampleAt(index);
  if (sample == nullptr) return {"", rowCount() == 0 && index == 0 ? std::string(kNothingKnown) : ""};
  return {std::to_string(m_scroll + index + 1),
          gbkToUtf8(m_workspace.TriaxialSampleTable[sample->row].sampleNo.trimmed()), sample->stored, sample->coming,
          keepExisting()[sample->row] ? "不覆盖" : "覆盖"};
}

void OverwriteSession::flip(int index) {
  if (const KnownSample* const sample = sampleAt(index)) keepExisting().flip(sample->row);
}

// Only listed rows are set: a sample that is new when the save begins is written even if the import holds it twice.
void OverwriteSession::keepAll() {
  for (const KnownSample& sample : m_known) keepExisting().set(sample.row);
}

void OverwriteSession::overwriteAll() {
  for (const KnownSample& sample : m_known) keepExisting().reset(sample.row);
}

}  // namespace triaxlab

#pragma once

#include <vector>

#include "sessions/triaxial/curve_session.h"

class QGroupBox;
class QWidget;

namespace triaxlab {

class ClickLabel;

/// 物理指标, the physical index values of the sample under the list while its curves are corrected.
class PhysicalBlock {
 public:
  /// Made as a child of the window, hidden.
  explicit PhysicalBlock(QWidget* window);

  /// Hidden when there are no values.
  void show(const std::vector<LabelledText>& values);

 private:
  QGroupBox* m_frame;
  std::vector<ClickLabel*> m_labels, m_values;
};

}  // namespace triaxlab

#include "windows/triaxial/physical_block.h"

#include <QGroupBox>
#include <array>
#include <tuple>

#include "store/summary/physical_data.h"
#include "windows/controls/click_label.h"
#include "windows/controls/layout.h"
#include "windows/controls/words.h"

namespace triaxlab {
namespace {

// Twips; inside the frame from its own corner.
constexpr Place kFrame{60, 7200, 3975, 1740};
constexpr int kTop = 255, kPitch = 240, kLines = 5;
constexpr std::array kLabelX{90, 1950}, kValueX{1200, 3060};
constexpr int kLabelWidth = 1100, kValueWidth = 740, kRemarkWidth = 2700;

}  // namespace

PhysicalBlock::PhysicalBlock(QWidget* window)
    : m_frame(put(new QGroupBox("物理指标", window), "PhysicalFrame", kFrame)) {
  const int count = static_cast<int>(std::tuple_size_v<PhysicalValues>);
  for (int i = 0; i < count; ++i) {
    // Two columns; the last value is the remark, which has the line below them.
    const bool isRemark = i == count - 1;
    const auto column = static_cast<std::size_t>(isRemark ? 0 : i / kLines);
    const int y = kTop + kPitch * (isRemark ? kLines : i % kLines);
    const int width = isRemark ? kRemarkWidth : kValueWidth;
    m_labels.push_back(
        put(new ClickLabel(m_frame), arrayName("PhysicalLabel", i), {kLabelX.at(column), y, kLabelWidth, kPitch}));
    m_values.push_back(
        put(new ClickLabel(m_frame), arrayName("PhysicalValue", i), {kValueX.at(column), y, width, kPitch}));
  }
  m_frame->hide();
}

void PhysicalBlock::show(const std::vector<LabelledText>& values) {
  for (std::size_t i = 0; i < values.size() && i < m_values.size(); ++i) {
    m_labels.at(i)->setText(words(values.at(i).label));
    m_values.at(i)->setText(words(values.at(i).text));
  }
  m_frame->setVisible(!values.empty());
}

}  // namespace triaxlab

#include "windows/dialogs/move_rows_window.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "windows/controls/layout.h"
#include "windows/controls/number_box.h"
#include "windows/controls/words.h"

namespace triaxlab {
namespace {

constexpr Place kWindow{0, 0, 7200, 2500};
constexpr Place kReturn{5500, 1800, 1400, 420};
constexpr int kBoxWidth = 900, kBoxHeight = 330, kLabelWidth = 600;
constexpr int kButtonX = 5500, kButtonWidth = 1400, kButtonHeight = 420;

/// A line of the window moves one row, the other a block.
struct Line {
  const char* control;
  std::string_view caption;
  void (RowMoves::*move)();
  int y;
};
constexpr std::array kLines{Line{"Command1", RowMoves::kMoveRow, &RowMoves::moveRow, 300},
                            Line{"Command2", RowMoves::kMoveBlock, &RowMoves::moveBlock, 1020}};

/// Text1 to Text5, each behind its label.
struct Box {
  std::size_t line;
  const char* label;
  int x;  // of the label
};
constexpr std::array<Box, RowMoves::kNumbers> kBoxes{
    {{0, "序号", 300}, {0, "移到", 3500}, {1, "序号", 300}, {1, "至", 1900}, {1, "移到", 3500}}};

}  // namespace

Form17::Form17(QWidget* parent, RowMoves& moves) : QDialog(parent) {
  setObjectName("Form17");
  setWindowTitle(words(moves.caption()));
  setFixedSize(rectangle(kWindow).size());
  const auto button = [this](const char* name, std::string_view caption, Place place) {
    auto* const made = put(new QPushButton(words(caption), this), name, place);
    made->setAutoDefault(false);
    return made;
  };
  for (std::size_t l = 0; l < kLines.size(); ++l) {
    const Line& line = kLines.at(l);
    const auto move = [&moves, &line] { (moves.*line.move)(); };
    for (std::size_t i = 0; i < kBoxes.size(); ++i) {
      const Box& box = kBoxes.at(i);
      if (box.line != l) continue;
      const int number = static_cast<int>(i) + 1;
      put(new QLabel(box.label, this), QString("Label%1").arg(number), {box.x, line.y, kLabelWidth, kBoxHeight})
          ->setAlignment(Qt::AlignCenter);
      QLineEdit* const edit = numberBox(this, QString("Text%1").arg(number),
                                        {box.x + kLabelWidth, line.y, kBoxWidth, kBoxHeight}, moves.numbers.at(i));
      connect(edit, &QLineEdit::returnPressed, this, move);
    }
    QPushButton* const made = button(line.control, line.caption, {kButtonX, line.y - 45, kButtonWidth, kButtonHeight});
    connect(made, &QPushButton::clicked, this, move);
  }
  connect(button("Command3", RowMoves::kReturn, kReturn), &QPushButton::clicked, this, &QDialog::reject);
}

}  // namespace triaxlab

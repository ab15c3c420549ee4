#include "windows/dialogs/range_window.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "windows/controls/layout.h"
#include "windows/controls/number_box.h"
#include "windows/controls/words.h"

namespace triaxlab {
namespace {

constexpr Place kWindow{0, 0, 4500, 2100};
constexpr Place kPrompt{300, 200, 3900, 300};
constexpr Place kFirst{300, 650, 1500, 330}, kTo{1950, 650, 600, 330}, kLast{2700, 650, 1500, 330};
constexpr Place kAccept{1500, 1350, 1500, 400};

}  // namespace

Form21::Form21(QWidget* parent, RangeDialog& range) : QDialog(parent) {
  setObjectName("Form21");
  setWindowTitle(words(RangeDialog::kCaption));
  setFixedSize(rectangle(kWindow).size());
  put(new QLabel("读取的试样序号：", this), "Label1", kPrompt);
  QLineEdit* const first = numberBox(this, "Text1", kFirst, range.first);
  auto* const to = put(new QLabel("至", this), "Label2", kTo);
  to->setAlignment(Qt::AlignCenter);
  numberBox(this, "Text2", kLast, range.last);
  auto* const accept = put(new QPushButton(words(RangeDialog::kAccept), this), "Command1", kAccept);
  accept->setDefault(true);
  connect(accept, &QPushButton::clicked, this, &QDialog::accept);
  first->selectAll();
  first->setFocus();
}

}  // namespace triaxlab

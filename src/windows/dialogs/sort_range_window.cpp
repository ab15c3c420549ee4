#include "windows/dialogs/sort_range_window.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "windows/controls/layout.h"
#include "windows/controls/number_box.h"
#include "windows/controls/words.h"

namespace triaxlab {
namespace {

constexpr int kMethodsHeight = 660;  // what a deletion, which has no methods, is shorter
constexpr Place kWindow{0, 0, 4800, 2400};
constexpr Place kNumbers{300, 300, 600, 330}, kFirst{960, 300, 1400, 330}, kTo{2360, 300, 500, 330};
constexpr Place kLast{2860, 300, 1400, 330};
constexpr Place kAccept{780, 1680, 1400, 420}, kCancel{2620, 1680, 1400, 420};
constexpr std::array<Place, 2> kMethods{{{960, 960, 1400, 330}, {2860, 960, 1400, 330}}};
constexpr Place lifted(Place place, bool hasMethods) {
  return {place.x, place.y - (hasMethods ? 0 : kMethodsHeight), place.width, place.height};
}
constexpr std::array kMethodOfOption{SortMethod::ByText, SortMethod::ByTextAndNumber};

}  // namespace

Form16::Form16(QWidget* parent, ListRangeDialog& range) : QDialog(parent), m_range(range) {
  setObjectName("Form16");
  setWindowTitle(words(range.caption()));
  const int unused = range.asksForMethod() ? 0 : kMethodsHeight;
  setFixedSize(rectangle({0, 0, kWindow.width, kWindow.height - unused}).size());
  put(new QLabel(words(ListRangeDialog::kNumbers), this), "Label1", kNumbers);
  QLineEdit* const first = numberBox(this, "Text1", kFirst, range.first);
  put(new QLabel(words(ListRangeDialog::kTo), this), "Label2", kTo)->setAlignment(Qt::AlignCenter);
  numberBox(this, "Text2", kLast, range.last);
  makeMethods();
  makeButtons();
  first->selectAll();
  first->setFocus();
}

void Form16::makeMethods() {
  for (std::size_t i = 0; i < kMethods.size(); ++i) {
    auto* const option = put(new QRadioButton(words(ListRangeDialog::kMethods.at(i)), this),
                             QString("Option%1").arg(i + 1), kMethods.at(i));
    option->setChecked(m_range.method == kMethodOfOption.at(i));
    option->setVisible(m_range.asksForMethod());
    connect(option, &QRadioButton::clicked, this, [this, i] { m_range.method = kMethodOfOption.at(i); });
  }
}

void Form16::makeButtons() {
  auto* const acceptButton =
      put(new QPushButton(words(ListRangeDialog::kAccept), this), "Command1", lifted(kAccept, m_range.asksForMethod()));
  acceptButton->setDefault(true);
  connect(acceptButton, &QPushButton::clicked, this, [this] {
    m_range.accept();
    accept();
  });
  auto* const cancel =
      put(new QPushButton(words(ListRangeDialog::kCancel), this), "Command2", lifted(kCancel, m_range.asksForMethod()));
  cancel->setAutoDefault(false);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

}  // namespace triaxlab

#pragma once

#include <fmt/core.h>

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QTableView>
#include <string>
#include <vector>

#include "windows/controls/click_label.h"
#include "windows/controls/words.h"

namespace triaxlab::testing {

/// Pixels by which the edges of neighbours may differ.
inline constexpr int kRounding = 1;
/// A head that is wider than its column is condensed as far as this, and told in full by its tip.
inline constexpr double kMostCondensed = 0.55;

/// What a person can see of a window in which something is cut or covered.
class WindowGeometry {
 public:
  /// One sentence for each fault.
  static std::vector<std::string> faultsOf(const QWidget& window) {
    WindowGeometry geometry(window);
    for (const QWidget* const control : geometry.controls()) geometry.lookAt(*control);
    geometry.lookForOverlaps();
    return geometry.m_faults;
  }

 private:
  explicit WindowGeometry(const QWidget& window) : m_window(window) {}

  /// Not the parts of which the toolkit makes its own controls.
  std::vector<const QWidget*> controls() const {
    std::vector<const QWidget*> found;
    for (const QWidget* const control : m_window.findChildren<QWidget*>())
      if (control->isVisibleTo(&m_window) && !isInside<QComboBox>(control) && !isInside<QAbstractScrollArea>(control))
        found.push_back(control);
    return found;
  }
  template <class Owner>
  bool isInside(const QWidget* control) const {
    for (const QWidget* at = control->parentWidget(); at != nullptr && at != &m_window; at = at->parentWidget())
      if (qobject_cast<const Owner*>(at) != nullptr) return true;
    return false;
  }

  void lookAt(const QWidget& control) {
    if (!control.parentWidget()
             ->rect()
             .adjusted(-kRounding, -kRounding, kRounding, kRounding)
             .contains(control.geometry()))
      tell(control, "reaches over the edge of what holds it");
    if (control.height() < lettersOf(control) && hasText(control)) tell(control, "is too low for its letters");
    if (const int needed = neededWidth(control); needed > roomOf(control))
      tell(control, fmt::format("needs {} pixels for its text and has {}", needed, roomOf(control)));
    if (const auto* const grid = qobject_cast<const QTableView*>(&control)) lookAtHeads(*grid);
  }

  static bool hasText(const QWidget& control) {
    return qobject_cast<const QLabel*>(&control) != nullptr || qobject_cast<const QLineEdit*>(&control) != nullptr ||
           qobject_cast<const QAbstractButton*>(&control) != nullptr;
  }
  /// What is seen of a line of letters; their blank edges may be cut.
  static int lettersOf(const QWidget& control) {
    return control.fontMetrics().tightBoundingRect(QString("国gj")).height();
  }

  static int neededWidth(const QWidget& control) {
    const auto widthOf = [&control](const QString& text) { return control.fontMetrics().size(0, text).width(); };
    if (const auto* const label = qobject_cast<const ClickLabel*>(&control))
      return static_cast<int>(widthOf(label->text()) *
                              (label->objectName().startsWith("ColumnHead") ? kMostCondensed : 1));
    if (const auto* const label = qobject_cast<const QLabel*>(&control))
      return label->wordWrap() ? 0 : widthOf(label->text());
    if (const auto* const button = qobject_cast<const QPushButton*>(&control)) return widthOf(button->text());
    if (const auto* const button = qobject_cast<const QAbstractButton*>(&control)) return button->sizeHint().width();
    if (const auto* const frame = qobject_cast<const QGroupBox*>(&control)) return widthOf(frame->title());
    int widest = 0;
    if (const auto* const list = qobject_cast<const QComboBox*>(&control))
      for (int i = 0; i < list->count(); ++i) widest = std::max(widest, widthOf(list->itemText(i)));
    return widest;
  }
  static int roomOf(const QWidget& control) {
    if (qobject_cast<const QComboBox*>(&control) != nullptr) {
      QStyleOptionComboBox option;
      option.initFrom(&control);
      return control.style()
          ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &control)
          .width();
    }
    return control.contentsRect().width();
  }

  void lookAtHeads(const QTableView& grid) {
    const QHeaderView& heads = *grid.horizontalHeader();
    for (int column = 0; column < heads.count() && heads.isVisible(); ++column) {
      const QString head = grid.model()->headerData(column, Qt::Horizontal).toString();
      if (heads.fontMetrics().size(0, head).width() > heads.sectionSize(column))
        tell(grid, fmt::format("cuts the head {}", utf8(head)));
    }
  }

  /// Neighbours share no ground, but a control may lie wholly on another: a box on a cell, a field on a canvas.
  void lookForOverlaps() {
    const std::vector<const QWidget*> all = controls();
    for (std::size_t i = 0; i < all.size(); ++i)
      for (std::size_t k = i + 1; k < all.size(); ++k) {
        const QRect one = all[i]->geometry(), other = all[k]->geometry(), shared = one & other;
        if (all[i]->parentWidget() != all[k]->parentWidget()) continue;
        if (shared.width() <= kRounding || shared.height() <= kRounding) continue;
        const QRect larger = one.width() * one.height() > other.width() * other.height() ? one : other;
        if (larger.adjusted(-kRounding, -kRounding, kRounding, kRounding).contains(larger == one ? other : one))
          continue;
        tell(*all[i], "lies over " + nameOf(*all[k]));
      }
  }

  static std::string nameOf(const QWidget& control) {
    std::string name = utf8(control.objectName());
    if (name.empty()) name = control.metaObject()->className();
    if (const auto* const label = qobject_cast<const QLabel*>(&control)) name += " \"" + utf8(label->text()) + "\"";
    if (const auto* const button = qobject_cast<const QAbstractButton*>(&control))
      name += " \"" + utf8(button->text()) + "\"";
    return name;
  }
  void tell(const QWidget& control, const std::string& fault) {
    m_faults.push_back(fmt::format("{}: {} {}", utf8(m_window.objectName()), nameOf(control), fault));
  }

  const QWidget& m_window;
  std::vector<std::string> m_faults;
};

}  // namespace triaxlab::testing

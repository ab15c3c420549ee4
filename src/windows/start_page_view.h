#pragma once

#include <QScrollArea>
#include <vector>

#include "shell/start_page.h"

class QGridLayout;

namespace triaxlab {

/// Lies over the empty area of the main window and shows what can be done there.
class StartPageView : public QScrollArea {
  Q_OBJECT

 public:
  /// As large as the area, whatever becomes of it.
  explicit StartPageView(QWidget* area);

  void show(const std::vector<StartSection>& page);
  using QScrollArea::show;

 signals:
  /// The command of an entry.
  void chosen(std::string_view command);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void addSection(QGridLayout& column, const StartSection& section);
  void addEntry(QGridLayout& column, const StartEntry& entry);

  std::vector<StartSection> m_page;
};

}  // namespace triaxlab

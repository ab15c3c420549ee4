#pragma once

#include <QWidget>
#include <vector>

#include "sessions/dialogs/manual.h"
#include "shell/help_topics.h"
#include "windows/controls/key_help.h"

class QLineEdit;

namespace triaxlab {

class GridView;
class ManualPage;

/// The manual inside the program: its contents, or what a search has found, beside the page. It stands beside other
/// windows; with a parent it stays in front of that, which may be a modal one.
class ManualWindow : public QWidget, public KeyedWindow {
  Q_OBJECT

 public:
  explicit ManualWindow(QWidget* parent = nullptr);
  ~ManualWindow() override;

  /// The place that tells of a window; null for the manual's first page.
  void showTopic(const HelpTopic* topic);
  /// The keys of a window.
  void showKeys(const QString& window, const std::vector<KeyGroup>& groups);

  std::vector<KeyGroup> keyHelp() const override;

 private:
  /// A line of the list: a section, and where it was found.
  struct Line {
    const ManualSection* section;
    QString text;
  };
  struct Key;
  static std::span<const Key> keys();

  QWidget* makeBar();
  GridView* makeContents();
  void search(const QString& query);
  void openLine(int row);
  void come();

  Manual m_manual;
  std::vector<Line> m_lines;
  QLineEdit* m_search = nullptr;
  GridView* m_contents = nullptr;
  ManualPage* m_page = nullptr;
};

/// The keys of a window as a page in Markdown.
std::string keyPage(const QString& window, const std::vector<KeyGroup>& groups);

}  // namespace triaxlab

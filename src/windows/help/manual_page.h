#pragma once

#include <QTextBrowser>

#include "sessions/dialogs/manual.h"

namespace triaxlab {

/// A page of the manual on the screen, or another text in Markdown; links lead on to other pages.
class ManualPage : public QTextBrowser {
  Q_OBJECT

 public:
  /// Without a manual only given texts can be shown.
  explicit ManualPage(QWidget* parent, const Manual* manual = nullptr);

  /// Opens a chapter, at the heading of that title; from its beginning where it has none.
  void open(const QString& file, const QString& heading = {});
  /// Shows a text that is no chapter, under a name of its own: one can come back to it.
  void showText(const QString& name, const std::string& markdown);
  /// Marks these words wherever they stand.
  void mark(const std::vector<std::string>& searched);
  /// Comes to the next place behind the heading where this word stands.
  void goToWord(const std::string& word);

 protected:
  QVariant loadResource(int type, const QUrl& name) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void goTo(const QString& heading);
  /// The width that pictures may take.
  int freeWidth() const;

  const Manual* m_manual;
  std::map<QString, std::string> m_texts;  // given, by name
};

}  // namespace triaxlab

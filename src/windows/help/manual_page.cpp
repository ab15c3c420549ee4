#include "windows/help/manual_page.h"

#include <QScrollBar>
#include <QTextBlock>
#include <algorithm>

#include "windows/controls/words.h"
#include "windows/help/manual_pages.h"

namespace triaxlab {
namespace {

constexpr int kType = 15;    // pixels
constexpr int kMargin = 16;  // around the text

QUrl placeOfPage(const QString& file) { return {kManualFolder + file}; }

}  // namespace

ManualPage::ManualPage(QWidget* parent, const Manual* manual) : QTextBrowser(parent), m_manual(manual) {
  QFont type = font();
  type.setPixelSize(kType);
  setFont(type);
  document()->setDefaultFont(type);
  document()->setDocumentMargin(kMargin);
  // A link to another place of the program, and none out of it.
  setOpenExternalLinks(false);
  connect(this, &QTextBrowser::sourceChanged, this, [this] { typeset(*document(), freeWidth()); });
}

void ManualPage::open(const QString& file, const QString& heading) {
  setSource(placeOfPage(file), QTextDocument::MarkdownResource);
  goTo(heading);
}

void ManualPage::showText(const QString& name, const std::string& markdown) {
  m_texts[name] = markdown;
  if (source() == placeOfPage(name))
    reload();
  else
    setSource(placeOfPage(name), QTextDocument::MarkdownResource);
}

void ManualPage::goTo(const QString& heading) {
  if (heading.isEmpty()) return;
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
    if (block.blockFormat().headingLevel() == 0 || block.text() != heading) continue;
    QTextCursor cursor(block);
    setTextCursor(cursor);
    verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect(cursor).top());
    return;
  }
}

void ManualPage::mark(const std::vector<std::string>& searched) {
  QList<QTextEdit::ExtraSelection> marks;
  QTextCharFormat look;
  look.setBackground(palette().highlight());
  look.setForeground(palette().highlightedText());
  for (const std::string& word : searched)
    for (QTextCursor found = document()->find(words(word)); !found.isNull();
         found = document()->find(words(word), found))
      marks.push_back({found, look});
  setExtraSelections(marks);
}

void ManualPage::goToWord(const std::string& word) {
  const QTextCursor found = document()->find(words(word), textCursor());
  if (found.isNull()) return;
  QTextCursor place = found;
  place.clearSelection();
  setTextCursor(place);
  ensureCursorVisible();
}

QVariant ManualPage::loadResource(int type, const QUrl& name) {
  if (type != QTextDocument::MarkdownResource) return QTextBrowser::loadResource(type, name);
  const QString file = name.fileName();
  if (const auto given = m_texts.find(file); given != m_texts.end()) return words(given->second);
  if (m_manual == nullptr) return {};
  const auto chapter = std::ranges::find(m_manual->chapters(), utf8(file), &ManualChapter::file);
  return chapter == m_manual->chapters().end() ? QVariant() : words(chapter->markdown);
}

void ManualPage::resizeEvent(QResizeEvent* event) {
  QTextBrowser::resizeEvent(event);
  fitPictures(*document(), freeWidth());
}

int ManualPage::freeWidth() const { return std::max(1, viewport()->width() - 2 * kMargin); }

}  // namespace triaxlab

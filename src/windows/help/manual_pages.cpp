#include "windows/help/manual_pages.h"

#include <QFile>
#include <QImage>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>
#include <QUrl>
#include <algorithm>
#include <array>

#include "platform/qt/painter_surface.h"
#include "windows/controls/words.h"

// The toolkit's macro names a function outside all namespaces.
static void openManualPages() { Q_INIT_RESOURCE(manual); }

namespace triaxlab {
namespace {

constexpr int kLineHeight = 140;  // percent
/// How much larger than the text headings are, by level.
constexpr std::array kHeadingSizes{1.6, 1.3, 1.1};
constexpr double kBelowParagraph = 0.6, kAboveHeading = 1.0, kCellPadding = 0.3;  // of the height of the type

std::string pageText(std::string_view file) {
  QFile page(":/manual/" + words(file));
  // What the program carries can't be missing; a link to nowhere is found by a test.
  return page.open(QIODevice::ReadOnly) ? page.readAll().toStdString() : std::string();
}

void formHeading(QTextCursor& cursor, int level, QFont font) {
  const std::size_t row = std::min<std::size_t>(static_cast<std::size_t>(level), kHeadingSizes.size()) - 1;
  font.setPixelSize(static_cast<int>(font.pixelSize() * kHeadingSizes.at(row)));
  font.setBold(true);
  // A format of its own: that of the toolkit has a size of its own, which goes before any other.
  QTextCharFormat letters;
  letters.setFont(font);
  cursor.setCharFormat(letters);
}

void formBlock(const QTextBlock& block, const QFont& font) {
  const int type = font.pixelSize();
  QTextCursor cursor(block);
  cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
  const int level = block.blockFormat().headingLevel();
  QTextBlockFormat form;
  const bool isPicture = block.text() == QString(QChar::ObjectReplacementCharacter);
  if (!isPicture) form.setLineHeight(kLineHeight, QTextBlockFormat::ProportionalHeight);
  if (cursor.currentTable() == nullptr) form.setBottomMargin(type * kBelowParagraph);
  if (level > 0) form.setTopMargin(type * kAboveHeading);
  cursor.mergeBlockFormat(form);
  if (level > 0) formHeading(cursor, level, font);
}

void formTables(QTextFrame* frame, double type) {
  for (QTextFrame* const child : frame->childFrames()) {
    formTables(child, type);
    auto* const table = qobject_cast<QTextTable*>(child);
    if (table == nullptr) continue;
    QTextTableFormat form = table->format();
    form.setBorder(1);
    form.setBorderCollapse(true);
    form.setBorderBrush(colourOf(Colour::Grey));
    form.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    form.setCellPadding(type * kCellPadding);
    form.setBottomMargin(type);
    table->setFormat(form);
  }
}

}  // namespace

Manual readManual() {
  openManualPages();
  return Manual(pageText);
}

void typeset(QTextDocument& document, int width) {
  const double type = document.defaultFont().pixelSize();
  const bool undoes = document.isUndoRedoEnabled();
  document.setUndoRedoEnabled(false);
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
    formBlock(block, document.defaultFont());
  formTables(document.rootFrame(), type);
  fitPictures(document, width);
  document.setUndoRedoEnabled(undoes);
}

void fitPictures(QTextDocument& document, int width) {
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
    for (auto part = block.begin(); !part.atEnd(); ++part) {
      QTextImageFormat form = part.fragment().charFormat().toImageFormat();
      if (!form.isValid()) continue;
      const QUrl place = document.baseUrl().resolved(QUrl(form.name()));
      const auto picture = document.resource(QTextDocument::ImageResource, place).value<QImage>();
      const double shown = std::min(width, picture.width());
      if (picture.isNull() || form.width() == shown) continue;
      form.setWidth(shown);
      form.setHeight(shown * picture.height() / picture.width());
      QTextCursor cursor(&document);
      cursor.setPosition(part.fragment().position());
      cursor.setPosition(part.fragment().position() + 1, QTextCursor::KeepAnchor);
      cursor.setCharFormat(form);
      break;  // the iterator doesn't outlive the change; a paragraph has one picture
    }
}

}  // namespace triaxlab

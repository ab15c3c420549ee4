// Writes the manual into one PDF: manual_pdf FILE.pdf

#include <fmt/core.h>

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPageLayout>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QUrl>
#include <cstdio>

#include "windows/controls/words.h"
#include "windows/help/manual_pages.h"

using namespace triaxlab;

namespace {

// Letters of 14 pixels at this resolution are 10.5 points.
constexpr int kResolution = 96, kType = 14;
/// Millimetres by which the toolkit sets a document in from the edges; the page has no margin beside it.
constexpr double kMargin = 20;
constexpr double kMillimetresPerInch = 25.4;

/// All chapters, one after the other. On paper a link to another chapter is its words.
QString wholeText(const Manual& manual) {
  static const QRegularExpression kLink(R"(\[([^\]]*)\]\([^)]*\.md\))");
  QString text;
  for (const ManualChapter& chapter : manual.chapters()) text += words(chapter.markdown).replace(kLink, "\\1") + "\n\n";
  return text;
}

/// Printing works on a copy of the document, which has its pictures but knows neither the place of its pages nor who
/// provides for it: a picture goes by both names.
void addPictures(QTextDocument& document) {
  for (const QString& file : QDir(":/manual/pictures").entryList()) {
    const QString name = "pictures/" + file;
    const QImage picture(":/manual/" + name);
    for (const QUrl& place : {QUrl(name), QUrl(kManualFolder + name)})
      document.addResource(QTextDocument::ImageResource, place, picture);
  }
}

/// Each chapter begins a page.
void breakPages(QTextDocument& document) {
  for (QTextBlock block = document.begin().next(); block.isValid(); block = block.next()) {
    if (block.blockFormat().headingLevel() != 1) continue;
    QTextBlockFormat form;
    form.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    QTextCursor(block).mergeBlockFormat(form);
  }
}

bool write(const QString& file) {
  QFile output(file);
  if (!output.open(QIODevice::WriteOnly)) return false;
  QPdfWriter writer(&output);
  writer.setTitle("QVB三轴试验数据处理 · 使用手册");
  writer.setResolution(kResolution);
  writer.setPageSize(QPageSize(QPageSize::A4));
  writer.setPageMargins(QMarginsF(), QPageLayout::Millimeter);

  const Manual manual = readManual();  // from here on its pictures are found, too
  QTextDocument document;
  document.setBaseUrl(QUrl(kManualFolder));
  QFont type("Noto Sans CJK SC");
  type.setPixelSize(kType);
  document.setDefaultFont(type);
  document.setMarkdown(wholeText(manual));
  addPictures(document);  // a text that is set throws out what was there
  const double margins = 2 * (kMargin / kMillimetresPerInch * kResolution + document.documentMargin());
  typeset(document, static_cast<int>(writer.width() - margins));
  breakPages(document);
  document.print(&writer);
  return output.flush() && output.error() == QFileDevice::NoError;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    fmt::print(stderr, "manual_pdf FILE.pdf\n");
    return 2;
  }
  // No window is shown, so no display is needed.
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  const QString file = QFile::decodeName(argv[1]);
  if (write(file)) return 0;
  fmt::print(stderr, "文件 {} 写不出来。\n", argv[1]);
  return 1;
}

#include "windows/start_page_view.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "windows/controls/click_label.h"
#include "windows/controls/words.h"

namespace triaxlab {
namespace {

constexpr int kMargin = 28, kBetween = 40;  // pixels
constexpr int kHeadingHeight = 16;
constexpr QColor kDetailInk(96, 96, 96);
/// What stands at the right; all else shares the left, which is filled from the top.
constexpr std::string_view kWideSection = "读入原始数据，也可以把文件拖进来";

QString captionOf(std::string_view text) { return words(text).replace('&', "&&"); }

QGridLayout* addColumn(QHBoxLayout& columns) {
  auto* const column = new QGridLayout;
  column->setColumnStretch(1, 1);
  column->setHorizontalSpacing(12);
  column->setVerticalSpacing(1);
  columns.addLayout(column, 1);
  return column;
}

}  // namespace

StartPageView::StartPageView(QWidget* area) : QScrollArea(area) {
  setObjectName("StartPage");
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setFocusPolicy(Qt::NoFocus);
  setGeometry(area->rect());
  area->installEventFilter(this);
}

bool StartPageView::eventFilter(QObject* watched, QEvent* event) {
  if (watched == parent() && event->type() == QEvent::Resize) setGeometry(parentWidget()->rect());
  return QScrollArea::eventFilter(watched, event);
}

void StartPageView::show(const std::vector<StartSection>& page) {
  if (page != m_page) {
    m_page = page;
    auto* const content = new QWidget;
    auto* const columns = new QHBoxLayout(content);
    columns->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    columns->setSpacing(kBetween);
    QGridLayout* const left = addColumn(*columns);
    QGridLayout* const right = addColumn(*columns);
    for (const StartSection& section : page) addSection(section.heading == kWideSection ? *right : *left, section);
    for (QGridLayout* const column : {left, right}) column->setRowStretch(column->rowCount(), 1);
    // The entry that brought the new page is still at work.
    if (QWidget* const before = takeWidget()) before->deleteLater();
    setWidget(content);
  }
  show();
}

void StartPageView::addSection(QGridLayout& column, const StartSection& section) {
  auto* const heading = new QLabel(words(section.heading));
  QFont font = heading->font();
  font.setPixelSize(kHeadingHeight);
  font.setBold(true);
  heading->setFont(font);
  heading->setContentsMargins(4, 10, 0, 4);
  column.addWidget(heading, column.rowCount(), 0, 1, 2);
  for (const StartEntry& entry : section.entries) addEntry(column, entry);
}

void StartPageView::addEntry(QGridLayout& column, const StartEntry& entry) {
  auto* const button = new QPushButton(captionOf(entry.caption));
  button->setObjectName("Start" + words(entry.command));
  button->setFlat(true);
  button->setStyleSheet("text-align: left; padding: 4px;");
  button->setCursor(Qt::PointingHandCursor);
  button->setEnabled(entry.enabled);
  connect(button, &QPushButton::clicked, this, [this, command = entry.command] { emit chosen(command); });
  auto* const detail = new ClickLabel(nullptr, words(entry.detail));
  detail->setObjectName("State" + words(entry.command));
  detail->setInk(kDetailInk);
  detail->setMinimumWidth(1);
  const int row = column.rowCount();
  column.addWidget(button, row, 0);
  column.addWidget(detail, row, 1);
}

}  // namespace triaxlab

#include "windows/help/manual_window.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QVBoxLayout>
#include <array>

#include "windows/controls/grid_view.h"
#include "windows/controls/words.h"
#include "windows/first_place.h"
#include "windows/help/manual_page.h"
#include "windows/help/manual_pages.h"

namespace triaxlab {
namespace {

constexpr QSize kFirstSize(1020, 760);
constexpr int kContentsWidth = 280;
constexpr int kDeepestInContents = 2;  // chapters and their sections
constexpr const char* kKeyPage = "keys.md";

QString indented(const ManualSection& section) {
  return QString(qsizetype{2} * (section.level - 1), ' ') + words(section.title);
}

}  // namespace

struct ManualWindow::Key {
  int toolkitKey;
  void (*action)(ManualWindow&);
  const char* effect;
};

std::span<const ManualWindow::Key> ManualWindow::keys() {
  static constexpr std::array kKeys{
      Key{int(Qt::CTRL) | Qt::Key_F,
          [](ManualWindow& own) {
            own.m_search->setFocus();
            own.m_search->selectAll();
          },
          "搜索"},
      Key{int(Qt::ALT) | Qt::Key_Left, [](ManualWindow& own) { own.m_page->backward(); }, "后退"},
      Key{int(Qt::ALT) | Qt::Key_Right, [](ManualWindow& own) { own.m_page->forward(); }, "前进"},
      Key{Qt::Key_Escape, [](ManualWindow& own) { own.close(); }, "关闭手册"},
  };
  return kKeys;
}

ManualWindow::ManualWindow(QWidget* parent) : QWidget(parent, Qt::Window), m_manual(readManual()) {
  setObjectName("Manual");
  setWindowTitle("使用手册");
  m_page = new ManualPage(this, &m_manual);
  m_page->setObjectName("Page");
  m_contents = makeContents();
  auto* const halves = new QSplitter(Qt::Horizontal, this);
  halves->addWidget(m_contents);
  halves->addWidget(m_page);
  halves->setStretchFactor(1, 1);
  halves->setSizes({kContentsWidth, kFirstSize.width() - kContentsWidth});
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(makeBar());
  layout->addWidget(halves, 1);
  for (const Key& key : keys())
    connect(new QShortcut(key.toolkitKey, this), &QShortcut::activated, this, [this, &key] { key.action(*this); });
  search({});
  new FirstPlace(this, kFirstSize);
}

ManualWindow::~ManualWindow() = default;

QWidget* ManualWindow::makeBar() {
  auto* const bar = new QWidget(this);
  auto* const line = new QHBoxLayout(bar);
  line->setContentsMargins(0, 0, 0, 0);
  m_search = new QLineEdit(bar);
  m_search->setObjectName("Search");
  m_search->setPlaceholderText("搜索");
  m_search->setClearButtonEnabled(true);
  m_search->setFixedWidth(kContentsWidth);
  line->addWidget(m_search);
  connect(m_search, &QLineEdit::textChanged, this, &ManualWindow::search);
  connect(m_search, &QLineEdit::returnPressed, this, [this] { m_contents->setFocus(); });
  const auto button = [&](const char* name, const char* caption, auto&& action) {
    auto* const made = new QPushButton(caption, bar);
    made->setObjectName(name);
    line->addWidget(made);
    connect(made, &QPushButton::clicked, m_page, action);
    return made;
  };
  auto* const back = button("Back", "后退", &QTextBrowser::backward);
  auto* const forward = button("Forward", "前进", &QTextBrowser::forward);
  button("First", "目录", [this] { m_page->open(words(Manual::kFirstPage)); });
  for (QPushButton* const made : {back, forward}) made->setEnabled(false);
  connect(m_page, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
  connect(m_page, &QTextBrowser::forwardAvailable, forward, &QWidget::setEnabled);
  line->addStretch();
  return bar;
}

GridView* ManualWindow::makeContents() {
  // One column that is seen; the row numbers in front of it are hidden.
  GridContent content;
  content.columns = {{"", 0}, {"", 0}};
  content.rowCount = [this] { return static_cast<int>(m_lines.size()); };
  content.cell = [this](int row, int column) {
    return column == 0 ? QString() : m_lines.at(static_cast<std::size_t>(row - 1)).text;
  };
  auto* const contents = new GridView(this, content);
  contents->setObjectName("Contents");
  contents->horizontalHeader()->hide();
  contents->horizontalHeader()->setStretchLastSection(true);
  contents->hideColumn(0);
  contents->setShowGrid(false);
  connect(contents->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this](const QModelIndex& cell) { openLine(cell.row()); });
  connect(contents, &GridView::clicked, this, [this](const QModelIndex& cell) { openLine(cell.row()); });
  return contents;
}

void ManualWindow::search(const QString& query) {
  m_lines.clear();
  if (searchedWords(utf8(query)).empty()) {
    for (const ManualSection& section : m_manual.sections())
      if (section.level <= kDeepestInContents) m_lines.push_back({&section, indented(section)});
  } else {
    for (const ManualHit& hit : m_manual.find(utf8(query))) {
      const QString title = words(hit.section->title), excerpt = words(hit.excerpt);
      m_lines.push_back({hit.section, title == excerpt ? title : title + "：" + excerpt});
    }
  }
  m_contents->contentChanged();
  m_page->mark(searchedWords(utf8(query)));
}

void ManualWindow::openLine(int row) {
  if (row < 0) return;
  const ManualSection& section = *m_lines.at(static_cast<std::size_t>(row)).section;
  m_page->open(words(m_manual.chapters()[section.chapter].file), words(section.title));
  const std::vector<std::string> searched = searchedWords(utf8(m_search->text()));
  m_page->mark(searched);
  if (!searched.empty()) m_page->goToWord(searched.front());
}

void ManualWindow::showTopic(const HelpTopic* topic) {
  if (topic != nullptr)
    m_page->open(words(topic->chapter), words(topic->section));
  else
    m_page->open(words(Manual::kFirstPage));
  come();
}

void ManualWindow::showKeys(const QString& window, const std::vector<KeyGroup>& groups) {
  m_page->showText(kKeyPage, keyPage(window, groups));
  come();
}

std::vector<KeyGroup> ManualWindow::keyHelp() const { return {keyGroup("手册", keys())}; }

void ManualWindow::come() {
  show();
  raise();
  activateWindow();
  m_page->setFocus();
}

std::string keyPage(const QString& window, const std::vector<KeyGroup>& groups) {
  QString page = "# 键盘：" + window + "\n";
  for (const KeyGroup& group : groups) {
    page += "\n## " + group.where + "\n\n| 键 | 作用 |\n|---|---|\n";
    for (const KeyHelp& row : group.keys) page += "| " + row.keys + " | " + row.effect + " |\n";
  }
  return utf8(page);
}

}  // namespace triaxlab

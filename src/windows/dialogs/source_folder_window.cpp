#include "windows/dialogs/source_folder_window.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>

#include "windows/controls/cell_keys.h"
#include "windows/controls/grid_view.h"
#include "windows/controls/layout.h"
#include "windows/controls/words.h"

namespace triaxlab {
namespace {

constexpr Place kWindow{0, 0, 6900, 6000};
constexpr Place kPrompt{300, 200, 6300, 300}, kText{300, 540, 6300, 330};
constexpr Place kDrives{300, 1050, 6300, 330}, kFolders{300, 1480, 6300, 3550};
constexpr Place kAccept{1500, 5300, 1500, 420}, kCancel{3900, 5300, 1500, 420};

/// The list is a grid of one column that is seen; the row numbers in front of it are hidden.
GridContent contentOf(const SourceFolderSession& session) {
  GridContent content;
  content.columns = {{"", 0}, {"", kFolders.width}};
  content.rowCount = [&session] { return static_cast<int>(session.rowCount()); };
  content.cell = [&session](int row, int column) {
    return column == 0 ? QString() : words(session.row(static_cast<std::size_t>(row - 1)));
  };
  return content;
}

enum class FolderKey : std::uint8_t { Open, Leave };
constexpr std::array kFolderKeys{KeyRow{Qt::Key_Right, FolderKey::Open, "打开文件夹"},
                                 KeyRow{Qt::Key_Left, FolderKey::Leave, "回上一级"}};

}  // namespace

Form5::Form5(QWidget* parent, SourceFolderSession& session)
    : SessionDialog(parent),
      m_session(session),
      m_text(put(new QLineEdit(this), "Text1", kText)),
      m_drives(put(new QComboBox(this), "Drive1", kDrives)),
      m_folders(put(new GridView(this, contentOf(session)), "Dir1", kFolders)) {
  setObjectName("Form5");
  setWindowTitle(words(SourceFolderSession::kCaption));
  setFixedSize(rectangle(kWindow).size());
  auto* const prompt = put(new QLabel(words(session.prompt()), this), "Label1", kPrompt);
  prompt->setBuddy(m_text);
  connect(m_text, &QLineEdit::textEdited, this, [this](const QString& typed) { m_session.setText(utf8(typed)); });
  makeLists();
  makeButtons();
  showRows();
  refresh();
  m_text->setFocus();
  m_text->selectAll();
}

void Form5::makeLists() {
  for (const std::string& drive : m_session.drives()) m_drives->addItem(words(drive));
  connect(m_drives, &QComboBox::activated, this,
          [this](int drive) { openFolder([this, drive] { m_session.chooseDrive(static_cast<std::size_t>(drive)); }); });

  m_folders->horizontalHeader()->hide();
  m_folders->horizontalHeader()->setStretchLastSection(true);
  m_folders->hideColumn(0);
  m_folders->setShowGrid(false);
  // A row that becomes current by the arrow keys or a click is chosen; one that the list itself shows is chosen
  // already.
  const auto choose = [this](const QModelIndex& cell) {
    if (cell.isValid()) act([&] { m_session.chooseRow(static_cast<std::size_t>(cell.row())); });
  };
  connect(m_folders, &GridView::clicked, this, choose);
  connect(m_folders->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this, choose](const QModelIndex& cell) {
            if (cell.row() != static_cast<int>(m_session.currentRow())) choose(cell);
          });
  const auto open = [this] {
    openFolder([this] { m_session.openRow(static_cast<std::size_t>(m_folders->currentRow() - 1)); });
  };
  connect(m_folders, &GridView::rowDoubleClicked, this, open);
  const auto openParent = [this] { openFolder([this] { m_session.openParent(); }); };
  for (const KeyRow<FolderKey>& row : kFolderKeys) {
    auto* const key = new QShortcut(row.toolkitKey, m_folders, nullptr, nullptr, Qt::WidgetShortcut);
    connect(key, &QShortcut::activated, this, [=, way = row.key] { way == FolderKey::Open ? open() : openParent(); });
  }
}

std::vector<KeyGroup> Form5::keyHelp() const { return {keyGroup("文件夹列表", kFolderKeys)}; }

void Form5::makeButtons() {
  auto* const accepting = put(new QPushButton(words(SourceFolderSession::kAccept), this), "Command1", kAccept);
  accepting->setDefault(true);
  connect(accepting, &QPushButton::clicked, this, [this] { actToEnd([this] { return m_session.accept(); }); });
  connect(m_folders, &GridView::enterPressed, accepting, &QPushButton::click);
  auto* const cancel = put(new QPushButton(words(SourceFolderSession::kCancel), this), "Command2", kCancel);
  cancel->setAutoDefault(false);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void Form5::openFolder(const std::function<void()>& operation) {
  act(operation);
  showRows();
}

/// Another folder is open.
void Form5::showRows() {
  m_folders->contentChanged();
  m_folders->setCurrentCell(static_cast<int>(m_session.currentRow()) + 1, 1);
  m_folders->scrollTo(m_folders->currentIndex());
}

void Form5::showState() {
  m_drives->setCurrentIndex(static_cast<int>(m_session.currentDrive()));
  const QString text = words(m_session.text());
  if (m_text->text() != text) m_text->setText(text);
}

}  // namespace triaxlab

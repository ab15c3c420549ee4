#include "windows/dialogs/habits_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "windows/controls/grid_view.h"
#include "windows/controls/layout.h"
#include "windows/controls/words.h"

namespace triaxlab {
namespace {

constexpr Place kWindow{0, 0, 11400, 8700};
constexpr Place kFiles{200, 200, 6600, 360}, kFileNote{200, 620, 11000, 300};
constexpr Place kKeys{200, 980, 6600, 5100};
constexpr Place kKey{7000, 980, 4200, 600}, kMeaning{7000, 1620, 4200, 1500};
constexpr Place kOn{7000, 3240, 4200, 360}, kValue{7000, 3240, 4200, 360}, kDefault{7000, 3720, 1600, 420};
constexpr Place kSampleName{200, 6180, 6000, 300}, kSample{200, 6480, 11000, 780};
constexpr Place kDataFolderName{200, 7380, 1300, 360}, kDataFolder{1560, 7380, 8200, 360},
    kChangeDataFolder{9900, 7350, 1300, 420};
constexpr Place kSaved{200, 8010, 7000, 360}, kSave{7600, 7980, 1700, 480}, kReturn{9500, 7980, 1700, 480};

GridContent contentOf(const HabitsSession& session) {
  GridContent content;
  content.columns = {{"", 500}, {"关键字", 4000}, {"现在的值", 1700}};
  content.rowCount = [&session] { return session.rowCount(); };
  content.cell = [&session](int row, int column) { return words(session.cell(row, column)); };
  return content;
}

}  // namespace

HabitsWindow::HabitsWindow(QWidget* parent, HabitsSession& session)
    : SessionDialog(parent),
      m_session(session),
      m_files(put(new QComboBox(this), "Files", kFiles)),
      m_fileNote(put(new QLabel(this), "FileNote", kFileNote)),
      m_keys(put(new GridView(this, contentOf(session)), "Keys", kKeys)),
      m_key(put(textBox("Key"), "Key", kKey)),
      m_meaning(put(textBox("Meaning"), "Meaning", kMeaning)),
      m_on(put(new QCheckBox(words(HabitsSession::kSwitchedOn), this), "On", kOn)),
      m_value(put(new QLineEdit(this), "Value", kValue)),
      m_default(put(new QPushButton(words(HabitsSession::kUseDefault), this), "Default", kDefault)),
      m_sample(put(textBox("Sample"), "Sample", kSample)),
      m_dataFolder(put(new QLabel(this), "DataFolder", kDataFolder)),
      m_saved(put(new QLabel(this), "Saved", kSaved)) {
  setObjectName("HABITSFORM");
  setWindowTitle(words(HabitsSession::kCaption));
  setFixedSize(rectangle(kWindow).size());
  makeList();
  makeKey();
  makeDataFolder();
  makeButtons();
  refresh();
  m_keys->setCurrentCell(m_session.currentRow(), 1);
  m_keys->setFocus();
}

QLabel* HabitsWindow::textBox(const char* name) {
  auto* const label = new QLabel(this);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  return label;
}

void HabitsWindow::makeList() {
  m_keys->horizontalHeader()->setStretchLastSection(true);
  for (const std::string& file : m_session.files()) m_files->addItem(words(file));
  connect(m_files, &QComboBox::activated, this, &HabitsWindow::chooseFile);
  connect(m_keys->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this](const QModelIndex& cell) {
    if (cell.isValid() && cell.row() + 1 != m_session.currentRow()) act([&] { m_session.chooseRow(cell.row() + 1); });
  });
  const auto edit = [this] {
    if (m_session.isFlag()) return m_on->setFocus();
    m_value->setFocus();
    m_value->selectAll();
  };
  connect(m_keys, &GridView::enterPressed, this, edit);
  connect(m_keys, &GridView::rowDoubleClicked, this, edit);
}

void HabitsWindow::chooseFile(int file) {
  act([&] { m_session.chooseFile(static_cast<std::size_t>(file)); });
  m_keys->contentChanged();
  m_keys->setCurrentCell(m_session.currentRow(), 1);
}

void HabitsWindow::makeKey() {
  put(new QLabel(words(HabitsSession::kSample), this), "SampleName", kSampleName);
  m_sample->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  m_sample->setBackgroundRole(QPalette::Base);
  m_sample->setAutoFillBackground(true);
  m_sample->setMargin(pixels(90));
  connect(m_on, &QCheckBox::clicked, this, [this](bool on) { act([&] { m_session.setOn(on); }); });
  connect(m_value, &QLineEdit::textEdited, this,
          [this](const QString& typed) { act([&] { m_session.setText(utf8(typed)); }); });
  m_default->setAutoDefault(false);
  connect(m_default, &QPushButton::clicked, this, [this] { act([this] { m_session.useDefault(); }); });
}

void HabitsWindow::makeDataFolder() {
  put(new QLabel(words(HabitsSession::kDataFolder), this), "DataFolderName", kDataFolderName);
  auto* const change =
      put(new QPushButton(words(HabitsSession::kChangeDataFolder), this), "ChangeDataFolder", kChangeDataFolder);
  change->setAutoDefault(false);
  connect(change, &QPushButton::clicked, this, [this] { act([this] { m_session.changeDataFolder(); }); });
}

void HabitsWindow::makeButtons() {
  m_save = put(new QPushButton(words(HabitsSession::kSave), this), "Save", kSave);
  m_save->setDefault(true);
  connect(m_save, &QPushButton::clicked, this, [this] {
    act([this] { m_session.save(); });
    m_keys->contentChanged();
    m_keys->setCurrentCell(m_session.currentRow(), 1);
  });
  auto* const leave = put(new QPushButton(words(HabitsSession::kReturn), this), "Return", kReturn);
  leave->setAutoDefault(false);
  connect(leave, &QPushButton::clicked, this, &HabitsWindow::reject);
}

void HabitsWindow::reject() {
  bool closes = false;
  act([&] { closes = m_session.mayClose(); });
  if (closes) QDialog::reject();
}

std::vector<KeyGroup> HabitsWindow::keyHelp() const {
  return {{"关键字的列表", {{keyName(Qt::Key_Return), "到这个关键字的值上"}}}};
}

void HabitsWindow::showState() {
  m_files->setCurrentIndex(static_cast<int>(m_session.currentFile()));
  m_fileNote->setText(words(m_session.fileNote()));
  showKey();
  const QString folder = words(m_session.dataFolder());
  m_dataFolder->setText(m_dataFolder->fontMetrics().elidedText(folder, Qt::ElideMiddle, m_dataFolder->width()));
  m_dataFolder->setToolTip(folder);
  m_saved->setText(words(m_session.saved()));
  m_save->setEnabled(m_session.isChanged());
}

void HabitsWindow::showKey() {
  m_keys->rowChanged(m_session.currentRow());
  m_key->setText(words(m_session.cell(m_session.currentRow(), 1)));
  m_meaning->setText(words(m_session.meaning()));
  m_on->setVisible(m_session.isFlag());
  m_on->setChecked(m_session.isFlag() && m_session.isOn());
  m_value->setVisible(!m_session.isFlag());
  m_value->setPlaceholderText(words(m_session.defaultText()));
  const QString text = words(m_session.text());
  if (m_value->text() != text) m_value->setText(text);
  for (QWidget* const control : std::initializer_list<QWidget*>{m_on, m_value})
    control->setEnabled(m_session.canBeChanged());
  m_default->setVisible(!m_session.isFlag());
  m_default->setEnabled(!m_session.hasDefault());
  const QString sample = words(m_session.sample());
  m_sample->setText(sample);
  m_sample->setVisible(!sample.isEmpty());
}

}  // namespace triaxlab

#include "platform/qt/qt_dialogs.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QKeyEvent>
#include <QMessageBox>
#include <QStringList>
#include <array>

#include "platform/files.h"

namespace triaxlab {
namespace {

QString words(std::string_view utf8) { return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())); }

QMessageBox::Icon markOf(MessageIcon icon) {
  static constexpr std::array kMarks{QMessageBox::NoIcon, QMessageBox::Information, QMessageBox::Warning,
                                     QMessageBox::Critical};
  return kMarks.at(static_cast<std::size_t>(icon));
}

/// A question that only its buttons answer.
class QuestionBox : public QMessageBox {
 public:
  using QMessageBox::QMessageBox;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() != Qt::Key_Escape) QMessageBox::keyPressEvent(event);
  }
  void closeEvent(QCloseEvent* event) override { event->ignore(); }
};

/// Offers "words|mask|words|mask". The masks are handed over in parentheses behind the words, "*.*" as every file; the
/// words are then shown as written, since the toolkit takes doubled blanks out.
void offerFilter(QFileDialog& dialog, std::string_view filter) {
  const QStringList parts = words(filter).split('|');
  QStringList nameFilters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
    nameFilters << QString("%1(%2)").arg(parts[i], parts[i + 1] == "*.*" ? QString("*") : parts[i + 1]);
  dialog.setNameFilters(nameFilters);
  auto* const list = dialog.findChild<QComboBox*>("fileTypeCombo");
  for (int i = 0; list != nullptr && i < list->count(); ++i) list->setItemText(i, parts[qsizetype{2} * i]);
}

std::optional<std::filesystem::path> runFileDialog(const FileQuestion& question, QFileDialog::AcceptMode mode) {
  QFileDialog dialog(QApplication::activeWindow(), words(question.title));
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setOption(QFileDialog::DontConfirmOverwrite, question.replacesSilently);
  dialog.setAcceptMode(mode);
  dialog.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
  if (!question.filter.empty()) offerFilter(dialog, question.filter);
  if (!question.initial.empty()) {
    dialog.setDirectory(words(textOfPath(question.initial.parent_path())));
    dialog.selectFile(words(textOfPath(question.initial.filename())));
  }
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return pathFromText(dialog.selectedFiles().constFirst().toStdString());
}

}  // namespace

void QtDialogs::message(std::string_view title, std::string_view text, MessageIcon icon) {
  QMessageBox(markOf(icon), words(title), words(text), QMessageBox::Ok, QApplication::activeWindow()).exec();
}

bool QtDialogs::ask(std::string_view title, std::string_view text, MessageIcon icon) {
  QuestionBox box(markOf(icon), words(title), words(text), QMessageBox::Yes | QMessageBox::No,
                  QApplication::activeWindow());
  box.setDefaultButton(QMessageBox::Yes);
  return box.exec() == QMessageBox::Yes;
}

std::optional<std::filesystem::path> QtDialogs::chooseFile(const FileQuestion& question) {
  return runFileDialog(question, QFileDialog::AcceptOpen);
}

std::optional<std::filesystem::path> QtDialogs::chooseFileToSave(const FileQuestion& question) {
  return runFileDialog(question, QFileDialog::AcceptSave);
}

std::optional<std::string> QtDialogs::input(std::string_view title, std::string_view prompt, std::string_view value) {
  QInputDialog dialog(QApplication::activeWindow());
  dialog.setWindowTitle(words(title));
  dialog.setLabelText(words(prompt));
  dialog.setTextValue(words(value));
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.textValue().toStdString();
}

std::optional<std::size_t> QtDialogs::choose(std::string_view title, std::string_view text,
                                             std::span<const std::string> choices) {
  QStringList entries;
  for (const std::string& choice : choices) entries << words(choice);
  QInputDialog dialog(QApplication::activeWindow());
  dialog.setOption(QInputDialog::UseListViewForComboBoxItems);
  dialog.setWindowTitle(words(title));
  dialog.setLabelText(words(text));
  dialog.setComboBoxItems(entries);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return static_cast<std::size_t>(entries.indexOf(dialog.textValue()));
}

}  // namespace triaxlab

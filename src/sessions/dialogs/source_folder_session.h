#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dialogs.h"
#include "store/settings/source_folders.h"
#include "store/workspace.h"

namespace triaxlab {

/// What Form5 asks for, UTF-8.
struct FolderQuestion {
  std::string prompt;
  std::string text;  // to begin with
  /// Takes what was typed or chosen. False, or a UserError, which is shown: the window stays.
  std::function<bool(std::string_view folder)> take;
};
/// The folder of one kind of raw data; a text that can't be stored is a UserError.
FolderQuestion sourceFolderQuestion(Workspace& workspace, std::int16_t kind);

/// The session behind Form5, which asks for a folder: a text, and beside it the disks and folders of the machine. A
/// folder chosen in the lists goes into the text; a typed text is taken as it stands and need not exist. All texts are
/// UTF-8.
class SourceFolderSession {
 public:
  static constexpr std::string_view kCaption = "设置";
  static constexpr std::string_view kAccept = "确 定";  // Command1
  static constexpr std::string_view kCancel = "取 消";  // Command2

  /// The lists show the folder that the question begins with, or the application folder when that doesn't exist.
  SourceFolderSession(const Workspace& workspace, Dialogs& dialogs, FolderQuestion question);

  const std::string& prompt() const { return m_question.prompt; }

  // Text1
  const std::string& text() const { return m_text; }
  void setText(std::string_view typed) { m_text = typed; }

  // Drive1: "/" and the mounted disks
  std::vector<std::string> drives() const;
  /// The disk on which the open folder lies.
  std::size_t currentDrive() const;
  /// Opens the disk's first folder; one that isn't in the list is passed over.
  void chooseDrive(std::size_t drive);

  // Dir1: the folders from the root down to the open one, each a step further in, then what lies in the open one.
  std::size_t rowCount() const { return m_rows.size(); }
  /// The name with its indentation. Pre: row < rowCount(), from 0.
  std::string row(std::size_t row) const;
  /// The row that is chosen; of the open folder as long as none was.
  std::size_t currentRow() const { return m_currentRow; }
  /// A click: the folder goes into the text. A row past the last is passed over, here and below.
  void chooseRow(std::size_t row);
  /// A double click: the folder goes into the text and is opened.
  void openRow(std::size_t row);
  /// Opens the folder around the open one.
  void openParent();

  /// 确 定: false when the text can't be taken; why has been shown, and the window stays.
  bool accept();

 private:
  struct Row {
    std::filesystem::path path;
    std::size_t depth;  // steps from the root
  };
  void open(const std::filesystem::path& folder);

  Dialogs& m_dialogs;
  FolderQuestion m_question;
  std::string m_text;
  std::vector<std::filesystem::path> m_drives;
  std::vector<Row> m_rows;
  std::size_t m_openRow = 0;
  std::size_t m_currentRow = 0;
};

}  // namespace triaxlab

#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dialogs.h"
#include "store/settings/source_folders.h"
#include "store/workspace.h"

namespace triaxlab {

/// The session behind Form5, which asks for the folder of one kind of raw data: a text, and beside it the disks and
/// folders of the machine. A folder chosen in the lists goes into the text; a typed text is taken as it stands and need
/// not exist. All texts are UTF-8.
class SourceFolderSession {
 public:
  static constexpr std::string_view kCaption = "设置";
  static constexpr std::string_view kAccept = "确 定";  // Command1
  static constexpr std::string_view kCancel = "取 消";  // Command2

  /// For the kind in `openDialogKind`. The text is the stored folder; the lists show it, or the application folder when
  /// it doesn't exist.
  SourceFolderSession(Workspace& workspace, Dialogs& dialogs);

  std::string_view prompt() const { return m_folder.prompt; }

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

  /// 确 定: stores the text. False when it can't be stored: why has been shown, and the window stays.
  bool accept();

 private:
  struct Row {
    std::filesystem::path path;
    std::size_t depth;  // steps from the root
  };
  void open(const std::filesystem::path& folder);

  Workspace& m_workspace;
  Dialogs& m_dialogs;
  const SourceFolder& m_folder;
  std::string m_text;
  std::vector<std::filesystem::path> m_drives;
  std::vector<Row> m_rows;
  std::size_t m_openRow = 0;
  std::size_t m_currentRow = 0;
};

}  // namespace triaxlab

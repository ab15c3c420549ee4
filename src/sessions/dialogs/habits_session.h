#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/settings.h"
#include "platform/dialogs.h"
#include "store/settings/stored_text_file.h"
#include "store/settings/text_settings.h"
#include "store/workspace.h"

namespace triaxlab {

/// The session behind 实验室习惯: every key of the four text settings files with what it does and its value. Values are
/// changed here and written together; a save changes the lines of these keys alone. All texts are UTF-8.
class HabitsSession {
 public:
  static constexpr std::string_view kCaption = "实验室习惯";
  static constexpr std::string_view kSwitchedOn = "打开";
  static constexpr std::string_view kUseDefault = "恢复默认";
  static constexpr std::string_view kSample = "报告和窗口里的样子:";
  static constexpr std::string_view kSave = "保 存";
  static constexpr std::string_view kReturn = "返 回";
  static constexpr std::string_view kDataFolder = "数据文件夹";
  static constexpr std::string_view kChangeDataFolder = "更改…";

  /// `changeDataFolder` asks the person for another data folder.
  HabitsSession(Workspace& workspace, Dialogs& dialogs, std::function<void()> changeDataFolder);

  // The files
  std::vector<std::string> files() const;
  std::size_t currentFile() const { return m_file; }
  void chooseFile(std::size_t file);
  /// When the program reads the file, or why it can't be read: then it isn't written either.
  std::string fileNote() const;

  // The keys of the file: 关键字, 现在的值; from row 1
  int rowCount() const { return static_cast<int>(file().keys.size()); }
  std::string cell(int row, int column) const;
  int currentRow() const { return static_cast<int>(m_key) + 1; }
  void chooseRow(int row);

  // The chosen key
  bool isFlag() const;
  bool canBeChanged() const { return m_files[m_file].problem.empty(); }
  /// What it does, its limits and its default.
  std::string meaning() const;
  /// Where it acts, as it will look with the values of this window; empty when it changes no page.
  std::string sample() const;
  bool isOn() const { return value().has_value(); }
  /// What is written, or nothing but what holds without.
  std::string text() const { return value().value_or(""); }
  /// What stands in an empty box.
  std::string defaultText() const;
  bool hasDefault() const { return !value(); }

  void setOn(bool on);
  void setText(std::string_view typed);
  void useDefault();

  // All of them
  bool isChanged() const;
  /// Writes what was changed. False when something could not be written: why has been shown, and it is still there to
  /// be saved.
  bool save();
  /// 返 回 and the corner: asks about changes that aren't saved. False: the window stays.
  bool mayClose();
  /// What the last save did; empty after another change.
  const std::string& saved() const { return m_saved; }

  // The data folder
  std::string dataFolder() const;
  void changeDataFolder() { m_changeDataFolder(); }

 private:
  /// A file with the values that the window shows.
  struct OpenFile {
    const TextFile* file;
    std::optional<StoredTextFile> stored;
    std::string problem;  // why it can't be read
    TextValues before, now;

    bool isChanged() const { return before != now; }
  };

  static OpenFile openFile(const Workspace& workspace, const TextFile& file);
  const TextFile& file() const { return *m_files[m_file].file; }
  const TextKey& key() const { return file().keys[m_key]; }
  const std::optional<std::string>& value() const { return m_files[m_file].now[m_key]; }
  void setValue(std::optional<std::string> value);
  std::string valueShown(std::size_t key) const;
  /// Works out m_toBe.
  void foresee();
  static void saveFile(OpenFile& open);

  Workspace& m_workspace;
  Dialogs& m_dialogs;
  std::function<void()> m_changeDataFolder;
  std::vector<OpenFile> m_files;
  Settings m_toBe;  // the settings as a save will make them
  std::size_t m_file = 0, m_key = 0;
  std::string m_saved;
};

}  // namespace triaxlab

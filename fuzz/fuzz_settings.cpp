// Binary settings: whatever the bytes are, they read as settings within their limits, and a setting that is written
// reads as written and touches no other. The input is the content of each of the files as it stands, and then, over and
// over, that of a file that reaches behind the last position.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "common/fixed_text.h"
#include "common/user_error.h"
#include "fuzz_folders.h"
#include "store/settings/page_setup.h"
#include "store/settings/settings_file.h"
#include "store/settings/source_folders.h"
#include "store/settings/toggles.h"

namespace {

using namespace triaxlab;

constexpr std::array<std::string_view, 4> kFiles{"qvb.sys", "zmsz.sys", "SZDATX.sys", "WCXDATX.sys"};
constexpr std::size_t kBehindTheLast = 27010;

void check(bool holds) {
  if (!holds) std::abort();
}

void put(const fuzz::Folders& folders, std::string_view content) {
  for (const std::string_view name : kFiles)
    folders.put("../app/" + std::string(name), reinterpret_cast<const std::uint8_t*>(content.data()), content.size());
}

void readTexts(Workspace& workspace) {
  const SettingsFile settings = sharedSettings(workspace);
  for (const SettingsField field : {kDataFolderField, kYearField, kMonthField, kDayField}) {
    const std::string text = settings.readText(field);
    check(text.size() <= field.width && text.find('\0') == std::string::npos);
  }
  for (const SourceFolder& folder : kSourceFolders) {
    const std::string text = storedSourceFolder(workspace, folder);
    try {
      storeSourceFolder(workspace, folder, text);
      // Blanks in front of a backslash at the end don't come back.
      check(storedSourceFolder(workspace, folder) == Trim(sourceFolderText(text)));
    } catch (const UserError&) {
      // Bytes that are no GBK can't be stored again.
    }
  }
}

void flipToggles(Workspace& workspace, const fuzz::Folders& folders) {
  readToggles(workspace);
  for (const ToggleByte& byte : toggleBytes()) {
    std::string wanted = folders.get("../app/qvb.sys");
    const bool on = !(workspace.settings.toggles.*byte.toggle);
    setToggle(workspace, byte.toggle, on);
    wanted.resize(std::max<std::size_t>(wanted.size(), byte.position), '\0');
    wanted[byte.position - 1] = static_cast<char>(on ? byte.on : byte.off);
    check(folders.get("../app/qvb.sys") == wanted);
    readToggles(workspace);
    check(workspace.settings.toggles.*byte.toggle == on);
  }
}

/// The bytes that a page setup doesn't have.
std::string outside(std::string content) {
  content.resize(std::max<std::size_t>(content.size(), 83), '\0');
  for (const std::size_t position : {10, 20, 30, 60}) content[position - 1] = '\0';
  for (const std::size_t position : {70, 80}) content.replace(position - 1, 4, 4, '\0');
  return content;
}

void setPages(const Workspace& workspace, const fuzz::Folders& folders) {
  const std::string before = folders.get("../app/zmsz.sys");
  const PageSetup setup = readPageSetup(workspace);
  check(setup.rows >= 1 && setup.rows <= 30 && setup.columns >= 1 && setup.columns <= 30);
  for (const float margin : {setup.leftMarginCm, setup.rightMarginCm}) check(margin >= 0.5F && margin <= 10);
  check(setup.paperOfJob() <= SheetPaper::WideForm && setup.paperOfDialog() <= SheetPaper::WideForm);
  writePageSetup(workspace, setup);
  check(readPageSetup(workspace) == setup);
  check(outside(folders.get("../app/zmsz.sys")) == outside(before));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static fuzz::Folders folders;
  static Workspace workspace;
  folders.assignTo(workspace);
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  std::string longContent;
  while (!input.empty() && longContent.size() < kBehindTheLast) longContent += input;
  for (const std::string_view content : {input, std::string_view(longContent)}) {
    put(folders, content);
    readTexts(workspace);
    flipToggles(workspace, folders);
    setPages(workspace, folders);
  }
  folders.checkNothingStrayed();
  return 0;
}

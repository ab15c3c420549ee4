#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace triaxlab::formats {

/// A page of docs/formats.
struct FormatPage {
  std::string_view file;     // name in the folder
  std::string_view subject;  // what the index says of it
  std::string (*markdown)();
};

/// All pages but the index, in its order.
std::vector<FormatPage> formatPages();
/// README.md: conventions that all formats share, and the other pages.
std::string indexPage();

std::string projectFilesPage();
std::string triaxialRecordPage();
std::string unconfinedRecordPage();
std::string k0RecordPage();
std::string tk0RecordPage();
std::string oldProjectFilesPage();
std::string summaryFilePage();
std::string physicalDataPage();
std::string binarySettingsPage();
std::string textSettingsPage();
std::string saveJournalPage();
std::string backupsPage();
std::string exportTablesPage();

/// The chapter of the manual, Chinese, with the keys of the text settings.
std::string habitsPage();

/// Those that the raw data sources name, in the order of the menu. std::logic_error: a source names one that isn't
/// written.
std::vector<FormatPage> rawFilePages();

}  // namespace triaxlab::formats

#include "cli/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <map>
#include <memory>
#include <utility>

#include "importers/importer.h"
#include "platform/files.h"
#include "platform/sheet_writer.h"

namespace triaxlab::cli {
namespace {

constexpr const char* kAll = "all";
constexpr const char* kNone = "none";

template <class Number>
bool parseNumber(std::string_view text, Number& number) {
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  return result.ec == std::errc{} && result.ptr == text.data() + text.size();
}

/// "1,3": numbers parted by commas.
template <class Number>
bool parseList(std::string_view text, std::vector<Number>& numbers) {
  numbers.clear();
  for (std::size_t start = 0; start <= text.size();) {
    const std::size_t comma = std::min(text.find(',', start), text.size());
    Number number{};
    if (!parseNumber(text.substr(start, comma - start), number)) return false;
    numbers.push_back(number);
    start = comma + 1;
  }
  return true;
}

/// "2-5", or one number for a span of one.
bool parseSpan(std::string_view text, Span& span) {
  const std::size_t dash = text.find('-');
  if (dash == std::string_view::npos) return parseNumber(text, span.from) && parseNumber(text, span.to);
  return parseNumber(text.substr(0, dash), span.from) && parseNumber(text.substr(dash + 1), span.to);
}

std::vector<std::string> kindNames() {
  std::vector<std::string> names;
  names.reserve(kProjectKinds.size());
  for (const ProjectKindInfo& info : kProjectKinds) names.emplace_back(info.id);
  return names;
}

template <class Names>
std::vector<std::string> namesOf(const Names& names) {
  return {names.begin(), names.end()};
}

std::vector<std::string> sourceNames() {
  std::vector<std::string> names;
  for (const Importer* importer : importers()) names.emplace_back(importer->id);
  return names;
}

void addKind(CLI::App& app, ProjectKind& kind) {
  app.add_option_function<std::string>(
         "KIND", [&kind](const std::string& id) { kind = projectKindOfId(id).value_or(kind); }, "kind of project file")
      ->required()
      ->check(CLI::IsMember(kindNames()));
}

void addName(CLI::App& app, std::string& name) {
  app.add_option("NAME", name, "project file, without folder")->required();
}

void addFiles(CLI::App& app, ProjectFiles& files) {
  addKind(app, files.kind);
  app.add_option("NAME", files.names,
                 "project files, without folder; - for those that standard input names, a line each")
      ->required();
  app.add_flag_callback(
      "-0", [&files] { files.inputNamesEnd = NameEnd::ZeroByte; }, "a zero byte ends a name of standard input");
  app.add_option("--data", files.dataFolder, "reads this data folder, as it stands and without any settings")
      ->type_name("DIR");
  app.add_flag("--progress", files.tellsProgress, "tells on standard error how far the work has come");
}

void addRange(CLI::App& app, std::optional<int>& first, std::optional<int>& last) {
  app.add_option("--first", first, "first sample of a file of more than 100");
  app.add_option("--last", last, "last sample");
}

void addPage(CLI::App& app, std::optional<CurvePage>& page) {
  const auto parse = [&page](const std::string& text) {
    int number = 0;
    if (!parseNumber(text, number) || number < 1 || number > 6) return false;
    page = static_cast<CurvePage>(number);
    return true;
  };
  addParsedOption(app, "--show", "PAGE of 1 to 6", "shows this curve page of every sample", parse);
}

void addSpan(CLI::App& app, const char* name, const char* form, const char* help, std::optional<Span>& target) {
  const auto parse = [&target](const std::string& text) {
    if (text == kAll) return true;
    Span span;
    if (!parseSpan(text, span)) return false;
    target = span;
    return true;
  };
  addParsedOption(app, name, form, help, parse);
}

// One function for each command that has arguments: its subcommand and where they go.

void describe(CLI::App& app, Import& import) {
  app.add_option("SOURCE", import.source, "source of the database")->required()->check(CLI::IsMember(sourceNames()));
  app.add_option("FILE", import.file, "database")->required();
  const auto parseRows = [&import](const std::string& text) {
    import.allRows = text == kAll;
    return import.allRows || parseList(text, import.rows);
  };
  addParsedOption(app, "--rows", "all|1,3", "rows of the grid to read", parseRows);
  app.add_flag("--keep-existing", import.keepExisting, "leaves known samples as they are stored");
  app.add_flag_callback(
      "--no-save", [&import] { import.save = false; }, "leaves the files alone");
  addPage(app, import.page);
}

void describe(CLI::App& app, Open& open) {
  addFiles(app, open.files);
  addRange(app, open.first, open.last);
  addPage(app, open.page);
  app.add_flag("--save", open.save, "saves the samples")->excludes("--data");
}

void describe(CLI::App& app, List& list) { addKind(app, list.kind); }

void describe(CLI::App& app, Samples& samples) {
  addKind(app, samples.kind);
  addName(app, samples.name);
}

void describe(CLI::App& app, Rewrite& rewrite) {
  addKind(app, rewrite.kind);
  addName(app, rewrite.name);
  const auto parseOrder = [&rewrite](const std::string& text) {
    return text == kNone || parseList(text, rewrite.order);
  };
  addParsedOption(app, "--order", "3,1,2|none", "samples to keep, in their new order", parseOrder)->required();
}

void describe(CLI::App& app, Show& show) {
  addKind(app, show.kind);
  addName(app, show.name);
  app.add_option("--sample", show.sample, "this sample alone, from 1");
}

void describe(CLI::App& app, Results& results) { addFiles(app, results.files); }

void describe(CLI::App& app, Export& written) {
  addFiles(app, written.files);
  const auto parseFormat = [&written](const std::string& id) {
    written.format = tableFormatOfId(id);
    return written.format != nullptr;
  };
  addParsedOption(app, "--format", "csv|jsonl", "format of the table", parseFormat)->required();
  app.add_flag_callback(
      "--readings", [&written] { written.content = TableContent::Readings; },
      "a line a reading instead of a line a sample");
  app.add_option("--out", written.out, "file of the table")->required();
}

void describe(CLI::App& app, Print& print) {
  addFiles(app, print.files);
  app.add_option("--layout", print.layout, "layout of the pages")->required()->check(CLI::IsMember(namesOf(kLayouts)));
  addSpan(app, "--samples", "all|A-B", "samples to print", print.samples);
  addSpan(app, "--pages", "A-B", "pages to print", print.pages);
  const auto parseCurves = [&print](const std::string& text) {
    std::vector<int> numbers;
    if (!parseList(text, numbers)) return false;
    if (std::any_of(numbers.begin(), numbers.end(), [](int number) { return number < 1 || number > 6; })) return false;
    print.curves.clear();
    for (const int number : numbers) print.curves.push_back(static_cast<CurvePage>(number));
    return true;
  };
  addParsedOption(app, "--curves", "1,3 of 1 to 6", "curve pages to print", parseCurves);
  app.add_option("--rows", print.rows, "curves below each other on a chart page");
  app.add_option("--columns", print.columns, "curves beside each other");
  app.add_flag("--data-sheet", print.dataSheet, "prints the stages below each chart");
  static const std::map<std::string, SheetPaper> kPapers{{"A4", SheetPaper::A4},
                                                         {"A3", SheetPaper::A3},
                                                         {"wide", SheetPaper::WideForm},
                                                         {"narrow", SheetPaper::NarrowForm}};
  app.add_option("--paper", print.paper, "paper of the pages")
      ->type_name("A4|A3|wide|narrow")
      ->transform(CLI::CheckedTransformer(kPapers).description(""));
  app.add_flag("--landscape", print.landscape, "turns the paper of a chart page");
  app.add_option("--copies", print.copies, "copies on a printer")->check(CLI::Range(1, 99));
  CLI::Option_group* const target = app.add_option_group("target", "where the pages go");
  target->add_option("--printer", print.printer, "name of a printer");
  target->add_option("--out", print.out,
                     "FILE.pdf, FILE.json, or a folder for one BMP a page; {} stands for the name of the project file");
  target->require_option(1, 2);
}

void addWorkbookFile(CLI::App& app, std::filesystem::path& out) {
  const auto refusal = [](const std::string& file) {
    return isWorkbookName(file) ? std::string() : file + " is neither an .xls nor an .xlsx file";
  };
  app.add_option("--out", out, "FILE.xls or FILE.xlsx")->required()->check(refusal);
}

void describe(CLI::App& app, WriteWorkbook& workbook) {
  addName(app, workbook.name);
  app.add_option_function<std::string>(
         "--kind", [&workbook](const std::string& id) { workbook.kind = *projectKindOfId(id); },
         "kind of project file, triaxial when left out")
      ->check(CLI::IsMember(kindNames()));
  addRange(app, workbook.first, workbook.last);
  addWorkbookFile(app, workbook.out);
}

void describe(CLI::App& app, WriteRawWorkbook& workbook) {
  std::vector<std::string> sources;
  for (const Importer* importer : importers())
    if (importer->openTests != nullptr) sources.emplace_back(importer->id);
  app.add_option("SOURCE", workbook.source, "source of the database")->required()->check(CLI::IsMember(sources));
  app.add_option("FILE", workbook.file, "database")->required();
  addWorkbookFile(app, workbook.out);
}

void describe(CLI::App& /*app*/, Init& /*init*/) {}

// What no option by itself can tell is wrong.

template <class T>
void check(const T& /*command*/, const StartOptions& /*start*/) {}
template <class T>
requires requires(T command) { command.files.dataFolder; }
void check(const T& command, const StartOptions& start) {
  if (command.files.dataFolder && start.applicationFolder) throw CLI::ExcludesError("--data", "--app");
  if constexpr (std::is_same_v<T, Print>) {
    const bool isOneFile = command.files.names.size() == 1 && command.files.names.front() != kStandardInput;
    if (!isOneFile && !command.out.empty() && textOfPath(command.out).find(kNamePlace) == std::string::npos)
      throw CLI::ValidationError("--out", "of many files needs {} for the name of each");
  }
}

/// The commands while the line is being parsed: CLI11 writes into them, so they stay where they are.
class Subcommands {
 public:
  Subcommands(CLI::App& app, const StartOptions& start) : m_app(app), m_start(start) {}

  template <class T>
  void add(const char* name, const char* help) {
    auto target = std::make_shared<T>();
    CLI::App& subcommand = *m_app.add_subcommand(name, help);
    describe(subcommand, *target);
    subcommand.callback([this, target] {
      check(*target, m_start);
      m_chosen = *target;
    });
  }
  const std::optional<Command>& chosen() const { return m_chosen; }

 private:
  CLI::App& m_app;
  const StartOptions& m_start;
  std::optional<Command> m_chosen;
};

}  // namespace

ParsedCommandLine parseCommandLine(int argc, const char* const* argv) {
  CLI::App app("The laboratory's triaxial tests without windows.", "triaxlab-cli");
  CommandLine line;
  addStartOptions(app, line.start);
  app.require_subcommand(1);

  Subcommands commands(app, line.start);
  commands.add<Init>("init", "makes the settings file and the data folders when they are missing");
  commands.add<Import>("import", "reads a raw database and saves its samples");
  commands.add<Open>("open", "opens project files, and saves them again if asked");
  commands.add<List>("list", "lists the project files of a kind");
  commands.add<Samples>("samples", "lists the samples of a project file");
  commands.add<Rewrite>("rewrite", "puts the samples of a project file in another order, without those left out");
  commands.add<Show>("show", "prints the samples of a project file as JSON");
  commands.add<Results>("results", "prints what the tests of project files were made for, a line a sample");
  commands.add<Export>("export", "writes results or readings of project files as a table for other programs");
  commands.add<Print>("print", "prints the samples of a project file");
  commands.add<WriteWorkbook>("workbook", "writes the samples of a project file as a workbook");
  commands.add<WriteRawWorkbook>("workbook-raw", "writes all tests of a raw database as a workbook");

  if (const std::optional<int> status = statusOfParse(app, argc, argv)) return {std::nullopt, *status};
  line.command = *commands.chosen();
  return {std::move(line), kDone};
}

}  // namespace triaxlab::cli

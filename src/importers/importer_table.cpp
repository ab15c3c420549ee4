#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <string>

#include "importers/importer.h"
#include "platform/files.h"

namespace triaxlab {

// A new source is a file that defines its importer, one line here, and its name in the list below.
extern const Importer kAutomaticOldImporter;
extern const Importer kAutomaticImporter;
extern const Importer kK0HgjImporter;
extern const Importer kK0KgjImporter;
extern const Importer kManualImporter;
extern const Importer kNanjingImporter;
extern const Importer kNewQvbImporter;
extern const Importer kQvb98Importer;
extern const Importer kTK0HgjImporter;
extern const Importer kUnconfinedHwxImporter;
extern const Importer kUnconfinedKzjImporter;
extern const Importer kWindowsTriaxialDatxImporter;
extern const Importer kWindowsTriaxialImporter;
extern const Importer kWindowsUnconfinedDatxImporter;
extern const Importer kWindowsUnconfinedImporter;

namespace {

constexpr std::array kImporters{&kWindowsTriaxialImporter,
                                &kWindowsTriaxialDatxImporter,
                                &kQvb98Importer,
                                &kAutomaticOldImporter,
                                &kAutomaticImporter,
                                &kNewQvbImporter,
                                &kManualImporter,
                                &kUnconfinedKzjImporter,
                                &kUnconfinedHwxImporter,
                                &kWindowsUnconfinedImporter,
                                &kWindowsUnconfinedDatxImporter,
                                &kK0KgjImporter,
                                &kK0HgjImporter,
                                &kTK0HgjImporter,
                                &kNanjingImporter};

const Importer* find(std::string_view Importer::*column, std::string_view wanted) {
  const auto* const found = std::find_if(kImporters.begin(), kImporters.end(),
                                         [=](const Importer* importer) { return importer->*column == wanted; });
  return found == kImporters.end() ? nullptr : *found;
}

/// The source to which the file surely belongs; nothing when there is none.
const Importer* sureOwner(const FileHead& head) {
  const auto owns = [&](const Importer* importer) {
    return importer->recognise != nullptr && importer->recognise(head) == Recognition::Mine;
  };
  const auto* const owner = std::find_if(kImporters.begin(), kImporters.end(), owns);
  return owner == kImporters.end() ? nullptr : *owner;
}

/// A file that may be this source's is refused only when it surely is another's: a damaged database is read as far as
/// it goes.
void refuseWrongFile(const Importer& importer, const std::filesystem::path& path) {
  const File file(path, File::Mode::Read);
  Bytes bytes(std::min<std::uint64_t>(file.size(), kRecognisedHead));
  bytes.resize(file.readAt(0, bytes));
  const FileHead head(bytes, file.size());
  const Recognition recognition = importer.recognise(head);
  if (recognition == Recognition::Mine) return;
  const Importer* const owner = sureOwner(head);
  if (recognition == Recognition::Damaged && owner == nullptr) return;
  const std::string instead = owner != nullptr ? fmt::format("，看起来是{}", owner->title) : "";
  throw UserError(fmt::format("文件“{}”不是{}{}，数据没有读入。请核对所选的数据来源和文件。", textOfPath(path),
                              importer.title, instead));
}

}  // namespace

std::span<const Importer* const> importers() { return kImporters; }

const Importer* importerOfId(std::string_view id) { return find(&Importer::id, id); }

const Importer* importerOfMenuCommand(std::string_view menuCommand) {
  return find(&Importer::menuCommand, menuCommand);
}

std::unique_ptr<RawSource> openRawSource(const Importer& importer, const std::filesystem::path& path) {
  refuseWrongFile(importer, path);
  return importer.open(path);
}

std::unique_ptr<RawTests> openRawTests(const Importer& importer, const std::filesystem::path& path) {
  refuseWrongFile(importer, path);
  return importer.openTests(path);
}

}  // namespace triaxlab

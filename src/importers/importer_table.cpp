#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <set>
#include <string>

#include "common/in_memory.h"
#include "common/small_letters.h"
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

/// A file as `recognise` gets it.
class RawHead {
 public:
  explicit RawHead(const std::filesystem::path& path) {
    const File file(path, File::Mode::Read);
    m_size = file.size();
    m_bytes.resize(inMemory(std::min<std::uint64_t>(m_size, kRecognisedHead)));
    m_bytes.resize(file.readAt(0, m_bytes));
  }
  FileHead head() const { return {m_bytes, m_size}; }

 private:
  Bytes m_bytes;
  std::uint64_t m_size = 0;
};

/// What a source calls its files: a name, or a mask with one "*".
struct NameMask {
  explicit NameMask(const Importer& importer)
      : front(importer.defaultFile.substr(0, importer.defaultFile.find('*'))),
        back(importer.defaultFile.substr(std::min(importer.defaultFile.size(), front.size() + 1))),
        isWhole(front.size() == importer.defaultFile.size()) {}

  bool fits(const std::filesystem::path& path) const {
    const std::string name = caseless(textOfPath(path.filename()));
    if (isWhole) return name == caseless(front);
    return name.size() >= front.size() + back.size() && name.starts_with(caseless(front)) &&
           name.ends_with(caseless(back));
  }

  std::string_view front, back;
  bool isWhole;
};

bool hasEnding(const Importer& importer, const std::filesystem::path& path) {
  const auto ending = [](const std::filesystem::path& name) { return caseless(textOfPath(name.extension())); };
  return ending(path) == ending(std::filesystem::path(importer.defaultFile));
}

/// Those of the sources that `fits` takes; all of them when it takes none.
template <class Fits>
std::vector<const Importer*> narrowed(const std::vector<const Importer*>& sources, const Fits& fits) {
  std::vector<const Importer*> fitting;
  std::ranges::copy_if(sources, std::back_inserter(fitting), fits);
  return fitting.empty() ? sources : fitting;
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
  const RawHead raw(path);
  const FileHead head = raw.head();
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

std::vector<const Importer*> sourcesOf(const std::filesystem::path& path) {
  const RawHead raw(path);
  const auto hasName = [&path](const Importer* importer) { return NameMask(*importer).fits(path); };
  std::vector<const Importer*> sure, damaged;
  for (const Importer* importer : kImporters) {
    const Recognition recognition = importer->recognise(raw.head());
    if (recognition == Recognition::Mine) sure.push_back(importer);
    if (recognition == Recognition::Damaged && hasName(importer)) damaged.push_back(importer);
  }
  if (sure.empty()) return damaged;
  return narrowed(narrowed(sure, [&path](const Importer* importer) { return hasEnding(*importer, path); }), hasName);
}

std::vector<std::filesystem::path> namesOfSourcesIn(const std::filesystem::path& folder) {
  std::set<std::filesystem::path> found;
  for (const Importer* importer : kImporters) {
    const NameMask mask(*importer);
    for (const std::string& name : listFiles(folder, mask.front, mask.back))
      if (mask.fits(pathFromText(name))) found.insert(folder / pathFromText(name));
  }
  return {found.begin(), found.end()};
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

#include <algorithm>
#include <array>

#include "importers/importer.h"

namespace triaxlab {

// A new source is a file that defines its importer, one line here, and its name in the list below.
extern const Importer kAutomaticOldImporter;
extern const Importer kAutomaticImporter;
extern const Importer kManualImporter;
extern const Importer kNanjingImporter;
extern const Importer kNewQvbImporter;
extern const Importer kQvb98Importer;
extern const Importer kWindowsTriaxialDatxImporter;
extern const Importer kWindowsTriaxialImporter;

namespace {

constexpr std::array kImporters{&kWindowsTriaxialImporter, &kWindowsTriaxialDatxImporter,
                                &kQvb98Importer,           &kAutomaticOldImporter,
                                &kAutomaticImporter,       &kNewQvbImporter,
                                &kManualImporter,          &kNanjingImporter};

const Importer* find(std::string_view Importer::*column, std::string_view wanted) {
  const auto* const found = std::find_if(kImporters.begin(), kImporters.end(),
                                         [=](const Importer* importer) { return importer->*column == wanted; });
  return found == kImporters.end() ? nullptr : *found;
}

}  // namespace

std::span<const Importer* const> importers() { return kImporters; }

const Importer* importerOfId(std::string_view id) { return find(&Importer::id, id); }

const Importer* importerOfMenuCommand(std::string_view menuCommand) {
  return find(&Importer::menuCommand, menuCommand);
}

}  // namespace triaxlab

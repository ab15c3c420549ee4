#include "store/settings/source_folders.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace triaxlab {
namespace {

TEST(SourceFolders, EachKindHasItsRow) {
  for (const SourceFolder& folder : kSourceFolders) EXPECT_EQ(&sourceFolderOf(folder.kind), &folder);
  EXPECT_EQ(sourceFolderOf(13).file, "WCXDATX.sys");
}

TEST(SourceFolders, AKindThatDoesNotExistIsRefused) {
  for (const std::int16_t kind : std::initializer_list<std::int16_t>{0, 9, 14, -1})
    EXPECT_THROW(sourceFolderOf(kind), std::out_of_range) << kind;
}

}  // namespace
}  // namespace triaxlab

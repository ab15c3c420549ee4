// Memory that ends in the middle of an import or of printing: the exception comes out, the tables are as before, and no
// half a file is left. What tells a person of it is the same for every exception.

#include <gtest/gtest.h>

#include <filesystem>
#include <new>

#include "ending_memory.h"
#include "importers/import_fixture.h"
#include "platform/json_page_device.h"
#include "reports/page_fixture.h"

namespace triaxlab::testing {
namespace {

/// Does the work again and again, each time with some more memory, until it comes to its end. How often it didn't.
template <class Work, class Check>
int withMoreAndMoreMemory(const Work& work, const Check& checkFailed) {
  int failed = 0;
  for (std::size_t allocations = 0;; allocations += 1 + allocations / 8) {
    try {
      const EndingMemory memory(allocations);
      work();
      if (!memory.hasEnded()) return failed;
      ADD_FAILURE() << "the end of memory behind " << allocations << " allocations was not told";
    } catch (const std::bad_alloc&) {
      ++failed;
    }
    checkFailed();
  }
}

using ShortMemoryImport = ImportTest;

TEST_F(ShortMemoryImport, LeavesTheTableAsItWas) {
  const std::filesystem::path file =
      folder.write("HSZSJ.KU", kuFile({olderEntry({{{.sampleNo = "A-1", .stress = {{1, 100}, {2, 200}}}}})}));
  importPath(file);
  SetText(workspace.TriaxialSampleTable[0].sampleNo, "mine");
  const ImportedState before(workspace);
  const int failed =
      withMoreAndMoreMemory([&] { importPath(file); }, [&] { ASSERT_TRUE(ImportedState(workspace) == before); });
  EXPECT_GT(failed, 5);
  EXPECT_EQ(row(0).sampleNo.trimmed(), "A-1") << "with enough of it";
}

using ShortMemoryPrinting = PageTest;

TEST_F(ShortMemoryPrinting, LeavesNoHalfAFile) {
  sample(0, kUU, "A-1");
  const std::filesystem::path file = folder / "pages.json";
  const auto print = [&] { sendReport(*report(), job, *makeJsonDevice(file)); };
  const int failed = withMoreAndMoreMemory(print, [&] { ASSERT_TRUE(std::filesystem::is_empty(folder.path())); });
  EXPECT_GT(failed, 5);
  EXPECT_TRUE(std::filesystem::exists(file)) << "with enough of it";
}

}  // namespace
}  // namespace triaxlab::testing

// What dead programs left lying about is taken away at a start; what somebody holds or a person made stays.

#include "store/safety/leftovers.h"

#include "store/safety/passing_file.h"
#include "store/store_fixture.h"
#include "support/lock_holder.h"

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

class Leftovers : public StoreTest {
 protected:
  std::vector<std::string> inApplication() const { return listFiles(workspace.applicationFolder, "", ""); }
};

TEST_F(Leftovers, OfDeadProgramsAreTakenAway) {
  for (const char* name : {"a.bak", "b.bak", "WCX.BAK", "wcx.bak", "a.pc-12-0123abcd-3.bak", "ab.bak", "notes.txt"})
    write(std::string("../app/") + name, "x");
  for (const char* name : {"WKSZ1.txt.new", "WKSZ1.txt", "notes.txt.new", "backup/copy.new", "backup/WKSZ1_2.txt",
                           "backup/copy.pc-12-0123abcd-3.new"})
    write(std::string("HSZS/") + name, "x");
  takeAwayLeftovers(workspace);
  EXPECT_THAT(inApplication(), UnorderedElementsAre("ab.bak", "notes.txt"));
  EXPECT_THAT(listFiles(data("HSZS"), "", ""), UnorderedElementsAre("WKSZ1.txt", "notes.txt.new"));
  EXPECT_THAT(backups(), ElementsAre("WKSZ1_2.txt"));
  EXPECT_FALSE(has("triaxlab.lock"));
}

TEST_F(Leftovers, ThatSomebodyHoldsStay) {
  PassingFile made(workspace.applicationFolder, kReorderedFile);
  made.make();
  write("../app/b.bak", "x");
  const LockHolder other(workspace.applicationFolder / "b.bak", LockWay::RecordLock);
  takeAwayLeftovers(workspace);
  EXPECT_THAT(inApplication(), UnorderedElementsAre("b.bak", made.path().filename().string()));
}

TEST_F(Leftovers, OfTheDataStayWhileAnotherProgramChangesIt) {
  write("HSZS/backup/copy.new", "x");
  LockHolder other(data("HSZS"), LockWay::Flock);
  takeAwayLeftovers(workspace);
  EXPECT_THAT(backups(), ElementsAre("copy.new"));
  other.kill();
  takeAwayLeftovers(workspace);
  EXPECT_TRUE(backups().empty());
}

}  // namespace
}  // namespace triaxlab::testing

/// The sample host's own note of the project used last, written the way settings are: whole or not at all,
/// and its failure is nobody's business.
#include "tests/faults/SaveTest.h"

#include "apps/takeoff/DataFolder.h"

#include <cerrno>

namespace unitlib::test {
namespace {

TEST_F(TSaveTest, SampleHostRemembersTheOldProjectOrTheNew) {
  Put("", "first.takeoff");
  Put("", "second.takeoff");
  const std::u16string First = Path16("first.takeoff"), Second = Path16("second.takeoff");
  const takeoff::TDataFolder Data(Path16("data"));
  const std::string Under = Path("data");
  int Kept = 0;
  for (long Call = 1; Call < 1000; ++Call) {
    SCOPED_TRACE(Call);
    Data.Remember(First);
    arm_faults(Under.c_str(), Call, fault_error, EIO, nullptr, nullptr);
    EXPECT_NO_THROW(Data.Remember(Second));
    const bool Ended = disarm_faults() < Call;
    const std::u16string Found = Data.ProjectToOpen();
    EXPECT_TRUE(Found == First || Found == Second) << ToUtf8(Found);
    Kept += Found == First;
    if (!Ended) continue;
    EXPECT_EQ(Found, Second);
    EXPECT_GT(Kept, 3) << "the layer sees the calls";
    return;
  }
  FAIL() << "there is no end";
}

} // namespace
} // namespace unitlib::test

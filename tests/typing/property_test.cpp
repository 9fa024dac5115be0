/// Properties of generated texts, a short run of what typing_properties checks over millions.
#include "tests/typing/TypedProperties.h"

namespace unitlib::test {
namespace {

constexpr std::uint64_t Seed = 20261121;
constexpr std::uint64_t Count = 60000;

class TypedPropertiesTest : public TFactorySettings {};

TEST_F(TypedPropertiesTest, HoldForGeneratedTexts) {
  SCOPED_TRACE("seed " + std::to_string(Seed));
  const TPropertyCounts Counts =
      CheckProperties(Count, Seed, [](const std::string& What) { ADD_FAILURE() << What; });
  EXPECT_EQ(Counts.Failures, 0U);
  // The properties were not true for want of texts.
  EXPECT_GT(Counts.Read, Count / 2);
  EXPECT_GT(Counts.ReadByFacade, Count / 20);
  EXPECT_GT(Counts.ShownBack, Count / 2);
}

} // namespace
} // namespace unitlib::test

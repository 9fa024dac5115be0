/// typing_properties [COUNT [SEED]]: the properties of typed texts over any number of generated ones.
/// Exit status 1 when one does not hold.
#include "tests/typing/TypedProperties.h"

#include <cstdio>
#include <cstdlib>

namespace {

class TSettings : public unitlib::test::TFactorySettings {
  void TestBody() override {}
};

} // namespace

int main(int Count, char** Arguments) {
  const std::uint64_t Texts = Count > 1 ? std::strtoull(Arguments[1], nullptr, 10) : 1000000;
  const std::uint64_t Seed = Count > 2 ? std::strtoull(Arguments[2], nullptr, 10) : 1;
  if (Texts == 0) {
    std::fputs("usage: typing_properties [COUNT [SEED]]\n", stderr);
    return 2;
  }
  const TSettings Settings;
  const auto Counts = unitlib::test::CheckProperties(
      Texts, Seed, [](const std::string& What) { std::fprintf(stderr, "%s\n", What.c_str()); });
  std::printf(
      "seed %llu: %llu texts, %llu read, %llu of them by the facade too, %llu shown back, %llu failures\n",
      static_cast<unsigned long long>(Seed), static_cast<unsigned long long>(Counts.Texts),
      static_cast<unsigned long long>(Counts.Read), static_cast<unsigned long long>(Counts.ReadByFacade),
      static_cast<unsigned long long>(Counts.ShownBack), static_cast<unsigned long long>(Counts.Failures));
  return Counts.Failures == 0 ? 0 : 1;
}

/// Measures found by their classify code: always as the walk over the list finds them.
#include "unitlib/model/UnitModel.h"

#include <gtest/gtest.h>

#include <random>
#include <thread>

namespace unitlib {
namespace {

TMeasure* Walk(const TConfig& Config, int Code) {
  for (const auto& Measure : Config.MeasureContainer)
    if (Measure->ClassifyCode == Code) return Measure.get();
  return nullptr;
}

TEST(MeasureIndex, FollowsEveryChange) {
  constexpr int Seed = 20261121;
  std::mt19937 Random(Seed);
  const auto Below = [&Random](int Count) {
    return static_cast<int>(Random() % static_cast<unsigned>(Count));
  };
  TConfig Config;
  for (int I = 0; I < 20'000; ++I) {
    auto& Measures = Config.MeasureContainer;
    const int Count = Measures.Count();
    switch (Below(6)) {
    case 0:
      Measures.Add().ClassifyCode = Below(12) - 2;
      break;
    case 1:
      if (Count > 0) Measures[Below(Count)].ClassifyCode = Below(12) - 2;
      break;
    case 2:
      if (Count > 20) Measures.Delete(Below(Count));
      break;
    case 3:
      if (Below(500) == 0) Measures.Clear();
      break;
    case 4:
      if (Below(100) == 0) {
        TOwningList<TMeasure> Other;
        Other.Add().ClassifyCode = Below(12) - 2;
        Measures = std::move(Other);
      }
      break;
    default:
      break;
    }
    const int Code = Below(14) - 3;
    ASSERT_EQ(Config.FindMeasure(Code), Walk(Config, Code)) << "seed " << Seed << ", step " << I;
  }
}

TEST(MeasureIndex, FindsExtremeCodes) {
  TConfig Config;
  for (const int Code : {0, -1, INT32_MAX, INT32_MIN, 1 << 16, 1 << 24})
    Config.MeasureContainer.Add().ClassifyCode = Code;
  for (const auto& Measure : Config.MeasureContainer)
    EXPECT_EQ(Config.FindMeasure(Measure->ClassifyCode), Measure.get());
  EXPECT_EQ(Config.FindMeasure(1), nullptr);
}

TEST(MeasureIndex, ManyThreadsFindTheSame) {
  TConfig Config;
  for (int I = 0; I < 200; ++I) Config.MeasureContainer.Add().ClassifyCode = I % 150;
  for (int Round = 0; Round < 50; ++Round) {
    Config.MeasureContainer[Round].ClassifyCode = Round; // the table has to be made again
    int Wrong[4] = {};
    std::vector<std::thread> Threads;
    for (int& Count : Wrong)
      Threads.emplace_back([&Config, &Count] {
        for (int Code = 0; Code < 160; ++Code) Count += Config.FindMeasure(Code) != Walk(Config, Code);
      });
    for (std::thread& Thread : Threads) Thread.join();
    for (const int Count : Wrong) EXPECT_EQ(Count, 0);
  }
}

} // namespace
} // namespace unitlib

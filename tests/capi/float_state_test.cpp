/// A host with another floating-point state: the same results, and the state as it was.
#include "tests/capi/CapiTest.h"

#include <cstdint>
#include <ostream>

#if defined(__i386__) || defined(__x86_64__)

namespace capi_test {
namespace {

struct TState {
  std::uint16_t X87;
  std::uint32_t Sse;
  friend bool operator==(const TState&, const TState&) = default;
};

TState Get() {
  TState State{};
  __asm__ volatile("fnstcw %0" : "=m"(State.X87)::"memory");
  __asm__ volatile("stmxcsr %0" : "=m"(State.Sse)::"memory");
  State.Sse &= ~0x3FU; // the flags of what has happened, not a setting
  return State;
}

void Set(const TState& State) {
  __asm__ volatile("fldcw %0" ::"m"(State.X87) : "memory");
  __asm__ volatile("ldmxcsr %0" ::"m"(State.Sse) : "memory");
}

struct TRow {
  const char* Name;
  TState State;
};
void PrintTo(const TRow& Row, std::ostream* Out) {
  *Out << Row.Name;
}

class TFloatStates : public TCapi, public ::testing::WithParamInterface<TRow> {};

/// What the calls below gave, gathered while the host's state is set, looked at afterwards.
struct TOutcome {
  char Text[32] = "";
  double Stored = 0, Evaluated = 0;
  ul_status Statuses[4] = {-1, -1, -1, -1};
  TState After{}, InListener{};
};

void UL_CALL Look(void* Context) {
  static_cast<TOutcome*>(Context)->InListener = Get();
}

TEST_P(TFloatStates, ChangeNothing) {
  TOutcome Outcome;
  const TState Before = Get();
  Set(GetParam().State);
  Outcome.Statuses[0] =
      ul_store_to_display_u8(Area, 92903.04 / 3, UL_BASE_SCALE, UL_NO_ROUND, Outcome.Text, 32, nullptr);
  Outcome.Statuses[1] = ul_display_to_store_u8(Area, "0.1", 3, UL_BASE_SCALE, 0, &Outcome.Stored);
  Outcome.Statuses[2] = ul_evaluate_u8("1/3+1/(2-2)", UL_TO_NUL, &Outcome.Evaluated, nullptr); // may not trap
  Outcome.Statuses[3] = ul_evaluate_u8("10/7", UL_TO_NUL, &Outcome.Evaluated, nullptr);
  ul_attach_refresh_unit(&Look, &Outcome);
  ul_refresh_unit();
  ul_detach_refresh_unit(&Look, &Outcome);
  Outcome.After = Get();
  Set(Before);

  EXPECT_EQ(UL_OK, Outcome.Statuses[0]);
  EXPECT_STREQ("0.333333333333333", Outcome.Text);
  EXPECT_EQ(UL_OK, Outcome.Statuses[1]);
  EXPECT_EQ(9290.304, Outcome.Stored);
  EXPECT_EQ(UL_ERROR_EXPRESSION, Outcome.Statuses[2]);
  EXPECT_EQ(UL_OK, Outcome.Statuses[3]);
  EXPECT_EQ(1.42857142857143, Outcome.Evaluated); // 15 digits, as the engine folds
  EXPECT_EQ(GetParam().State, Outcome.After);
  EXPECT_EQ(GetParam().State, Outcome.InListener) << "a listener runs in its host's state";
}

INSTANTIATE_TEST_SUITE_P(
    Hosts, TFloatStates,
    ::testing::Values(TRow{"Default", {0x037F, 0x1F80}}, TRow{"Precision53", {0x027F, 0x1F80}},
                      TRow{"Precision24", {0x007F, 0x1F80}}, TRow{"TrapsUnmasked", {0x1372, 0x1900}},
                      TRow{"RoundUp", {0x0B7F, 0x5F80}}, TRow{"RoundToZeroAndFlush", {0x0F7F, 0xFFC0}}),
    [](const auto& Info) { return std::string(Info.param.Name); });

} // namespace
} // namespace capi_test

#endif

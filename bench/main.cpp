/// Measures every row.
///   unitlib_bench [Google Benchmark's options]   times, in random order
///   unitlib_bench --counts OPERATIONS            heap allocations of each row, and under valgrind's
///   callgrind
///                                                (started with --instr-atstart=no) one dump of instructions
///                                                for each of ours and of the limits
#include "bench/Allocations.h"
#include "bench/Row.h"
#include "bench/Settings.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <thread>

#if __has_include(<valgrind/callgrind.h>)
#include <valgrind/callgrind.h>
#else
#define RUNNING_ON_VALGRIND 0
#define CALLGRIND_START_INSTRUMENTATION
#define CALLGRIND_STOP_INSTRUMENTATION
#define CALLGRIND_ZERO_STATS
#define CALLGRIND_DUMP_STATS_AT(Name)
#endif

namespace unitlib::bench {

std::vector<TRow>& Rows() {
  static std::vector<TRow> All;
  return All;
}

namespace {

std::string NameOf(const TRow& Row) {
  return Row.Operation + "|" + Row.Competitor;
}

void RunOnThreads(const TRow& Row) {
  std::vector<std::thread> Threads;
  for (int I = 0; I < Row.Threads; ++I) Threads.emplace_back([&Row] { Row.Run(Row.Count); });
  for (std::thread& Thread : Threads) Thread.join();
}

void RegisterTimes() {
  for (const TRow& Row : Rows())
    benchmark::RegisterBenchmark(NameOf(Row).c_str(),
                                 [&Row](benchmark::State& State) {
                                   if (Row.Prepare) Row.Prepare();
                                   Row.Run(std::min<std::size_t>(Row.Count, 1000));
                                   for (auto _ : State) RunOnThreads(Row);
                                   State.counters["operations"] = static_cast<double>(Row.Count);
                                 })
        ->MeasureProcessCPUTime()
        ->UseRealTime()
        ->Unit(benchmark::kMicrosecond);
}

/// One line for each row: name, operations, allocations.
void Count(std::size_t Operations) {
  for (const TRow& Row : Rows()) {
    const std::string Name = NameOf(Row); // callgrind reads it later than it looks
    const bool Whose = Row.Competitor == "ours" || Row.Competitor == "limit";
    if (Row.Threads > 1 || (RUNNING_ON_VALGRIND && !Whose)) continue;
    const std::size_t Times = std::min(Row.Count, Operations);
    if (Row.Prepare) Row.Prepare();
    Row.Run(Times); // patterns compiled, files in memory
    const std::uint64_t Before = AllocationCount();
    Row.Run(Times);
    const std::uint64_t Allocations = AllocationCount() - Before;
    if (RUNNING_ON_VALGRIND) {
      CALLGRIND_START_INSTRUMENTATION;
      CALLGRIND_ZERO_STATS;
      Row.Run(Times);
      CALLGRIND_DUMP_STATS_AT(Name.c_str());
      CALLGRIND_STOP_INSTRUMENTATION;
    }
    std::printf("%s|%zu|%llu\n", Name.c_str(), Times, static_cast<unsigned long long>(Allocations));
  }
}

void AddAllRows() {
  AddShowRows();
  AddReadRows();
  AddExpressionRows();
  AddSettingsRows();
  AddGrowthRows();
  AddFmtRows();
  AddIcuRows();
  AddMuParserRows();
  AddQalculateRows();
  AddUdunitsRows();
}

} // namespace
} // namespace unitlib::bench

int main(int argc, char** argv) {
  using namespace unitlib::bench;
  LoadFactorySettings();
  AddAllRows();
  if (argc == 3 && std::strcmp(argv[1], "--counts") == 0) {
    Count(static_cast<std::size_t>(std::strtoul(argv[2], nullptr, 10)));
    return 0;
  }
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  RegisterTimes();
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}

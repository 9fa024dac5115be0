/// What is measured: one row per operation and competitor, all rows over the same random inputs.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace unitlib::bench {

/// Competitors by name: "ours", "limit" (a function written for this one shape), or a peer library.
struct TRow {
  std::string Operation;
  std::string Competitor;
  std::size_t Count; // inputs at hand; Run takes them from the first on
  std::function<void(std::size_t Count)> Run;
  std::function<void()> Prepare; // settings the row needs; run before it, not measured
  int Threads = 1;
};

std::vector<TRow>& Rows();

/// Keeps the compiler from leaving out what nobody reads.
template <class T> void Keep(const T& Value) {
  asm volatile("" : : "r,m"(Value) : "memory");
}

/// A row that calls Use for each input.
template <class T, class TUse>
void AddRow(std::string Operation, std::string Competitor, const std::vector<T>& Inputs,
            std::function<void()> Prepare, TUse Use, std::size_t AtMost = static_cast<std::size_t>(-1)) {
  const auto Run = [&Inputs, Use](std::size_t Count) {
    for (std::size_t I = 0; I < Count; ++I) Keep(Use(Inputs[I]));
  };
  Rows().push_back({std::move(Operation), std::move(Competitor), std::min(Inputs.size(), AtMost), Run,
                    std::move(Prepare)});
}

void AddShowRows();
void AddReadRows();
void AddExpressionRows();
void AddSettingsRows();
void AddGrowthRows();
// Each leaves its rows out when its library was not found at configure time.
void AddFmtRows();
void AddIcuRows();
void AddMuParserRows();
void AddQalculateRows();
void AddUdunitsRows();

} // namespace unitlib::bench

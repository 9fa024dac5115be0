/// Batches of a schedule converted on several threads, handed back in the order they were given.
#pragma once

#include "apps/unitctl/Schedule.h"

#include <condition_variable>
#include <cstddef>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace unitlib::app {

/// A ring of batches: memory does not grow with the file. One thread gives and takes:
///   while (Pipeline.HasRoom() && Reader.ReadBatch(Pipeline.Free())) Pipeline.Give();
///   while (Pipeline.HasWork()) Use(Pipeline.Take());
class TBatchPipeline {
public:
  /// As many converters as threads, made by Make, which may throw.
  template <class TMake> TBatchPipeline(std::size_t Threads, TMake Make) : FSlots(Threads + 2) {
    FConverters.reserve(Threads);
    for (std::size_t I = 0; I < Threads; ++I) FConverters.push_back(Make());
    try {
      for (TBatchConverter& Converter : FConverters)
        FThreads.emplace_back([this, &Converter] { Work(Converter); });
    } catch (...) {
      Stop();
      throw;
    }
  }
  ~TBatchPipeline() { Stop(); }
  TBatchPipeline(const TBatchPipeline&) = delete;
  TBatchPipeline& operator=(const TBatchPipeline&) = delete;

  bool HasRoom() const noexcept { return FGiven - FTaken < FSlots.size(); }
  bool HasWork() const noexcept { return FGiven != FTaken; }
  /// The batch to fill next; needs room.
  TRowBatch& Free() noexcept { return At(FGiven).Batch; }
  /// Hands the filled batch to the threads.
  void Give();
  /// Waits for the oldest batch; the result is valid until its slot is filled again.
  /// errors      what its conversion threw
  const TBatchResult& Take();

private:
  struct TSlot {
    TRowBatch Batch;
    TBatchResult Result;
    std::exception_ptr Error;
    bool Done = false;
  };

  TSlot& At(std::size_t Number) noexcept { return FSlots[Number % FSlots.size()]; }
  void Work(TBatchConverter& Converter);
  void Stop() noexcept;

  std::vector<TSlot> FSlots;
  std::vector<TBatchConverter> FConverters;
  std::vector<std::thread> FThreads;
  std::mutex FLock; // of what follows, and of Done
  std::condition_variable FWorkCame;
  std::condition_variable FWorkDone;
  std::size_t FGiven = 0; // numbers of batches: given to, begun by, and taken from the threads
  std::size_t FBegun = 0;
  std::size_t FTaken = 0; // the owner's alone
  bool FStopped = false;
};

} // namespace unitlib::app

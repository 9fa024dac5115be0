#include "apps/unitctl/BatchPipeline.h"

namespace unitlib::app {

void TBatchPipeline::Give() {
  {
    const std::lock_guard Lock(FLock);
    At(FGiven).Done = false;
    ++FGiven;
  }
  FWorkCame.notify_one();
}

const TBatchResult& TBatchPipeline::Take() {
  TSlot& Slot = At(FTaken);
  {
    std::unique_lock Lock(FLock);
    FWorkDone.wait(Lock, [&Slot] { return Slot.Done; });
  }
  ++FTaken;
  if (Slot.Error) std::rethrow_exception(Slot.Error);
  return Slot.Result;
}

void TBatchPipeline::Work(TBatchConverter& Converter) {
  std::unique_lock Lock(FLock);
  for (;;) {
    FWorkCame.wait(Lock, [this] { return FStopped || FBegun != FGiven; });
    if (FStopped) return;
    TSlot& Slot = At(FBegun++);
    Lock.unlock();
    try {
      Converter.Convert(Slot.Batch, Slot.Result);
    } catch (...) {
      Slot.Error = std::current_exception();
    }
    Lock.lock();
    Slot.Done = true;
    FWorkDone.notify_one();
  }
}

void TBatchPipeline::Stop() noexcept {
  {
    const std::lock_guard Lock(FLock);
    FStopped = true;
  }
  FWorkCame.notify_all();
  for (std::thread& Thread : FThreads) Thread.join();
  FThreads.clear();
}

} // namespace unitlib::app

#include "unitlib/capi/LastError.h"

#include "unitlib/capi/ThreadKey.h"

#include <algorithm>
#include <memory>
#include <mutex>
#include <vector>

namespace unitlib::capi {
namespace {

void Forget(void* Record) noexcept;

/// The records of all threads: each is freed with its thread, the rest with the library.
class TErrorRecords {
public:
  TErrorRecord* Find() const noexcept { return static_cast<TErrorRecord*>(FKey.Get()); }

  TErrorRecord& FindOrMake() {
    if (TErrorRecord* const Found = Find()) return *Found;
    auto Made = std::make_unique<TErrorRecord>();
    const std::lock_guard Lock(FMutex);
    FRecords.reserve(FRecords.size() + 1);
    if (!FKey.Set(Made.get())) throw std::bad_alloc();
    return *FRecords.emplace_back(std::move(Made));
  }

  void Forget(const void* Record) noexcept {
    const std::lock_guard Lock(FMutex);
    std::erase_if(FRecords, [Record](const auto& Kept) { return Kept.get() == Record; });
  }

private:
  std::mutex FMutex;
  std::vector<std::unique_ptr<TErrorRecord>> FRecords;
  TThreadKey FKey{&capi::Forget}; // the last member, so the first to go: no thread calls Forget afterwards
};

TErrorRecords Records;

void Forget(void* Record) noexcept {
  Records.Forget(Record);
}

} // namespace

const TErrorRecord* FindLastError() noexcept {
  return Records.Find();
}

void KeepLastError(TErrorRecord&& Record) noexcept {
  try {
    Records.FindOrMake() = std::move(Record);
  } catch (...) { // no memory for a record: the status that the call returns has to do
  }
}

} // namespace unitlib::capi

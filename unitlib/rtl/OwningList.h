/// A list that owns its items and raises the list's index error for a position outside it.
#pragma once

#include "unitlib/rtl/Errors.h"

#include <memory>
#include <utility>
#include <vector>

namespace unitlib {

/// Raises EListError "List index out of bounds (Index)".
[[noreturn]] void RaiseListIndex(int Index);
/// Raises EListError: a list holds no null.
[[noreturn]] void RaiseNullItem();

/// Items are freed when removed or when the list is freed. Positions are 0-based and signed, as the model
/// keeps them. A T that has a NoteListChange() is told when items come and go.
template <class T> class TOwningList {
public:
  TOwningList() = default;
  TOwningList(TOwningList&& Other) noexcept : FItems(std::move(Other.FItems)) { NoteChange(); }
  TOwningList& operator=(TOwningList&& Other) noexcept {
    FItems = std::move(Other.FItems);
    NoteChange();
    return *this;
  }
  ~TOwningList() = default;

  int Count() const noexcept { return static_cast<int>(FItems.size()); }

  /// The item at Index; EListError when Index is outside 0 .. Count() - 1.
  T& Item(int Index) const {
    if (!Has(Index)) RaiseListIndex(Index);
    return *FItems[static_cast<size_t>(Index)];
  }
  T& operator[](int Index) const { return Item(Index); }

  /// The item at Index, or null when Index is outside the list.
  T* Find(int Index) const noexcept {
    return Has(Index) ? FItems[static_cast<size_t>(Index)].get() : nullptr;
  }

  /// Appends an item (a fresh one by default) and returns a reference to it; EListError when it is null.
  T& Add(std::unique_ptr<T> Item = std::make_unique<T>()) {
    if (!Item) RaiseNullItem();
    NoteChange();
    return *FItems.emplace_back(std::move(Item));
  }

  /// Room for Count items, taken once.
  void Reserve(int Count) { FItems.reserve(static_cast<size_t>(Count)); }

  /// Appends all items, and room for them is taken once; Items is empty afterwards. EListError when one is
  /// null.
  void AddAll(std::vector<std::unique_ptr<T>>& Items) {
    FItems.reserve(FItems.size() + Items.size());
    for (auto& Item : Items) Add(std::move(Item));
    Items.clear();
  }

  /// Frees the item at Index; EListError when Index is outside the list.
  void Delete(int Index) {
    if (!Has(Index)) RaiseListIndex(Index);
    NoteChange();
    FItems.erase(FItems.begin() + Index);
  }
  void Clear() noexcept {
    NoteChange();
    FItems.clear();
  }

  auto begin() const noexcept { return FItems.begin(); }
  auto end() const noexcept { return FItems.end(); }

private:
  static void NoteChange() noexcept {
    if constexpr (requires { T::NoteListChange(); }) T::NoteListChange();
  }
  bool Has(int Index) const noexcept { return Index >= 0 && static_cast<size_t>(Index) < FItems.size(); }

  std::vector<std::unique_ptr<T>> FItems;
};

} // namespace unitlib

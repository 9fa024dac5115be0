/// Memory of nodes: those that are read from one text lie together in a few blocks. From outside they are
/// nodes like any other, each freed by itself, in any order and on any thread; a block goes with its last
/// node.
#pragma once

#include "unitlib/expr/ZELUnitArthProcessor.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <string_view>

namespace unitlib {

/// Starts a block: counts its nodes that live, and its places that may become one.
struct alignas(__STDCPP_DEFAULT_NEW_ALIGNMENT__) TNodeBlock {
  std::atomic<std::uint32_t> InUse;

  explicit TNodeBlock(std::uint32_t Places) noexcept : InUse(Places) {}
  void Release(std::uint32_t Count) noexcept;
};

/// A place in a block: room for the block's address, which ends where the node starts, and the node.
inline constexpr std::size_t RoomBeforeNode = std::max(alignof(TNode), sizeof(void*));
inline constexpr std::size_t SizeOfPlace = RoomBeforeNode + sizeof(TNode);

/// What stands before every node: its block, null when it is alone.
inline TNodeBlock*& BlockOf(void* Node) noexcept {
  return static_cast<TNodeBlock**>(Node)[-1];
}

/// Makes the nodes of one text. "(1+2)*3-4/5*(6-7)" is read, merged and freed with 2 allocations for its
/// nodes instead of 13.
class TNodeMaker {
public:
  /// Most       how many nodes there will be at most: decides the size of the blocks
  explicit TNodeMaker(std::size_t Most) noexcept : FMost(Most) {}
  TNodeMaker(const TNodeMaker&) = delete;
  TNodeMaker& operator=(const TNodeMaker&) = delete;
  ~TNodeMaker() {
    if (FBlock) FBlock->Release(static_cast<std::uint32_t>(FUnused));
  }

  std::unique_ptr<TNode> Make(TNodeType Type, std::u16string_view Value, std::int32_t Pos) {
    return Keep(::new (NextPlace()) TNode(Type, Value, Pos));
  }
  /// A plain number as an operand.
  std::unique_ptr<TNode> MakeNumber(std::u16string_view Text, double Value, std::int32_t Pos) {
    return Keep(::new (NextPlace()) TNode(Text, Value, Pos));
  }

private:
  void TakeBlock();
  void* NextPlace() {
    if (!FBlock) TakeBlock();
    auto* const Places = reinterpret_cast<std::byte*>(FBlock + 1);
    return Places + (FUnused - 1) * SizeOfPlace + RoomBeforeNode; // filled from the end
  }
  std::unique_ptr<TNode> Keep(TNode* Node) noexcept {
    BlockOf(Node) = FBlock;
    if (--FUnused == 0) FBlock = nullptr; // its last node may be freed before the next one is made
    return std::unique_ptr<TNode>(Node);
  }

  std::size_t FMost;            // nodes still to come
  TNodeBlock* FBlock = nullptr; // the one that is being filled; null: the next node needs a new one
  std::size_t FUnused = 0;      // places in it
};

/// Frees trees.
class TNodeFreer {
public:
  TNodeFreer() = default;
  TNodeFreer(const TNodeFreer&) = delete;
  TNodeFreer& operator=(const TNodeFreer&) = delete;
  ~TNodeFreer() { Flush(); }
  /// Frees a tree without recursion and without allocation. Top may be null.
  void FreeTree(TNode* Top) noexcept;

private:
  void Free(TNode* Node) noexcept;
  void Flush() noexcept {
    if (FBlock) FBlock->Release(FCount);
    FCount = 0;
  }

  TNodeBlock* FBlock = nullptr; // of the nodes freed last
  std::uint32_t FCount = 0;     // how many of them it has not been told of
};

} // namespace unitlib

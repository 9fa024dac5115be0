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
    if (FPlace != FEnd) ReleaseRest();
  }

  std::unique_ptr<TNode> Make(TNodeType Type, std::u16string_view Value, std::int32_t Pos) {
    return std::unique_ptr<TNode>(Keep(::new (Place()) TNode(Type, Value, Pos)));
  }
  /// A plain number, one of a single digit, a name and an operator: all the caller's.
  TNode* MakeNumber(std::u16string_view Text, double Value, std::int32_t Pos) {
    return Keep(::new (Place()) TNode(Text, Value, Pos));
  }
  TNode* MakeDigit(char16_t Digit, std::int32_t Pos) {
    return Keep(::new (Place()) TNode(Digit, Digit - u'0', Pos));
  }
  TNode* MakeName(std::u16string_view Text, std::int32_t Pos) {
    TNode* const Node = MakeNumber(Text, 0.0, Pos);
    Node->FIsVar = true;
    return Node;
  }
  TNode* MakeOperator(char16_t Op, std::int32_t Pos) { return Keep(::new (Place()) TNode(Op, Pos)); }

private:
  void TakeBlock();
  void ReleaseRest() noexcept {
    FBlock->Release(static_cast<std::uint32_t>(static_cast<std::size_t>(FEnd - FPlace) / SizeOfPlace));
  }
  /// Where the next node goes.
  std::byte* Place() {
    if (FPlace == FEnd) TakeBlock();
    return FPlace + RoomBeforeNode;
  }
  TNode* Keep(TNode* Node) noexcept {
    BlockOf(Node) = FBlock;
    FPlace += SizeOfPlace;
    return Node;
  }

  std::size_t FMost;            // nodes still to come
  TNodeBlock* FBlock = nullptr; // the one that is being filled; gone, perhaps, once it is full
  std::byte* FPlace = nullptr;  // its first unused place
  std::byte* FEnd = nullptr;    // its end
};

} // namespace unitlib

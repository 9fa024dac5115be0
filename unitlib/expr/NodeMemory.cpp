#include "unitlib/expr/NodeMemory.h"

#include <utility>

#if defined(__SANITIZE_ADDRESS__)
#define UNITLIB_NODES_ALONE 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define UNITLIB_NODES_ALONE 1
#endif
#endif

namespace unitlib {
namespace {

#ifdef UNITLIB_NODES_ALONE
constexpr std::size_t MostInBlock = 1; // so that the sanitizer sees every node that is used after its end
#else
constexpr std::size_t MostInBlock = 8; // of 1 KB, the largest that malloc keeps at hand
#endif

/// Where the memory of a node that is alone starts: as far before it as keeps it aligned.
constexpr std::size_t AloneBefore = __STDCPP_DEFAULT_NEW_ALIGNMENT__;
static_assert(AloneBefore >= sizeof(void*));

void* StartOf(void* Node) noexcept {
  return static_cast<std::byte*>(Node) - AloneBefore;
}

/// Frees trees.
class TNodeFreer {
public:
  TNodeFreer() = default;
  TNodeFreer(const TNodeFreer&) = delete;
  TNodeFreer& operator=(const TNodeFreer&) = delete;
  ~TNodeFreer() {
    if (FBlock) FBlock->Release(FCount);
  }
  /// Frees a tree without recursion and without allocation. Top may be null.
  inline void FreeTree(TNode* Top) noexcept;

private:
  inline void Free(TNode* Node) noexcept;

  TNodeBlock* FBlock = nullptr; // of the nodes freed last
  std::uint32_t FCount = 0;     // how many of them it has not been told of
};

bool IsLeaf(const TNode& Node) noexcept {
  return !Node.FLeft && !Node.FRight;
}

} // namespace

void TNodeBlock::Release(std::uint32_t Count) noexcept {
  // When the rest is all that is left nobody else can be at it: no locked instruction.
  if (InUse.load(std::memory_order_acquire) == Count ||
      InUse.fetch_sub(Count, std::memory_order_acq_rel) == Count)
    ::operator delete(this);
}

void TNodeMaker::TakeBlock() {
  const std::size_t Places = std::clamp<std::size_t>(FMost, 1, MostInBlock);
  void* const Memory = ::operator new(sizeof(TNodeBlock) + Places * SizeOfPlace);
  FBlock = ::new (Memory) TNodeBlock(static_cast<std::uint32_t>(Places));
  FPlace = static_cast<std::byte*>(Memory) + sizeof(TNodeBlock);
  FEnd = FPlace + Places * SizeOfPlace;
  FMost -= std::min(FMost, Places);
}

/// Frees a node whose children are free, or taken elsewhere: its texts are all there is to be destroyed.
inline void TNodeFreer::Free(TNode* Node) noexcept {
  TNodeBlock* const Block = BlockOf(Node);
  std::destroy_at(&Node->FStoreValue);
  std::destroy_at(&Node->FValue);
  if (!Block) return ::operator delete(StartOf(Node));
  if (Block != FBlock) {
    if (FBlock) FBlock->Release(FCount);
    FBlock = Block;
    FCount = 0;
  }
  ++FCount;
}

/// A left child with children is turned upwards until the top has none, then the top goes.
inline void TNodeFreer::FreeTree(TNode* Top) noexcept {
  while (Top) {
    TNode* const Left = Top->FLeft.get();
    if (Left && !IsLeaf(*Left)) {
      static_cast<void>(Top->FLeft.release());
      Top->FLeft.reset(Left->FRight.release());
      Left->FRight.reset(Top);
      Top = Left;
      continue;
    }
    if (Left) Free(Left);
    TNode* Right = Top->FRight.get();
    Free(Top);
    if (Right && IsLeaf(*Right)) Free(std::exchange(Right, nullptr));
    Top = Right;
  }
}

TNode::~TNode() {
  if (FLeft || FRight) BeforeDestruction();
}

void TNode::BeforeDestruction() noexcept {
  TNodeFreer Freer;
  for (TNode* const Child : {FLeft.release(), FRight.release()}) Freer.FreeTree(Child);
}

void* TNode::operator new(std::size_t Size) {
  void* const Node = static_cast<std::byte*>(::operator new(AloneBefore + Size)) + AloneBefore;
  BlockOf(Node) = nullptr;
  return Node;
}

void* TNode::operator new(std::size_t Size, const std::nothrow_t&) noexcept {
  try {
    return operator new(Size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

void TNode::operator delete(void* Node) noexcept {
  if (!Node) return;
  if (TNodeBlock* const Block = BlockOf(Node))
    Block->Release(1);
  else
    ::operator delete(StartOf(Node));
}

} // namespace unitlib

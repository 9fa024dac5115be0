/// From a text to a tree: tokens, brackets and precedence. Behind TParser::Parse and GetNode.
#pragma once

#include "unitlib/expr/ExpressionTools.h"
#include "unitlib/expr/NodeMemory.h"
#include "unitlib/rtl/SmallStack.h"

#include <memory>
#include <string>
#include <utility>

namespace unitlib {

/// Position of the ")" that closes a bracket whose content starts at Parser.FPoint; 0, with the error set,
/// when the text ends before it.
std::int32_t FindClosingBracket(TParser& Parser);

constexpr bool IsSignChar(char16_t C) noexcept {
  return C == u'+' || C == u'-';
}
constexpr bool IsOperatorChar(char16_t C) noexcept {
  constexpr std::uint64_t Operators = 1ULL << u'+' | 1ULL << u'-' | 1ULL << u'*' | 1ULL << u'/';
  return C < 64 && (Operators >> C & 1) != 0;
}

/// A run of operands and operators on its way to become a tree: the whole text, or the content of a bracket.
class TSequence {
public:
  TSequence() = default;
  TSequence(TSequence&& Other) noexcept
      : FRoot(std::exchange(Other.FRoot, nullptr)), FOp(std::exchange(Other.FOp, nullptr)),
        FOperatorAsOperand(Other.FOperatorAsOperand) {}
  TSequence& operator=(TSequence&& Other) noexcept;
  ~TSequence() {
    if (FRoot || FOp) Free();
  }

  /// Appends a node. return: the message when it cannot stand there, else empty
  std::u16string_view Take(std::unique_ptr<TNode> Node);
  /// The tree; null when the run ends where an operand is due.
  std::unique_ptr<TNode> Finish();

  bool NeedsOperand() const noexcept { return !FRoot || FOp; }
  /// True when an operator may follow, or the end.
  bool HasOperand() const noexcept { return FRoot && !FOp && !FOperatorAsOperand; }
  /// What Take does with an operand where one is needed, and with an operator behind an operand.
  inline void TakeOperand(std::unique_ptr<TNode> Node) noexcept;
  void TakeOperator(std::unique_ptr<TNode> Node) noexcept { FOp = Node.release(); }

private:
  void Free() noexcept;

  // Owned. Plain pointers, because every step of smart ones asks for an old node to be freed: a tenth of the
  // instructions that reading takes.
  TNode* FRoot = nullptr;
  TNode* FOp = nullptr;            // operator that waits for its right operand
  bool FOperatorAsOperand = false; // an operator stands where an operand should; what follows names the error
};

/// Reads from Parser.FPoint on. Brackets are read with a stack of their own, not by recursion.
class TTreeReader {
public:
  explicit TTreeReader(TParser& Parser);

  /// See TParser::Parse and TParser::GetNode.
  std::unique_ptr<TNode> ReadText();
  std::unique_ptr<TNode> ReadNode();

private:
  enum class TTokenKind { End, Operand, Operator, Bracket, Function };
  struct TToken {
    TTokenKind Kind;
    std::int32_t Point;       // where it starts
    std::u16string_view Text; // operand, operator, or sign of a bracket; in the parser's text or in FText
  };
  struct TBracket {
    TSequence Content;
    std::int32_t Point = 0; // where it starts, with its sign
    std::int32_t Start = 0; // of its content, leading blanks skipped
    bool IsNegative = false;
    bool IsOperand = false; // stands where an operand is due
  };
  /// Signs before an operand: those that are left of them make one "-" or none.
  struct TSigns {
    bool Negative = false;
    std::int32_t Last = 0; // position of the last "-"
  };

  TToken ReadToken();
  TSigns ReadSigns();
  std::u16string_view TokenText(TSigns Signs, std::int32_t Start, std::int32_t End);
  TToken EndOrOperand(std::int32_t Point, std::u16string_view Text) const;
  bool AtEnd() const noexcept;
  bool StandsForSign(std::int32_t Point) const noexcept;
  bool IsFractionBar(std::u16string_view Token) const;
  char16_t CharAt(std::int32_t Point) const noexcept { return FParser.FString.data()[Point - 1]; }

  /// Current unit of lengths; the settings do not change while a text is read.
  TUnit& LengthUnit() const {
    if (!FUnit) FUnit = &CurrentLengthUnit();
    return *FUnit;
  }

  bool ReadUsual();
  inline std::unique_ptr<TNode> UsualNumber();
  TSequence& Innermost() noexcept { return FOpen.Empty() ? FSequence : FOpen.Top().Content; }

  std::unique_ptr<TNode> NextNode();
  std::unique_ptr<TNode> MakeNode(const TToken& Token);
  bool OpenBracket(const TToken& Token);
  std::unique_ptr<TNode> CloseBracket();
  bool TakeInBracket(std::unique_ptr<TNode> Node);
  void Fail(std::u16string_view Message, std::int32_t Point);

  TParser& FParser;
  mutable TUnit* FUnit = nullptr; // null: not asked for yet, or none
  TNodeMaker FMaker;
  TSequence FSequence;            // of the text itself
  std::u16string FText;           // of a token whose characters do not all count
  const std::int32_t FEnd;        // end position of the text
  TSmallStack<TBracket, 4> FOpen; // innermost on top
  std::int32_t FClosing = 0;      // ")" of the outermost open bracket
  std::int32_t FNodePoint = 1;    // start of the node read last
  std::int32_t FFailedPoint = 0;  // where the reading of a bracket without an expression stopped; 0: none
  bool FReadsUsual = false;       // the usual tokens are read by the short way
};

} // namespace unitlib

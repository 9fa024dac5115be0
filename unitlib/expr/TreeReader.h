/// From a text to a tree: tokens, brackets and precedence. Behind TParser::Parse and GetNode.
#pragma once

#include "unitlib/expr/ExpressionTools.h"
#include "unitlib/expr/NodeMemory.h"
#include "unitlib/model/ZELUnitConst.h"
#include "unitlib/rtl/SmallStack.h"
#include "unitlib/rtl/Text.h"

#include <memory>
#include <string>
#include <utility>

namespace unitlib {

/// Position of the ")" that closes a bracket whose content starts at Start; 0, with the error set and FPoint at
/// the end, when the text ends before it.
std::int32_t FindClosingBracket(TParser& Parser, std::int32_t Start);

constexpr bool IsSignChar(char16_t C) noexcept {
  return C == u'+' || C == u'-';
}
constexpr bool IsOperatorChar(char16_t C) noexcept {
  constexpr std::uint64_t Operators = 1ULL << u'+' | 1ULL << u'-' | 1ULL << u'*' | 1ULL << u'/';
  return C < 64 && (Operators >> C & 1) != 0;
}

constexpr bool IsSpecialChar(char16_t C) noexcept {
  return IsOperatorChar(C) || C == u'(' || C == u')';
}
constexpr bool IsMark(char16_t C) noexcept {
  return C == FootMark || C == InchMark;
}
/// A character of a length before the bar of its fraction.
constexpr bool IsImperialChar(char16_t C) noexcept {
  return C == u' ' || C == FootMark || IsDigit(C);
}

/// A run of operands and operators on its way to become a tree: the whole text, or the content of a bracket.
/// Owns its nodes by plain pointers and has no destructor, so that a stack of them costs nothing to make; who
/// has one calls Free at its end.
class TSequence {
public:
  bool IsEmpty() const noexcept { return !FRoot && !FOp; }
  void Free() noexcept;

  /// Appends a node. return: the message when it cannot stand there, else empty
  std::u16string_view Take(std::unique_ptr<TNode> Node);
  /// The tree; null when the run ends where an operand is due.
  std::unique_ptr<TNode> Finish();

  bool NeedsOperand() const noexcept { return !FRoot || FOp; }
  /// True when an operator may follow, or the end.
  bool HasOperand() const noexcept { return FRoot && !FOp && !FOperatorAsOperand; }
  /// What Take does with an operand where one is needed, and with an operator behind an operand.
  inline void TakeOperand(TNode* Node) noexcept;
  void TakeOperator(TNode* Node, char16_t Op) noexcept {
    FOp = Node;
    FOpIsFactor = Op == u'*' || Op == u'/';
  }
  /// The tree of a run that HasOperand.
  TNode* Release() noexcept { return std::exchange(FRoot, nullptr); }

private:
  TNode* FRoot;
  TNode* FOp;              // operator that waits for its right operand
  bool FOpIsFactor;        // it is "*" or "/"
  bool FRootIsTerm;        // the root is "+" or "-" and no bracketed block
  bool FOperatorAsOperand; // an operator stands where an operand should; what follows names the error
};

/// Reads from Parser.FPoint on. Brackets are read with a stack of their own, not by recursion.
class TTreeReader {
public:
  explicit TTreeReader(TParser& Parser);
  TTreeReader(const TTreeReader&) = delete;
  TTreeReader& operator=(const TTreeReader&) = delete;
  ~TTreeReader();

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
    std::int32_t Point; // where it starts, with its sign
    std::int32_t Start; // of its content, leading blanks skipped
    bool IsNegative;
    bool IsOperand; // stands where an operand is due
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
  /// Position of a character of the text, and its place in the text as given.
  std::int32_t PointOf(const char16_t* Char) const noexcept {
    return static_cast<std::int32_t>(Char - FParser.FString.data()) + 1;
  }
  std::int32_t PlaceOf(const char16_t* Char) const noexcept { return FParser.PlaceOf(PointOf(Char)); }

  /// Current unit of lengths; the settings do not change while a text is read.
  TUnit& LengthUnit() const {
    if (!FUnit) FUnit = &CurrentLengthUnit();
    return *FUnit;
  }

  bool ReadUsual();
  enum class TUsual { Taken, Other, Refused };
  inline bool EndsOperand(const char16_t* Next) const noexcept;
  inline bool EndsNumber(const char16_t* Next) const noexcept;
  TNode* UsualNumber(const char16_t*& Next);
  TNode* UsualName(const char16_t*& Next);
  const char16_t* EndOfLength(const char16_t* Next) const noexcept;
  TUsual ReadUsualOperand(TSequence& Into, const char16_t*& Next);
  const char16_t* OpenUsual(const char16_t* Next);
  inline TSequence& CloseUsual();
  bool HasClosing();
  bool FindClosing();
  TSequence& Innermost() noexcept { return FOpen.Empty() ? FSequence : FOpen.Top().Content; }

  std::unique_ptr<TNode> NextNode();
  std::unique_ptr<TNode> MakeNode(const TToken& Token);
  std::unique_ptr<TNode> Classified(std::unique_ptr<TNode> Operand);
  bool OpenBracket(const TToken& Token);
  bool RefuseDepth(std::int32_t Point);
  inline std::int32_t PushBracket(std::int32_t Point, std::int32_t Start, bool IsNegative, bool IsOperand);
  std::unique_ptr<TNode> CloseBracket();
  bool TakeInBracket(std::unique_ptr<TNode> Node);
  void Fail(std::u16string_view Message, std::int32_t Point);
  void DropBrackets() noexcept;

  TParser& FParser;
  mutable TUnit* FUnit = nullptr; // null: not asked for yet, or none
  TNodeMaker FMaker;
  TSequence FSequence{};          // of the text itself
  std::u16string FText;           // of a token whose characters do not all count
  const std::int32_t FEnd;        // end position of the text
  TSmallStack<TBracket, 4> FOpen; // innermost on top
  std::int32_t FOutermost = 0;    // where the content of the outermost open bracket starts
  std::int32_t FClosing = 0;      // its ")"; 0: not looked for yet
  std::int32_t FNodePoint = 1;    // start of the node read last
  std::int32_t FFailedPoint = 0;  // where the reading of a bracket without an expression stopped; 0: none
  bool FReadsUsual = false;       // the usual tokens are read by the short way
  bool FHasFractions = false;     // and a "/" may be the bar of an inch fraction
};

} // namespace unitlib

/// From a text to a tree: tokens, brackets and precedence. Behind TParser::Parse and GetNode.
#pragma once

#include "unitlib/expr/ExpressionTools.h"

#include <memory>
#include <string>
#include <vector>

namespace unitlib {

/// Position of the ")" that closes a bracket whose content starts at Parser.FPoint; 0, with the error set,
/// when the text ends before it.
std::int32_t FindClosingBracket(TParser& Parser);

/// A run of operands and operators on its way to become a tree: the whole text, or the content of a bracket.
class TSequence {
public:
  /// Appends a node. return: the message when it cannot stand there, else empty
  std::u16string_view Take(std::unique_ptr<TNode> Node);
  /// The tree; null when the run ends where an operand is due.
  std::unique_ptr<TNode> Finish();

private:
  void Attach(std::unique_ptr<TNode> Right);

  std::unique_ptr<TNode> FRoot;
  std::unique_ptr<TNode> FOp;      // operator that waits for its right operand
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
    std::int32_t Point; // where it starts, with its sign
    std::int32_t Start; // of its content, leading blanks skipped
    bool IsNegative;
  };

  TToken ReadToken();
  bool ReadPlainNumber(TToken& Token);
  TToken EndOrOperand(std::int32_t Point) const;
  bool AtEnd() const noexcept;
  bool StandsForSign(std::int32_t Point) const noexcept;
  bool IsFractionBar(std::u16string_view Token) const;
  char16_t CharAt(std::int32_t Point) const noexcept {
    return FParser.FString[static_cast<size_t>(Point) - 1];
  }

  /// Current unit of lengths; the settings do not change while a text is read.
  const TUnit& LengthUnit() const {
    if (!FUnit) FUnit = &CurrentLengthUnit();
    return *FUnit;
  }

  std::unique_ptr<TNode> NextNode();
  std::unique_ptr<TNode> MakeNode(const TToken& Token);
  bool OpenBracket(const TToken& Token);
  std::unique_ptr<TNode> CloseBracket();
  bool TakeInBracket(std::unique_ptr<TNode> Node);
  void Fail(std::u16string_view Message, std::int32_t Point);

  TParser& FParser;
  mutable const TUnit* FUnit = nullptr; // null: not asked for yet
  std::u16string FText;                 // of a token whose characters do not all count
  const std::int32_t FEnd;              // end position of the text
  std::vector<TBracket> FOpen;          // innermost last
  std::int32_t FClosing = 0;            // ")" of the outermost open bracket
  std::int32_t FNodePoint = 1;          // start of the node read last
  std::int32_t FFailedPoint = 0; // where the reading of a bracket without an expression stopped; 0: none
};

} // namespace unitlib

/// Typed arithmetic and elevations: a text becomes a tree, the tree a value or a text again.
///   TParser Parser(u"(1+2)*3");
///   auto Root = Parser.Parse();
///   if (!Parser.FHasError) Parser.Merge(Root);
///   if (!Parser.FHasError) double Value = Parser.GetDoubleValue(*Root);        // 9
/// Nothing here throws (std::bad_alloc aside): what fails sets FHasError, FErrMsg and FErrPos of the parser.
/// No call recurses: texts and trees of any size need little stack. Brackets nest at most 1,000 deep.
/// Lengths and the reading of imperial operands follow the current unit of the measure with classify code 3.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <string>
#include <string_view>

namespace unitlib {

enum TNodeType : std::uint8_t {
  ntUnknown,
  ntNum, // an operand
  ntOp   // a binary operator
};

/// One operand or operator of an expression, with the trees of its operands.
class TNode {
public:
  TNode() = default;
  ~TNode();
  TNode(const TNode&) = delete;
  TNode& operator=(const TNode&) = delete;

  std::unique_ptr<TNode> FLeft;
  std::unique_ptr<TNode> FRight;
  TNodeType FNodeType = ntUnknown;
  bool FIsBlock = false;      // root of a bracketed sub-expression
  bool FIsNegative = false;   // that block was written with "-" before its bracket
  std::u16string FValue;      // the token, trimmed: operand text or operator character
  std::u16string FStoreValue; // text of the operand's value for output
  double FDoubleValue = 0.0;  // value of an operand: plain numbers as typed, imperial lengths in metres
  bool FIsVar = false;        // operand is a variable; after Merge also: operator with a variable below it
  bool FIsElev = false;       // operand is an elevation length, see TParser::Mark
  bool FIsImperial = false;   // operand was written as an imperial length, or folded from such
  std::int32_t FPos = -1;     // where the token starts in the text given to the parser, from 0; -1: unknown

  /// Every field as in a new node, FNodeType aside.
  void AfterConstruction();
  /// Frees both children and all that is below them. The destructor calls it.
  void BeforeDestruction() noexcept;

  /// Deep copy without FIsNegative, FIsElev, and FIsBlock of an operand. Null for a node of type ntUnknown.
  std::unique_ptr<TNode> Clone() const;
  /// True when this operator binds tighter than AOther: "*" or "/" against "+" or "-".
  /// ARespectBlock    nothing binds tighter than a bracketed AOther
  bool IsHigerThanOther(const TNode& AOther, bool ARespectBlock) const noexcept; // sic
  const std::u16string& ToString() const noexcept { return FValue; }

  void SetValue(std::u16string_view AValue);

  // Nodes that are read from one text share blocks of memory (NodeMemory.h); nothing else is special about
  // them.
  static void* operator new(std::size_t Size);
  static void* operator new(std::size_t Size, const std::nothrow_t&) noexcept;
  static void* operator new(std::size_t, void* Place) noexcept { return Place; }
  static void operator delete(void* Node) noexcept;
  static void operator delete(void* Node, const std::nothrow_t&) noexcept { operator delete(Node); }
  static void operator delete(void*, void*) noexcept {}

private:
  friend class TNodeMaker;
  TNode(TNodeType Type, std::u16string_view Value, std::int32_t Pos)
      : FNodeType(Type), FValue(Value), FPos(Pos) {}
  TNode(std::u16string_view Number, double Value, std::int32_t Pos)
      : FNodeType(ntNum), FValue(Number), FStoreValue(Number), FDoubleValue(Value), FPos(Pos) {}
  // A single character is written without a copy of unknown length.
  TNode(char16_t Digit, double Value, std::int32_t Pos)
      : FNodeType(ntNum), FValue(1, Digit), FStoreValue(1, Digit), FDoubleValue(Value), FPos(Pos) {}
  TNode(char16_t Op, std::int32_t Pos) : FNodeType(ntOp), FValue(1, Op), FPos(Pos) {}
};

/// Reads one text and works on its tree. Made for one text, which it parses once; the tree belongs to the
/// caller. FHasError never goes back to false, a later error overwrites FErrMsg and FErrPos.
class TParser {
public:
  explicit TParser(std::u16string_view AText);

  std::u16string FString; // the text, trimmed
  std::int32_t FTotal;    // end position: length of FString plus 1
  std::int32_t FPoint;    // position of the next character to read, from 1
  bool FHasError;
  std::u16string FErrMsg; // message of the last error; may stay empty (an elevation that is refused)
  std::int32_t FErrPos;   // where reading stopped, or the operand or operator at fault starts, counted from 0
                          // in the text given to the constructor (so a caret fits under it); -1: no place

  /// The tree of the whole text. Null on error, and without an error for a text of blanks only.
  std::unique_ptr<TNode> Parse();
  /// The next token: an operand, an operator, or the tree of a bracketed sub-expression. Null at the end of
  /// the text, on error, and without an error for brackets that hold no expression.
  std::unique_ptr<TNode> GetNode();
  /// With FPoint just behind a "(": the text up to its ")"; FPoint moves behind that.
  std::u16string SubStringInBracket();
  /// Classifies an operand by its FValue: plain number, imperial length or variable.
  void ProcessNode(TNode& ANode);

  /// Value of a tree. A variable counts with its FDoubleValue, 0 unless the caller sets it. The sign of a
  /// negative block is not looked at: Merge first.
  double GetDoubleValue(const TNode& ANode);

  /// Simplifies a tree: what holds no variable becomes one number; around a variable the numbers are brought
  /// together, as far as arithmetic allows, into "variable side, operator, one number":
  ///   1000-(A+500) becomes 500-A, 2*(A+5)+1 becomes A*2+11, -(A) becomes A*(-1)
  /// No FIsNegative is left in the tree, and no variable is lost or doubled.
  void Merge(std::unique_ptr<TNode>& ANode);
  /// Marks the elevation lengths of a merged tree: a single operand, or the operands of a "+" or "-" root.
  /// Two or more variables set the error flag, without a message.
  void Mark(TNode& ANode);

  /// The tree as text: for storage (marked lengths in metres), for the edit box and for display (marked
  /// lengths in the current unit). Empty when an error is set.
  std::u16string GetStoreValue(const TNode& ANode);
  std::u16string GetEditValue(const TNode& ANode);
  std::u16string GetDisplayValue(const TNode& ANode);

  /// Sets the error flag with a message and a place in the text as given, -1 for none.
  void SetError(std::u16string_view AMessage, std::int32_t APos);
  /// Place in the text as given of the character at a position of FString that counts from 1.
  std::int32_t PlaceOf(std::int32_t APoint) const noexcept { return FSkipped + APoint - 1; }

private:
  std::int32_t FSkipped; // blanks that were trimmed before FString
};

/// An elevation as typed into its three forms: one length, or one variable with an offset ("L1+5'6\"").
/// Store: lengths in metres. Edit and display: the given store form in the current unit.
///   GetElevStoreValue(u"5'6\"") == u"1.6764"        GetElevEditValue(u"1.6764") == u"5' 6\""
/// return      AText unchanged when it is no acceptable elevation
std::u16string GetElevStoreValue(std::u16string_view AText);
std::u16string GetElevEditValue(std::u16string_view AText);
std::u16string GetElevDisplayValue(std::u16string_view AText);
/// True when the text is an acceptable elevation. An empty one is none.
bool CheckElevEditValue(std::u16string_view AText);

} // namespace unitlib

/// Typed arithmetic, literally: one character after the other into a tree, the tree into a value and texts.
#pragma once

#include "fuzz/slow/Units.h"

#include <map>
#include <memory>
#include <set>
#include <vector>

namespace unitlib::fuzz::slow {

struct TTree {
  enum TKind { Missing, Operand, Operator } Kind = Missing;
  std::unique_ptr<TTree> Left, Right;
  std::u16string Value, Store;
  double Number = 0;
  bool Block = false, Negative = false, Var = false, Elev = false, Imperial = false;

  bool IsMissing() const;
  bool IsBareOperator() const { return Kind == Operator && !Block; }
  std::unique_ptr<TTree> Copy() const;
};
using TTreePtr = std::unique_ptr<TTree>;
using TMessages = std::set<std::u16string>;

// Messages, letter for letter. One that starts with "*" stands for any operand before the rest.
inline constexpr std::u16string_view MissingOperand = u"can not be nil afer operator";
inline constexpr std::u16string_view AddRefused = u"imperial number can not add with const!";
inline constexpr std::u16string_view SubRefused = u"imperial number can not sub with const!";
inline constexpr std::u16string_view MulRefused = u"imperial can not mul by imperial!";
inline constexpr std::u16string_view PlainByImperial = u"not imperial can not div by imperial!";
inline constexpr std::u16string_view ImperialByImperial = u"imperial can not div by imperial!";
inline constexpr std::u16string_view VarRefused = u"var can not div or mul with imperial";

/// What reading a text gives: a tree, or messages of which one must be the library's; neither for blanks
/// only.
struct TReading {
  TTreePtr Root;
  TMessages Messages;
};
TReading ReadExpression(const TUnitSetup& Unit, std::u16string_view Text);

/// The rule of an operand's text; return: the message when it is refused, else empty.
std::u16string ProcessNode(const TUnitSetup& Unit, TTree& Node);

/// Messages in the order in which they come up.
struct TErrors {
  std::vector<std::u16string> All;
  bool Any() const { return !All.empty(); }
  TMessages Set() const { return {All.begin(), All.end()}; }
};

double GetDoubleValue(const TTree& Node, TErrors& Errors);
/// The tree as text; errors: TRefused, and what an operand cannot be written for.
enum class TForm { Store, Edit, Display };
std::u16string WriteTree(const TUnitSetup& Unit, const TTree& Node, TForm Form, TErrors& Errors);
std::u16string WriteOperand(const TUnitSetup& Unit, const TTree& Node, TForm Form, TErrors& Errors);

} // namespace unitlib::fuzz::slow

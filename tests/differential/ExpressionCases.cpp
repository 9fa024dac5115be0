#include "CaseLine.h"
#include "UnitSetup.h"

#include "unitlib/expr/ZELUnitArthProcessor.h"
#include "unitlib/rtl/Numbers.h"

#include <cmath>
#include <map>
#include <optional>

namespace unitlib::differential {
namespace {

using TNames = std::map<std::u16string, double>;

std::string NodeToken(const TNode& Node) {
  std::string Flags;
  if (Node.FIsBlock) Flags += 'b';
  if (Node.FIsNegative) Flags += 'n';
  if (Node.FIsVar && Node.FNodeType == ntNum) Flags += 'v';
  if (Node.FIsImperial) Flags += 'i';
  if (Node.FNodeType == ntOp) return "o:" + Flags + ":" + Escape(Node.FValue);
  return "v:" + Flags + ":" + Escape(Node.FValue) + ":" + Escape(Node.FStoreValue) + ":" +
         ToBits(Node.FDoubleValue);
}

/// The nodes in prefix order.
void CollectTokens(const TNode& Node, std::vector<std::string>& Tokens) {
  Tokens.push_back(NodeToken(Node));
  if (Node.FLeft) CollectTokens(*Node.FLeft, Tokens);
  if (Node.FRight) CollectTokens(*Node.FRight, Tokens);
}

/// Equal, or operands whose number differs in the last places only.
bool SameToken(std::string_view Wanted, std::string_view Got) {
  if (Wanted == Got) return true;
  const auto W = Split(Wanted, ':');
  const auto G = Split(Got, ':');
  if (W.size() != 5 || G.size() != 5 || W[1] != G[1] || W[2] != G[2]) return false;
  return SameNumberText(Unescape(W[3]), Unescape(G[3])) && Near(FromBits(W[4]), FromBits(G[4]), 4);
}

void ExpectTree(TDifference& Difference, std::string_view What, std::string_view Wanted, const TNode* Root) {
  std::vector<std::string> Got;
  if (Root != nullptr) CollectTokens(*Root, Got);
  const auto Tokens = SplitList(Wanted, ';');
  bool Same = Tokens.size() == Got.size();
  for (size_t I = 0; Same && I < Got.size(); ++I) Same = SameToken(Tokens[I], Got[I]);
  if (Same) return;
  std::string Text;
  for (const std::string& Token : Got) Text += ";" + Token;
  Difference.Add(What, Wanted, Text);
}

/// "* is too big" stands for every message with that end.
bool IsMessage(std::string_view Wanted, std::u16string_view Got) {
  const std::u16string Text = Unescape(Wanted);
  if (Text.starts_with(u"*")) return Got.ends_with(std::u16string_view(Text).substr(1));
  return Text == Got;
}

/// No error where Wanted is empty, otherwise an error with one of the messages. True when there is no error.
bool ExpectMessage(TDifference& Difference, std::string_view What, std::string_view Wanted,
                   const TParser& Parser) {
  const auto Messages = SplitList(Wanted, '|');
  bool Same = Parser.FHasError != Messages.empty();
  if (Parser.FHasError && !Messages.empty()) {
    Same = false;
    for (const std::string_view Message : Messages) Same = Same || IsMessage(Message, Parser.FErrMsg);
  }
  if (!Same) Difference.Add(What, Wanted, Parser.FHasError ? "error |" + Escape(Parser.FErrMsg) : "no error");
  return !Parser.FHasError;
}

/// Value of a tree with its signs, for given values of the variables; nothing for an unknown variable.
std::optional<double> Evaluate(const TNode& Node, const TNames& Names) {
  std::optional<double> Value;
  if (Node.FNodeType != ntOp) {
    const auto Found = Names.find(Node.FValue);
    if (Node.FIsVar && Found == Names.end()) return {};
    Value = Node.FIsVar ? Found->second : Node.FDoubleValue;
  } else {
    if (!Node.FLeft || !Node.FRight) return {};
    const auto Left = Evaluate(*Node.FLeft, Names);
    const auto Right = Evaluate(*Node.FRight, Names);
    if (!Left || !Right) return {};
    if (Node.FValue == u"+") Value = *Left + *Right;
    if (Node.FValue == u"-") Value = *Left - *Right;
    if (Node.FValue == u"*") Value = *Left * *Right;
    if (Node.FValue == u"/") Value = *Left / *Right;
  }
  return Node.FIsNegative && Value ? -*Value : Value;
}

void CountVariables(const TNode& Node, std::map<std::u16string, int>& Counts) {
  if (Node.FNodeType != ntOp && Node.FIsVar) ++Counts[Node.FValue];
  if (Node.FLeft) CountVariables(*Node.FLeft, Counts);
  if (Node.FRight) CountVariables(*Node.FRight, Counts);
}

std::string Described(const TNode& Root) {
  std::vector<std::string> Tokens;
  CollectTokens(Root, Tokens);
  std::string Text;
  for (const std::string& Token : Tokens) Text += ";" + Token;
  return Text;
}

/// Field       ;name;name|bits,bits=value:magnitude|...
void ExpectValues(TDifference& Difference, std::string_view What, std::string_view Field, const TNode& Root) {
  const auto Parts = Split(Field, '|');
  const auto NameList = SplitList(Parts[0], ';');
  for (size_t I = 1; I < Parts.size(); ++I) {
    const auto Sides = Split(Parts[I], '=');
    if (Sides[1] == "?") continue;
    const auto Given = Split(Sides[0], ',');
    TNames Names;
    for (size_t J = 0; J < NameList.size(); ++J) Names[Unescape(NameList[J])] = FromBits(Given[J]);
    const auto Wanted = Split(Sides[1], ':');
    const auto Got = Evaluate(Root, Names);
    // 15 digits per folding step: the magnitudes that went in limit what can be asked for.
    if (Got && std::abs(*Got - FromBits(Wanted[0])) <= 1e-12 * FromBits(Wanted[1])) continue;
    Difference.Add(What, std::to_string(FromBits(Wanted[0])),
                   (Got ? std::to_string(*Got) : std::string("nothing")) + " of " + Described(Root));
    return;
  }
}

/// The store text, read again, gives the same value. (A name with a bracket in it cannot be read inside
/// brackets.)
void ExpectTextValues(TDifference& Difference, std::string_view Field, const std::u16string& Text) {
  TParser Parser(Text);
  const auto Root = Parser.Parse();
  if (Parser.FHasError || !Root) {
    Difference.Add("store text read again", "no error", Escape(Text + u" -> " + Parser.FErrMsg));
    return;
  }
  TDifference Values;
  ExpectValues(Values, "store text " + Escape(Text), Field, *Root);
  if (!Values.Report().empty()) Difference.Add("store text read again", Field, Values.Report());
}

void CheckValueBefore(TDifference& Difference, const TFields& Fields, const std::u16string& Text) {
  TParser Parser(Text);
  const auto Root = Parser.Parse();
  const double Value = Parser.GetDoubleValue(*Root);
  const size_t Semicolon = Fields[4].rfind(';');
  const bool Ok = ExpectMessage(Difference, "GetDoubleValue", Fields[4].substr(0, Semicolon), Parser);
  const double Wanted = FromBits(Fields[4].substr(Semicolon + 1));
  if (Ok && std::abs(Value - Wanted) > 1e-13 * std::abs(Wanted))
    Difference.Add("GetDoubleValue", ToBits(Wanted), ToBits(Value));
  if (Fields[5] == "?") return;
  TParser Writer(Text);
  const auto Tree = Writer.Parse();
  Difference.ExpectText("store text", Fields[5].substr(1), Writer.GetStoreValue(*Tree));
  Difference.ExpectText("edit text", Fields[5].substr(1), Writer.GetEditValue(*Tree));
  Difference.ExpectText("display text", Fields[5].substr(1), Writer.GetDisplayValue(*Tree));
}

void CheckMergedNumber(TDifference& Difference, std::string_view Wanted, TParser& Parser, const TNode& Root) {
  ExpectTree(Difference, "merged", Wanted, &Root);
  const std::u16string Text = Root.FDoubleValue < 0 ? u"(" + Root.FStoreValue + u")" : Root.FStoreValue;
  Difference.ExpectText("merged store text", Escape(Text), Parser.GetStoreValue(Root));
  Difference.ExpectText("merged edit text", Escape(Text), Parser.GetEditValue(Root));
  Difference.ExpectText("merged display text", Escape(Text), Parser.GetDisplayValue(Root));
}

void CheckMergedVariables(TDifference& Difference, std::string_view Field, TParser& Parser, const TNode& Root,
                          const std::map<std::u16string, int>& Before) {
  ExpectValues(Difference, "merged value", Field, Root);
  std::map<std::u16string, int> After;
  CountVariables(Root, After);
  if (After != Before) Difference.Add("variables kept", Field, Described(Root));
  for (const auto& [Name, Count] : Before)
    if (Name.find(u')') != std::u16string::npos) return;
  ExpectTextValues(Difference, Field, Parser.GetStoreValue(Root));
}

void CheckMerge(TDifference& Difference, const TFields& Fields, const std::u16string& Text) {
  TParser Parser(Text);
  auto Root = Parser.Parse();
  std::map<std::u16string, int> Before;
  CountVariables(*Root, Before);
  Parser.Merge(Root);
  if (Fields[6] == "may" && Parser.FHasError) return;
  const bool Ok = ExpectMessage(Difference, "Merge", Fields[6] == "err" ? Fields[7] : "", Parser);
  if (!Ok || Fields[6] == "err") return;
  if (!Fields[8].empty()) CheckMergedNumber(Difference, Fields[8], Parser, *Root);
  if (!Fields[9].empty()) CheckMergedVariables(Difference, Fields[9], Parser, *Root, Before);
}

/// What an elevation around a variable must be worth: K x or K / x, besides its offset.
struct TSide {
  explicit TSide(std::string_view Field) {
    const auto Parts = Split(Field, ';');
    Name = Unescape(Parts[0]);
    K = FromBits(Parts[1]);
    Inverse = Parts[2] == "1";
    NoOffset = Parts[3] == "1";
    Slack = FromBits(Parts[4]);
  }
  std::u16string Name;
  double K = 0;
  bool Inverse = false;
  bool NoOffset = false;
  double Slack = 0; // of the offset, relative: what folding its terms one by one may leave
};

/// True when the text is worth Sign times the side, for several values of the variable.
bool IsSide(const TSide& Side, std::u16string_view Text, double Sign) {
  TParser Parser(Text);
  const auto Root = Parser.Parse();
  if (Parser.FHasError || !Root) return false;
  for (const double X : {7.25, -2.5, 1234.5}) {
    const double Wanted = Sign * (Side.Inverse ? Side.K / X : Side.K * X);
    const auto Got = Evaluate(*Root, {{Side.Name, X}});
    if (!Got || std::abs(*Got - Wanted) > 1e-12 * std::abs(Wanted)) return false;
  }
  return true;
}

/// The number of a text, with or without brackets.
std::optional<double> BareNumber(std::u16string_view Text) {
  if (Text.starts_with(u'(') && Text.ends_with(u')')) Text = Text.substr(1, Text.size() - 2);
  double Value = 0;
  if (!TryStrToFloat(Text, Value)) return {};
  return Value;
}

bool IsOffset(const TSide& Side, std::u16string_view Text, std::u16string_view Wanted) {
  if (Text == Wanted) return true;
  const auto Number = BareNumber(Text);
  const auto WantedNumber = BareNumber(Wanted);
  return Number && WantedNumber && std::abs(*Number - *WantedNumber) <= Side.Slack * std::abs(*WantedNumber);
}

/// side + offset, side - opposite, offset + side, offset - side
bool IsSpelling(const TSide& Side, std::u16string_view Text, const std::u16string& Offset,
                const std::u16string& Opposite) {
  for (size_t At = Text.find_first_of(u"+-"); At != std::u16string_view::npos;
       At = Text.find_first_of(u"+-", At + 1)) {
    const bool Plus = Text[At] == u'+';
    const auto Before = Text.substr(0, At);
    const auto Behind = Text.substr(At + 1);
    if (IsOffset(Side, Behind, Plus ? Offset : Opposite) && IsSide(Side, Before, 1)) return true;
    if (IsOffset(Side, Before, Offset) && IsSide(Side, Behind, Plus ? 1 : -1)) return true;
  }
  return false;
}

bool IsAroundVariable(std::string_view Pieces, std::string_view SideField, std::u16string_view Text) {
  const TSide Side(SideField);
  if (Pieces.empty() || Side.NoOffset) {
    if (IsSide(Side, Text, 1)) return true;
    if (Pieces.empty()) return false;
  }
  const auto Parts = Split(Pieces, '|');
  const std::u16string Offset = Unescape(Parts[0]);
  const std::u16string Opposite = Unescape(Parts[1]);
  if (IsSpelling(Side, Text, Offset, Opposite)) return true;
  // A bracketed root keeps its brackets.
  return Text.starts_with(u"(") && Text.ends_with(u")") &&
         IsSpelling(Side, Text.substr(1, Text.size() - 2), Offset, Opposite);
}

/// Wanted      "" the library is free; "|text"; "#offset|opposite" around a variable, "#" without offset
void ExpectElevation(TDifference& Difference, std::string_view What, std::string_view Wanted,
                     const std::u16string& Got, std::string_view SideField) {
  if (Wanted.empty()) return;
  const bool Same = Wanted.starts_with('#') ? IsAroundVariable(Wanted.substr(1), SideField, Got)
                                            : SameNumberText(Unescape(Wanted.substr(1)), Got);
  if (!Same) Difference.Add(What, Wanted, Escape(Got));
}

} // namespace

std::string CheckExpression(const TFields& Fields) {
  const TUnitSetup Setup(Fields[0], 3);
  const std::u16string Text = Unescape(Fields[1]);
  TDifference Difference;
  TParser Parser(Text);
  const auto Root = Parser.Parse();
  if (!ExpectMessage(Difference, "Parse", Fields[2], Parser)) {
    if (Root) Difference.Add("Parse", "no tree", Described(*Root));
    return Difference.Report();
  }
  ExpectTree(Difference, "tree", Fields[3], Root.get());
  if (Fields[3].empty() || !Difference.Report().empty()) return Difference.Report();
  CheckValueBefore(Difference, Fields, Text);
  CheckMerge(Difference, Fields, Text);
  return Difference.Report();
}

std::string CheckElevation(const TFields& Fields) {
  const TUnitSetup Setup(Fields[0], 3);
  const std::u16string Text = Unescape(Fields[1]);
  TDifference Difference;
  ExpectElevation(Difference, "GetElevStoreValue", Fields[2], GetElevStoreValue(Text), Fields[6]);
  ExpectElevation(Difference, "GetElevEditValue", Fields[3], GetElevEditValue(Text), Fields[6]);
  ExpectElevation(Difference, "GetElevDisplayValue", Fields[4], GetElevDisplayValue(Text), Fields[6]);
  const char* Accepted = CheckElevEditValue(Text) ? "1" : "0";
  if (Fields[5].find(Accepted) == std::string_view::npos)
    Difference.Add("CheckElevEditValue", Fields[5], Accepted);
  return Difference.Report();
}

} // namespace unitlib::differential

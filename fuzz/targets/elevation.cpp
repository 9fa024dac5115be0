/// Input: the unit lengths are typed in (see ExpressionTrees.cpp), then the elevation.
#include "fuzz/Check.h"
#include "fuzz/ExpressionTrees.h"
#include "fuzz/Outcome.h"
#include "fuzz/Targets.h"
#include "fuzz/UnitSettings.h"
#include "unitlib/expr/ZELUnitArthProcessor.h"
#include "unitlib/rtl/Text.h"

#include <algorithm>

namespace unitlib::fuzz {
namespace {

using slow::TExact;
using slow::TForm;
using slow::TLinear;
using slow::TTree;

/// What the library answers about one elevation.
struct TAnswers {
  explicit TAnswers(const std::u16string& Text)
      : Store(GetElevStoreValue(Text)), Edit(GetElevEditValue(Text)), Display(GetElevDisplayValue(Text)),
        Accepted(CheckElevEditValue(Text)) {}

  std::u16string Store, Edit, Display;
  bool Accepted;
};

class TCase {
public:
  TCase(const slow::TUnitSetup& Unit, const std::u16string& Text)
      : FUnit(Unit), FText(Text), FAnswers(Text) {}

  void Run() {
    if (!FAnswers.Accepted) RequireSame("the store form of what is refused", FText, FAnswers.Store, FText);
    slow::TReading Reading = slow::ReadExpression(FUnit, FText);
    if (!Reading.Root) return RequireRefused();
    TParser Parser(FText);
    RequireSameTree(FText, *Parser.Parse(), *Reading.Root);
    FTree = std::move(Reading.Root);
    const auto Names = slow::VariablesOf(*FTree);
    if (Names.size() >= 2) return RequireRefused();
    if (Names.empty())
      CheckNumber();
    else
      CheckAroundVariable(Names[0]);
  }

private:
  void RequireRefused() const {
    RequireSame("CheckElevEditValue", FText, FAnswers.Accepted, false);
    RequireSame("the store form", FText, FAnswers.Store, FText);
    RequireSame("the edit form", FText, FAnswers.Edit, FText);
    RequireSame("the display form", FText, FAnswers.Display, FText);
  }

  /// A marked operand in a form; nothing where that is refused.
  std::optional<std::u16string> Formed(const TTree& Node, TForm Form) const {
    slow::TErrors Errors;
    const auto Outcome = OracleOutcome([&] { return slow::WriteOperand(FUnit, Node, Form, Errors); });
    return Errors.Any() ? std::nullopt : Outcome.Value;
  }

  void CheckNumber() const {
    slow::TErrors Errors;
    const slow::TTreePtr Number = slow::MergeNumbers(FUnit, FTree->Copy(), Errors);
    if (Errors.Any()) return RequireRefused();
    Number->Elev = true;
    auto Store = Formed(*Number, TForm::Store);
    // A single length may be written with an exponent, one beside an operator not.
    if (Store && !Number->Imperial) Store = slow::GeneralText(slow::AsDouble(FUnit, Number->Store, 3).Value);
    RequireSame("CheckElevEditValue", FText, FAnswers.Accepted, Store.has_value());
    RequireSame("the store form", FText, FAnswers.Store, Store.value_or(FText));
    RequireSame("the edit form", FText, FAnswers.Edit, Formed(*Number, TForm::Edit).value_or(FText));
    RequireSame("the display form", FText, FAnswers.Display, Formed(*Number, TForm::Display).value_or(FText));
  }

  void CheckAroundVariable(const std::u16string& Name) const {
    slow::TErrors Errors;
    const TLinear Form = slow::LinearForm(FUnit, *FTree, Errors);
    if (Errors.Any()) return RequireRefused();
    const slow::TVerdict Verdict = slow::MergeVerdict(FUnit, *FTree);
    if (Verdict.Must) return RequireRefused();
    const bool OddName = Name.find_first_of(u")/") != Name.npos; // may be unwritable where it stands then
    if (Verdict.May || OddName || (Form.Shape == TLinear::Mixed && Form.Inverse)) return;
    if (Form.OnlyTheVariable && Form.K == 1) {
      RequireSame("CheckElevEditValue", FText, FAnswers.Accepted, true);
      for (const auto* Text : {&FAnswers.Store, &FAnswers.Edit, &FAnswers.Display})
        RequireSame("a form of a name", FText, *Text, Name);
      return;
    }
    CheckStore(Name, Form);
    if (FAnswers.Edit != FText) CheckEdit(Name, Form);
  }

  bool HasDigitSymbol() const {
    return std::any_of(FUnit.Symbols.begin(), FUnit.Symbols.end(),
                       [](const auto& Symbol) { return !Symbol.empty() && IsDigit(Symbol.back()); });
  }

  /// The one offset, as it stands in the text after folding.
  slow::TTreePtr Offset(const TLinear& Form) const {
    auto Node = std::make_unique<TTree>();
    Node->Kind = TTree::Operand;
    Node->Value = slow::GeneralText(slow::Absolute(Form.B));
    slow::ProcessNode(FUnit, *Node);
    Node->Imperial = Form.ImperialTerms > 0;
    Node->Elev = true;
    return Node;
  }

  /// Whether it is sure what becomes of the offset: it is one number as typed, or folding leaves no doubt.
  bool IsSure(const TLinear& Form) const {
    if (Form.Shape == TLinear::Product || Form.ImperialTerms > 0) return true;
    const bool IsWhole = Form.B.IsWhole();
    const bool Untouched = Form.Shape == TLinear::Offset && Form.PlainTerms == 1;
    if (!slow::IsPlainDecimal(FUnit) && !(Untouched && IsWhole))
      return false; // "45.0" is refused, "45" is not
    return slow::Absolute(Form.B) > TExact(1, 1000000) * (1 + Form.Spread) &&
           slow::Absolute(Form.B) < TExact(1000000000);
  }

  void CheckStore(const std::u16string& Name, const TLinear& Form) const {
    if (!IsSure(Form)) return;
    const auto Piece = Formed(*Offset(Form), TForm::Store);
    const bool IsPlainText = FText.find(u'.') == FText.npos; // the typed offset may say 45.0
    if (Form.Shape != TLinear::Product && !Piece && IsPlainText) {
      RequireSame("CheckElevEditValue", FText, FAnswers.Accepted, false);
      RequireSame("the store form", FText, FAnswers.Store, FText);
      return; // the edit and display forms are not checked: the offset counts as stored there
    }
    if (!Piece) return;
    if (!IsPlainText && (!slow::IsPlainDecimal(FUnit) || HasDigitSymbol()))
      return; // "5" is cut off 25, not off 25.
    RequireSame("CheckElevEditValue", FText, FAnswers.Accepted, true);
    const TExact Stored = Form.Shape == TLinear::Product ? TExact(0) : slow::ReadNumber(*Piece).Exact;
    RequireWorth("the store form", FAnswers.Store, Name, Form, Form.B < 0 ? -Stored : Stored);
  }

  /// Where the edit form is plain decimal it is worth the variable's side and the offset in display units.
  void CheckEdit(const std::u16string& Name, const TLinear& Form) const {
    if (!slow::IsPlainDecimal(FUnit) || !IsSure(Form)) return;
    const auto Piece = Formed(*Offset(Form), TForm::Edit);
    if (!Piece) return;
    const TExact Shown = Form.Shape == TLinear::Product ? TExact(0) : slow::ReadNumber(*Piece).Exact;
    RequireWorth("the edit form", FAnswers.Edit, Name, Form, Form.B < 0 ? -Shown : Shown);
  }

  void RequireWorth(std::string_view What, const std::u16string& Got, const std::u16string& Name,
                    const TLinear& Form, const TExact& OffsetValue) const {
    const std::string Told = std::string(What) + " " + Show(Got);
    const slow::TReading Reading = slow::ReadExpression(FUnit, Got);
    Require(Reading.Root != nullptr, Told + " can be read, that", FText);
    const TExact Spread =
        slow::Absolute(OffsetValue) * (Form.B == 0 ? TExact(1) : Form.Spread / slow::Absolute(Form.B));
    for (const TExact& X : {TExact(29, 4), TExact(-5, 2), TExact(2469, 2)}) {
      const TExact Side = Form.Inverse ? TExact(Form.K / X) : TExact(Form.K * X);
      const TExact Wanted = Side + OffsetValue, Value = ValueOf(Told, FText, *Reading.Root, {{Name, X}});
      const TExact Limit = slow::TExact::Power(10, -12) * (slow::Absolute(Side) + Spread);
      if (slow::Absolute(Value - Wanted) > Limit)
        RequireSame(Told + ", the value", FText, slow::ToDouble(Value), slow::ToDouble(Wanted));
    }
  }

  const slow::TUnitSetup& FUnit;
  const std::u16string& FText;
  const TAnswers FAnswers;
  slow::TTreePtr FTree;
};

} // namespace

void RunElevation(TInput& Input) {
  const slow::TUnitSetup Setup = TakeLengthUnit(Input);
  const std::u16string Text = Input.RestText().substr(0, LongestExpression);
  const TLoadedUnit Loaded(Setup, ElevationMeasure);
  TCase(Setup, Text).Run();
}

} // namespace unitlib::fuzz

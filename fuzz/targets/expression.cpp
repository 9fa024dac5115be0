/// Input: the unit lengths are typed in (see ExpressionTrees.cpp), then the arithmetic text.
#include "fuzz/Check.h"
#include "fuzz/ExpressionTrees.h"
#include "fuzz/Targets.h"
#include "fuzz/UnitSettings.h"
#include "unitlib/expr/ZELUnitArthProcessor.h"
#include "unitlib/model/ZELUnitMgr.h"

#include <algorithm>

namespace unitlib::fuzz {
namespace {

using slow::TForm;
using slow::TTree;

bool IsAny(const TTree& Node, bool (*Test)(const TTree&)) {
  return Test(Node) || (Node.Left && IsAny(*Node.Left, Test)) || (Node.Right && IsAny(*Node.Right, Test));
}

std::u16string Written(TParser& Parser, const TNode& Root, TForm Form) {
  if (Form == TForm::Store) return Parser.GetStoreValue(Root);
  return Form == TForm::Edit ? Parser.GetEditValue(Root) : Parser.GetDisplayValue(Root);
}

class TCase {
public:
  TCase(const slow::TUnitSetup& Unit, const std::u16string& Text) : FUnit(Unit), FText(Text) {}

  void Run() {
    slow::TReading Reading = slow::ReadExpression(FUnit, FText);
    TParser Parser(FText);
    const auto Root = Parser.Parse();
    RequireSameErrors("Parse", FText, Parser, Reading.Messages);
    RequireSame("a tree", FText, Root != nullptr, Reading.Root != nullptr);
    if (!Root) return;
    RequireSameTree(FText, *Root, *Reading.Root);
    FWanted = std::move(Reading.Root);
    CheckClone(*Root);
    CheckValue();
    CheckTexts();
    if (slow::VariablesOf(*FWanted).empty())
      CheckMergedNumber();
    else
      CheckMergedAroundVariables();
  }

private:
  void CheckClone(const TNode& Root) const {
    const auto Copy = Root.Clone();
    Require(Copy != nullptr, "a clone", FText);
    RequireSame("a clone's root", FText, Copy->FValue, Root.FValue);
    TParser A(FText), B(FText);
    RequireSame("a clone's value", FText, Show(B.GetDoubleValue(*Copy)), Show(A.GetDoubleValue(Root)));
  }

  void CheckValue() const {
    TParser Parser(FText);
    const auto Root = Parser.Parse();
    slow::TErrors Errors;
    const double Wanted = slow::GetDoubleValue(*FWanted, Errors);
    const double Value = Parser.GetDoubleValue(*Root);
    RequireSame("an error of GetDoubleValue", FText, Parser.FHasError, Errors.Any());
    if (Errors.Any()) RequireSame("the message of GetDoubleValue", FText, Parser.FErrMsg, Errors.All.back());
    RequireSame("GetDoubleValue", FText, Show(Value), Show(Wanted));
  }

  /// The tree as it was read, written: where no sign stands outside it, and no exponent needs writing out.
  void CheckTexts() const {
    const auto IsLeftOut = [](const TTree& Node) {
      return Node.Negative || Node.Store.find(u"E-") != Node.Store.npos;
    };
    if (IsAny(*FWanted, IsLeftOut)) return;
    for (const TForm Form : {TForm::Store, TForm::Edit, TForm::Display}) {
      TParser Parser(FText);
      const auto Root = Parser.Parse();
      slow::TErrors Errors;
      RequireSame("the text of the tree", FText, Written(Parser, *Root, Form),
                  slow::WriteTree(FUnit, *FWanted, Form, Errors));
    }
  }

  void CheckMergedNumber() const {
    TParser Parser(FText);
    auto Root = Parser.Parse();
    slow::TErrors Errors;
    const slow::TTreePtr Wanted = slow::MergeNumbers(FUnit, FWanted->Copy(), Errors);
    Parser.Merge(Root);
    RequireSameErrors("Merge", FText, Parser, Errors.Set());
    if (Errors.Any()) return;
    RequireSame("being merged into one number", FText, Root->FNodeType == ntNum, true);
    RequireSame("the merged number", FText, Root->FDoubleValue, Wanted->Number);
    RequireSame("the merged text", FText, Root->FStoreValue, Wanted->Store);
    RequireSame("the merged number being imperial", FText, Root->FIsImperial, Wanted->Imperial);
    RequireSame("the merged number's value", FText, Parser.GetDoubleValue(*Root), Wanted->Number);
    const std::u16string Text = Wanted->Number < 0 ? u"(" + Wanted->Store + u")" : Wanted->Store;
    for (const TForm Form : {TForm::Store, TForm::Edit, TForm::Display})
      RequireSame("the merged number as text", FText, Written(Parser, *Root, Form), Text);
    RequireSameValues("the merged value", FText, *ToSlowTree(*Root), *FWanted);
    Require(!Parser.FHasError, "no error", FText);
  }

  void CheckMergedAroundVariables() const {
    TParser Parser(FText);
    auto Root = Parser.Parse();
    slow::TVerdict Verdict = slow::MergeVerdict(FUnit, *FWanted);
    for (const auto& Values : Assignments(slow::VariablesOf(*FWanted)))
      Verdict.May = Verdict.May || !slow::Evaluate(*FWanted, Values);
    Parser.Merge(Root);
    if (Parser.FHasError) {
      Require(Verdict.Must || Verdict.May, "a refusal by Merge with " + Show(Parser.FErrMsg), FText);
      Require(Verdict.May || IsMessage(Verdict.Messages, Parser.FErrMsg),
              "the message of Merge, " + Show(Parser.FErrMsg) + ",", FText);
      return;
    }
    Require(!Verdict.Must, "Merge refuses it: no error", FText);
    CheckVariableTree(Parser, *Root);
  }

  void CheckVariableTree(TParser& Parser, const TNode& Root) const {
    const slow::TTreePtr Merged = ToSlowTree(Root);
    Require(!IsAny(*Merged, [](const TTree& Node) { return Node.Negative; }), "no negative block after Merge",
            FText);
    std::vector<std::u16string> Before = slow::VariablesOf(*FWanted), After = slow::VariablesOf(*Merged);
    std::sort(Before.begin(), Before.end());
    std::sort(After.begin(), After.end());
    Require(Before == After, "the same variables after Merge", FText);
    RequireSameValues("the merged value", FText, *Merged, *FWanted);
    const std::u16string Text = Parser.GetStoreValue(Root);
    if (Parser.FHasError) {
      // A name that would be read as something else where it stands now cannot be written.
      const auto IsOdd = [](const std::u16string& Name) { return Name.find_first_of(u")/") != Name.npos; };
      Require(std::any_of(Before.begin(), Before.end(), IsOdd), "a merged tree that cannot be written",
              FText);
      RequireSame("the text of a tree that cannot be written", FText, Text, std::u16string());
      return;
    }
    const slow::TReading Again = slow::ReadExpression(FUnit, Text);
    Require(Again.Root != nullptr, "the store text " + Show(Text) + " can be read, that", FText);
    std::vector<std::u16string> Names = slow::VariablesOf(*Again.Root);
    std::sort(Names.begin(), Names.end());
    Require(Before == Names, "the variables of the store text " + Show(Text) + ", that", FText);
    RequireSameValues("the value of the store text " + Show(Text), FText, *Again.Root, *FWanted);
  }

  const slow::TUnitSetup& FUnit;
  const std::u16string& FText;
  slow::TTreePtr FWanted;
};

} // namespace

void RunExpression(TInput& Input) {
  const slow::TUnitSetup Setup = TakeLengthUnit(Input);
  const std::u16string Text = Input.RestText().substr(0, LongestExpression);
  const TLoadedUnit Loaded(Setup, ElevationMeasure);
  TCase(Setup, Text).Run();
}

} // namespace unitlib::fuzz

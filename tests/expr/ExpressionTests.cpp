#include "ExpressionTests.h"

#include "unitlib/model/ZELUnitConfigFileGenerator.h"

#include <optional>

namespace unitlib::test {
namespace {

std::optional<TPrivateFolders> Folders;

std::string Problem(const TParser& Parser) {
  return "! " + ToUtf8(Parser.FErrMsg);
}

} // namespace

void TExpressionTest::SetUpTestSuite() {
  Folders.emplace();
  GenerateUnitDefaultConfigFile();
  InitialUnitSystem(u"", CYAmInch, false);
}

void TExpressionTest::TearDownTestSuite() {
  FreeUnitSystem();
  Folders.reset();
}

TUnit& TExpressionTest::Use(TLengthUnit Unit) {
  TMeasure* Measure = TSystemUnitDataManager::CurConfigMeasure(ElevationMeasure);
  Measure->CurUnitIndex = Unit;
  return *Measure->GetCurUnit();
}

std::string Described(const TNode& Node) {
  std::string Text = ToUtf8(Node.FValue);
  if (Node.FNodeType == ntOp)
    Text += " " + Described(Node.FLeft) + " " + Described(Node.FRight);
  else
    Text += std::string(Node.FIsVar ? ":v" : "") + (Node.FIsImperial ? ":i" : "");
  if (Node.FIsBlock) return (Node.FIsNegative ? "-[" : "[") + Text + "]";
  return Node.FNodeType == ntOp ? "(" + Text + ")" : Text;
}

std::string Described(const std::unique_ptr<TNode>& Root) {
  return Root ? Described(*Root) : "none";
}

std::string Parsed(std::u16string_view Text) {
  TParser Parser(Text);
  const auto Root = Parser.Parse();
  if (!Parser.FHasError) return Described(Root);
  return Root ? "tree in spite of " + Problem(Parser) : Problem(Parser);
}

std::string Merged(std::u16string_view Text) {
  TParser Parser(Text);
  auto Root = Parser.Parse();
  if (!Parser.FHasError) Parser.Merge(Root);
  return Parser.FHasError ? Problem(Parser) : Described(Root);
}

std::string MergedText(std::u16string_view Text) {
  TParser Parser(Text);
  auto Root = Parser.Parse();
  if (!Parser.FHasError) Parser.Merge(Root);
  const std::string Result = !Parser.FHasError && Root ? ToUtf8(Parser.GetStoreValue(*Root)) : "";
  return Parser.FHasError ? Problem(Parser) : Result;
}

} // namespace unitlib::test

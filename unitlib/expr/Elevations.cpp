#include "unitlib/expr/ExpressionTools.h"
#include "unitlib/expr/TextForms.h"
#include "unitlib/rtl/Numbers.h"

namespace unitlib {
namespace {

/// Store form of a single length. Unlike one beside an operator it may be written with an exponent.
std::u16string SingleStoreText(TParser& Parser, const TNode& Operand) {
  if (Operand.FIsVar || Operand.FIsImperial) return Operand.FStoreValue;
  std::u16string Text;
  KeepError(Parser, Operand.FPos, [&] {
    if (double Metres = 0.0; ReadTypedLength(Operand.FStoreValue, Metres))
      Text = FloatToStr(Metres);
    else
      Parser.SetError(u"", Operand.FPos);
  });
  return Text;
}

std::u16string RootText(TParser& Parser, const TNode& Root, TTextForm Form) {
  if (Root.FNodeType == ntOp) return TreeText(Parser, Root, Form);
  return Form == TTextForm::Store ? SingleStoreText(Parser, Root) : OperandText(Parser, Root, Form);
}

/// Writes AText in one of its forms. return: false, Text left alone, when it is no acceptable elevation
bool FormElevation(std::u16string_view AText, TTextForm Form, std::u16string& Text) {
  TParser Parser(AText);
  std::unique_ptr<TNode> Root = Parser.Parse();
  if (!Root) return false;
  Parser.Merge(Root);
  if (!Parser.FHasError) Parser.Mark(*Root);
  if (Parser.FHasError) return false;
  std::u16string Formed = RootText(Parser, *Root, Form);
  if (Parser.FHasError) return false;
  Text = std::move(Formed);
  return true;
}

std::u16string FormOrSame(std::u16string_view AText, TTextForm Form) {
  std::u16string Text;
  if (!FormElevation(AText, Form, Text)) Text = AText;
  return Text;
}

} // namespace

std::u16string GetElevStoreValue(std::u16string_view AText) {
  return FormOrSame(AText, TTextForm::Store);
}

std::u16string GetElevEditValue(std::u16string_view AText) {
  return FormOrSame(AText, TTextForm::Edit);
}

std::u16string GetElevDisplayValue(std::u16string_view AText) {
  return FormOrSame(AText, TTextForm::Display);
}

bool CheckElevEditValue(std::u16string_view AText) {
  std::u16string Text;
  return FormElevation(AText, TTextForm::Store, Text);
}

} // namespace unitlib

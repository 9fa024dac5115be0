#include "tests/limits/ArgumentPools.h"
#include "tests/limits/Operations.h"
#include "unitlib/convert/ZELUnitConvertor.h"
#include "unitlib/convert/ZELUnitDigitGroupParserRegister.h"
#include "unitlib/convert/ZELUnitLengthConvertor.h"
#include "unitlib/convert/ZELUnitParseRegister.h"
#include "unitlib/expr/ZELUnitArthProcessor.h"
#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"
#include "unitlib/typing/ReadTyped.h"

namespace unitlib::test {
namespace {

using TManager = TSystemUnitDataManager;
using TTry = TOperation::TTry;
using TFacade = TMeasureDataManager;

/// Everything a parser can be asked.
void UseParser(const TTry& Try, const TCommonUnitParser& Parser) {
  for (const double Value : Numbers())
    for (const bool Flag : {false, true}) {
      Try([&] { Parser.AsString(Value, -1, Flag, Flag, Flag, Flag); });
      Try([&] {
        std::u16string Text;
        Parser.RoundOff(Value, Text, Flag, Flag);
      });
    }
  for (const auto& Text : Texts()) {
    Try([&] { Parser.IsValid(Text); });
    Try([&] { Parser.AsDouble(Text, 3); });
    Try([&] { Parser.RemoveSymbol(Text); });
    Try([&] { Parser.CheckFractionDisplay(Text); });
    Try([&] { Parser.AsFractionDouble(Text, -1); });
  }
  for (const int Scale : Integers()) Try([&] { Parser.GetScale(Scale); });
  Try([&] { Parser.GetUnitArr(); });
  Try([&] { Parser.GetUnitSymbol(); });
  if (const auto* Feet = dynamic_cast<const TFeetAndFractionalInchParser*>(&Parser)) {
    Try([=] { Feet->IsRoundToHighUnitInCoupleUnit(); });
    Try([=] { Feet->IsRoundToLowUnitInCoupleUnit(); });
  }
}

void ForEachCurrentUnit(const std::function<void(TUnit&)>& Use) {
  if (!TManager::FCurUseUnitConfigContainer) return;
  const TConfig* const Config = TManager::FCurUseUnitConfigContainer->Find(0);
  if (!Config) return;
  for (const auto& Measure : Config->MeasureContainer)
    if (TUnit* const Unit = Measure->UnitContainer.Find(0)) Use(*Unit);
}

constexpr std::u16string_view OneOfEachKind[] = {u"TMetreParser", u"TDecimalFeetParser",
                                                 u"TFractionalInchParser", u"TFeetAndFractionalInchParser",
                                                 u"TBangParser"};

} // namespace

std::vector<TOperation> ConversionOperations() {
  return {
      {"StoreToDisplay",
       [](const TTry& Try) {
         for (const int Code : Integers())
           for (const double Value : Numbers()) {
             Try([=] { TFacade::StoreToDisplay(Code, Value, -1, true); });
             Try([=] {
               bool HasSymbol = false;
               TFacade::StoreToDisplay(HasSymbol, Code, Value, Code, true, true, true, true, true);
             });
           }
       }},
      {"texts of the facade",
       [](const TTry& Try) {
         for (const int Code : Integers())
           for (const auto& Text : Texts()) {
             Try([&] { TFacade::CheckDisplay(Code, Text); });
             Try([&] { TFacade::DisplayToStore(Code, Text, Code); });
             Try([&] { TFacade::ExprToStore(Code, Text, Code, Code > 0); });
             Try([&] { TFacade::IsANum(Code, Text, Code > 0); });
           }
       }},
      {"numbers of the facade",
       [](const TTry& Try) {
         for (const int Code : Integers()) {
           for (const double Value : Numbers()) Try([=] { TFacade::DecimalValueToStore(Code, Value, Code); });
           Try([=] { TFacade::GetUnitSymbol(Code, Code > 0); });
           Try([=] { TCommonUnitCommand(Code).HasUnitSymbol(); });
         }
       }},
      {"ReadTyped",
       [](const TTry& Try) {
         for (const int Code : {0, 3, 99})
           for (const auto& Text : Texts())
             for (const TTypedKind Kind : {TTypedKind::SingleValue, TTypedKind::Expression})
               Try([&] {
                 TTypedOptions Options;
                 Options.Kind = Kind;
                 Options.ScaleIndex = Code;
                 Options.DecimalComma = Code > 0;
                 Options.Languages = Code > 0 ? std::uint32_t{tlAll} : 0xFFFFFFFFU;
                 ReadTyped(Code, Text, Options);
               });
       }},
      {"parsers of the units",
       [](const TTry& Try) {
         ForEachCurrentUnit([&](TUnit& Unit) {
           Try([&] {
             if (const auto Parser = GetUnitParser(Unit.UnitParserClassName, &Unit)) UseParser(Try, *Parser);
           });
         });
       }},
      {"parsers of other kinds",
       [](const TTry& Try) {
         int Left = 2; // units of one measure serve as well as those of all
         ForEachCurrentUnit([&](TUnit& Unit) {
           if (Left-- <= 0) return;
           for (const auto Name : OneOfEachKind) UseParser(Try, *GetUnitParser(Name, &Unit));
         });
         for (const auto& Text : Texts()) Try([&] { GetUnitParser(Text, nullptr); });
       }},
      {"digit groups",
       [](const TTry& Try) {
         for (const auto& Text : Texts()) {
           for (const auto Name : {u"", u"none", u"TDigitGroup3CommaParser", u"TDigitGroup4CommaParser"})
             Try([&] { GetDigitGroupParser(Name, Text)->ToStr(); });
           Try([&] { LibraryGroupSize(Text); });
           for (const int Size : Integers())
             Try([&] {
               std::u16string Out;
               AppendGroupedDigits(Out, Text, Size);
             });
         }
       },
       false},
      {"numbers and texts",
       [](const TTry& Try) {
         for (const double Value : Numbers()) {
           Try([=] { FloatToStr(Value); });
           Try([=] { FloatToPlainStr(Value); });
           Try([=] { TCommonUnitParser::RoundClassic(Value); });
           for (const int Decimals : Integers()) Try([=] { FixedToStr(Value, Decimals); });
         }
         for (const auto& Text : Texts())
           for (const int Count : Integers()) {
             Try([&] { LeftStr(Text, Count); });
             Try([&] { RightStr(Text, Count); });
           }
         for (const auto& Text : Texts()) {
           Try([&] { StrToFloat(Text); });
           Try([&] {
             double Numerator = 0, Denominator = 0;
             TFractionalLengthParser::GetFenZiFenMu(Text, Numerator, Denominator);
           });
         }
         for (const int A : Integers())
           for (const int B : Integers()) Try([=] { TFractionalLengthParser::GCD(A, B); });
         constexpr auto Least = std::numeric_limits<std::int64_t>::min();
         Try([] { TFractionalLengthParser::GCD(Least, -1); });
       },
       false},
      {"imperial texts",
       [](const TTry& Try) {
         for (const auto& Text : Texts()) {
           Try([&] { GetIdentifiableForm(Text); });
           Try([&] { IsFraction(Text); });
           Try([&] { IsStandardFormat(Text); });
           Try([&] { GetFractionStandardFormat(Text); });
           Try([&] { GetInchNumByFraction(Text); });
           Try([&] { IsImperialNum(Text, true); });
           Try([&] { IsANum(Text); });
           for (const int Mode : {0, 2, -1})
             for (const double Factor : Numbers()) Try([&] { ReplaceImperialNumbers(Text, Mode, Factor); });
         }
       },
       false},
  };
}

std::vector<TOperation> ExpressionOperations() {
  auto WriteAll = [](const TTry& Try, TParser& Parser, const TNode& Node) {
    Try([&] { Parser.GetDoubleValue(Node); });
    Try([&] { Parser.GetStoreValue(Node); });
    Try([&] { Parser.GetEditValue(Node); });
    Try([&] { Parser.GetDisplayValue(Node); });
    Try([&] { Node.Clone(); });
  };
  return {
      {"parse, merge, evaluate, write",
       [=](const TTry& Try) {
         for (const auto& Text : Texts())
           Try([&] {
             TParser Parser(Text);
             auto Root = Parser.Parse();
             if (!Root) return;
             WriteAll(Try, Parser, *Root);
             Try([&] { Parser.Merge(Root); });
             if (!Root) return;
             Try([&] { Parser.Mark(*Root); });
             WriteAll(Try, Parser, *Root);
           });
       }},
      {"broken trees",
       [=](const TTry& Try) {
         for (const TNodeType Type : {ntUnknown, ntNum, ntOp})
           for (const auto& Value : Texts())
             for (int Children = 0; Children < 4; ++Children)
               Try([&] {
                 auto Node = std::make_unique<TNode>();
                 Node->FNodeType = Type;
                 Node->SetValue(Value);
                 Node->FIsVar = Children == 2;
                 Node->FIsBlock = Node->FIsNegative = Children == 3;
                 if (Children & 1) Node->FLeft = std::make_unique<TNode>();
                 if (Children & 2) Node->FRight = std::make_unique<TNode>();
                 TParser Parser(u"1");
                 Try([&] { Parser.ProcessNode(*Node); });
                 WriteAll(Try, Parser, *Node);
                 Try([&] { Parser.Mark(*Node); });
                 Try([&] { Parser.Merge(Node); });
                 if (Node) WriteAll(Try, Parser, *Node);
               });
         Try([&] {
           std::unique_ptr<TNode> None;
           TParser(u"").Merge(None);
         });
       }},
      {"a parser's position",
       [](const TTry& Try) {
         for (const int Point : Integers())
           for (const auto& Text : Texts()) {
             Try([&] {
               TParser Parser(Text);
               Parser.FPoint = Point;
               Parser.GetNode();
             });
             Try([&] {
               TParser Parser(Text);
               Parser.FPoint = Point;
               Parser.SubStringInBracket();
             });
             Try([&] { TParser(Text).SetError(Text, Point); });
           }
       },
       false},
      {"elevations",
       [](const TTry& Try) {
         for (const auto& Text : Texts()) {
           Try([&] { GetElevStoreValue(Text); });
           Try([&] { GetElevEditValue(Text); });
           Try([&] { GetElevDisplayValue(Text); });
           Try([&] { CheckElevEditValue(Text); });
         }
       }},
  };
}

} // namespace unitlib::test

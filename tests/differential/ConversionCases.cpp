#include "CaseLine.h"
#include "UnitSetup.h"

#include "unitlib/convert/ZELUnitCommon.h"
#include "unitlib/convert/ZELUnitConvertor.h"
#include "unitlib/convert/ZELUnitDigitGroupParserRegister.h"
#include "unitlib/convert/ZELUnitParseRegister.h"
#include "unitlib/rtl/Numbers.h"

namespace unitlib::differential {
namespace {

int ToInt(std::string_view Field) {
  return std::stoi(std::string(Field));
}

std::string Grouped(std::u16string_view Name, std::u16string_view Text) {
  return Escape(GetDigitGroupParser(Name, Text)->ToStr());
}

/// Imperial lengths are sums of several roundings: a few units in the last place are free.
void ExpectDouble(TDifference& Difference, std::string_view What, std::string_view Wanted,
                  const std::string& Got, int Ulps) {
  if (Wanted.starts_with('=') && Got.starts_with('=') &&
      Near(FromBits(Wanted.substr(1)), FromBits(Got.substr(1)), Ulps))
    return;
  Difference.Expect(What, Wanted, Got);
}

bool IsDigit(std::u16string_view Text, size_t At) {
  return At < Text.size() && Text[At] >= u'0' && Text[At] <= u'9';
}

/// End of the unsigned number text (digits, point, exponent if wanted) that begins at Start; Start when none
/// does.
size_t NumberEnd(std::u16string_view Text, size_t Start, bool WithExponent) {
  size_t End = Start;
  while (IsDigit(Text, End) || (End < Text.size() && Text[End] == u'.')) ++End;
  if (!WithExponent || End == Start || End >= Text.size() || Text[End] != u'E') return End;
  size_t Exponent = End + 1;
  if (Exponent < Text.size() && Text[Exponent] == u'-') ++Exponent;
  if (!IsDigit(Text, Exponent)) return End;
  while (IsDigit(Text, Exponent)) ++Exponent;
  return Exponent;
}

bool SamePieces(std::u16string_view Wanted, std::u16string_view Got, bool WithExponent) {
  size_t I = 0;
  size_t J = 0;
  while (I < Wanted.size() && J < Got.size()) {
    const size_t EndI = NumberEnd(Wanted, I, WithExponent);
    const size_t EndJ = NumberEnd(Got, J, WithExponent);
    if (EndI == I && EndJ == J) {
      if (Wanted[I++] != Got[J++]) return false;
      continue;
    }
    if (!SameNumberText(Wanted.substr(I, EndI - I), Got.substr(J, EndJ - J))) return false;
    I = EndI;
    J = EndJ;
  }
  return I == Wanted.size() && J == Got.size();
}

/// Texts that differ at most in the last of 15 digits of a number inside them. In 52E-12' the exponent sign
/// was an operator, so both readings count.
bool SameArithmetic(std::u16string_view Wanted, std::u16string_view Got) {
  return SamePieces(Wanted, Got, true) || SamePieces(Wanted, Got, false);
}

struct TFlags {
  explicit TFlags(std::string_view Field)
      : NoSymbol(Field[0] == '1'), NoDigitGroup(Field[1] == '1'), NoRound(Field[2] == '1'),
        NoPlusSign(Field[3] == '1'), Append(Field[4] == '1'), Has(Field[5] == '1') {}
  bool NoSymbol, NoDigitGroup, NoRound, NoPlusSign, Append, Has;
};

std::string FirstForm(int Measure, double Value, int Scale, const TFlags& F) {
  bool Has = F.Has;
  const std::u16string Text = TMeasureDataManager::StoreToDisplay(
      Has, Measure, Value, Scale, F.Append, F.NoSymbol, F.NoDigitGroup, F.NoRound, F.NoPlusSign);
  return Escape(Text) + (Has ? "|1" : "|0");
}

std::string SecondForm(int Measure, double Value, int Scale, const TFlags& F) {
  return Escape(TMeasureDataManager::StoreToDisplay(Measure, Value, Scale, F.Append, F.NoSymbol,
                                                    F.NoDigitGroup, F.NoRound, F.NoPlusSign));
}

} // namespace

std::string CheckNumberText(const TFields& Fields) {
  const std::u16string Text = Unescape(Fields[0]);
  TDifference Difference;
  Difference.ExpectFlag("IsNumeric", Fields[1], IsNumeric(Text));
  Difference.ExpectFlag("IsInt64", Fields[2], IsInt64(Text));
  Difference.Expect("StrToFloat", Fields[3], Attempt([&] { return ToBits(StrToFloat(Text)); }));
  return Difference.Report();
}

std::string CheckNumberValue(const TFields& Fields) {
  const double Value = FromBits(Fields[0]);
  TDifference Difference;
  Difference.Expect("FloatToStr", Fields[1], Attempt([&] { return Escape(FloatToStr(Value)); }));
  Difference.Expect("FloatToPlainStr", Fields[2], Attempt([&] { return Escape(FloatToPlainStr(Value)); }));
  return Difference.Report();
}

std::string CheckGroup(const TFields& Fields) {
  const std::u16string Text = Unescape(Fields[0]);
  TDifference Difference;
  Difference.Expect("threes", Fields[1], Grouped(u"TDigitGroup3CommaParser", Text));
  Difference.Expect("fours", Fields[2], Grouped(u"tdigitgroup4commaPARSER", Text));
  Difference.Expect("unknown name", Fields[0], Grouped(u"TFoo", Text));
  return Difference.Report();
}

std::string CheckImperial(const TFields& Fields) {
  const std::u16string Text = Unescape(Fields[0]);
  TDifference Difference;
  Difference.ExpectFlag("IsEndWithSymbol", Fields[1], IsEndWithSymbol(Text));
  Difference.ExpectText("GetIdentifiableForm", Fields[2], GetIdentifiableForm(Text));
  Difference.ExpectFlag("IsFraction", Fields[3], IsFraction(Text));
  Difference.ExpectFlag("IsStandardFormat", Fields[4], IsStandardFormat(Text));
  Difference.ExpectText("GetFractionStandardFormat", Fields[5], GetFractionStandardFormat(Text));
  const double Inches = GetInchNumByFraction(Text);
  if (!Near(FromBits(Fields[6]), Inches, 2))
    Difference.Add("GetInchNumByFraction", Fields[6], ToBits(Inches));
  Difference.ExpectFlag("IsImperialNum", Fields[7], IsImperialNum(Text, false));
  Difference.ExpectFlag("IsImperialNum, no integers", Fields[8], IsImperialNum(Text, true));
  Difference.ExpectFlag("IsANum", Fields[9], IsANum(Text));
  return Difference.Report();
}

std::string CheckReplace(const TFields& Fields) {
  TDifference Difference;
  const std::u16string Got =
      ReplaceImperialNumbers(Unescape(Fields[0]), ToInt(Fields[1]), FromBits(Fields[2]));
  if (!SameArithmetic(Unescape(Fields[3]), Got)) Difference.ExpectText("replaced", Fields[3], Got);
  return Difference.Report();
}

std::string CheckExprToStore(const TFields& Fields) {
  const int Measure = ToInt(Fields[1]);
  const TUnitSetup Setup(Fields[0], Measure);
  const std::u16string Text = Unescape(Fields[2]);
  TDifference Difference;
  const std::string Got =
      Attempt([&] { return Escape(TMeasureDataManager::ExprToStore(Measure, Text, 42, Fields[3] == "1")); });
  const bool Same = Got.starts_with('=') && Fields[4].starts_with('=') &&
                    SameArithmetic(Unescape(Fields[4].substr(1)), Unescape(Got.substr(1)));
  if (!Same) Difference.Expect("ExprToStore", Fields[4], Got);
  return Difference.Report();
}

std::string CheckFormat(const TFields& Fields) {
  TUnitSetup Setup(Fields[0], 0);
  const int Scale = ToInt(Fields[1]);
  const TFlags F(Fields[2]);
  const double Value = FromBits(Fields[3]);
  const auto Parser = GetUnitParser(Setup.Unit().UnitParserClassName, &Setup.Unit());
  TDifference Difference;
  Difference.Expect(
      "AsString", Fields[4], Attempt([&] {
        return Escape(Parser->AsString(Value, Scale, F.NoSymbol, F.NoDigitGroup, F.NoRound, F.NoPlusSign));
      }));
  Difference.Expect("first form", Fields[5], Attempt([&] { return FirstForm(0, Value, Scale, F); }));
  Difference.Expect("second form", Fields[6], Attempt([&] { return SecondForm(0, Value, Scale, F); }));
  return Difference.Report();
}

std::string CheckNoMeasure(const TFields& Fields) {
  const TUnitSetup Setup("TMetreParser|14|0|||0|000000||", 0);
  const double Value = FromBits(Fields[0]);
  TFlags F("000000");
  F.Has = Fields[1][0] == '1';
  F.Append = Fields[1][1] == '1';
  TDifference Difference;
  Difference.Expect("first form", Fields[2], Attempt([&] { return FirstForm(-1, Value, -1, F); }));
  Difference.Expect("second form", Fields[3], Attempt([&] { return SecondForm(-1, Value, -1, F); }));
  Difference.Expect("unknown measure", Fields[4], Attempt([&] { return SecondForm(77, Value, -1, F); }));
  return Difference.Report();
}

std::string CheckParse(const TFields& Fields) {
  TUnitSetup Setup(Fields[0], 0);
  const int Scale = ToInt(Fields[1]);
  const std::u16string Text = Unescape(Fields[2]);
  const int Ulps = Fields[8] == "1" ? 4 : 0;
  const auto Parser = GetUnitParser(Setup.Unit().UnitParserClassName, &Setup.Unit());
  TDifference Difference;
  Difference.ExpectFlag("IsValid", Fields[3], Parser->IsValid(Text));
  Difference.ExpectFlag("CheckDisplay", Fields[3], TMeasureDataManager::CheckDisplay(0, Text));
  Difference.ExpectText("RemoveSymbol", Fields[4], Parser->RemoveSymbol(Text));
  ExpectDouble(Difference, "AsDouble", Fields[5],
               Attempt([&] { return ToBits(Parser->AsDouble(Text, Scale)); }), Ulps);
  ExpectDouble(Difference, "DisplayToStore", Fields[5],
               Attempt([&] { return ToBits(TMeasureDataManager::DisplayToStore(0, Text, Scale)); }), Ulps);
  Difference.ExpectFlag("IsANum", Fields[6], TMeasureDataManager::IsANum(0, Text, false));
  Difference.ExpectFlag("IsANum, no fractions", Fields[7], TMeasureDataManager::IsANum(0, Text, true));
  return Difference.Report();
}

std::string CheckSymbol(const TFields& Fields) {
  const TUnitSetup Setup(Fields[0], 0);
  const int Scale = ToInt(Fields[1]);
  const double Value = FromBits(Fields[2]);
  TDifference Difference;
  Difference.ExpectText("GetUnitSymbol", Fields[3], TMeasureDataManager::GetUnitSymbol(0, false));
  Difference.ExpectText("GetUnitSymbol, empty for feet-inch", Fields[4],
                        TMeasureDataManager::GetUnitSymbol(0, true));
  Difference.ExpectFlag("HasUnitSymbol", Fields[5], TCommonUnitCommand(0).HasUnitSymbol());
  ExpectDouble(Difference, "DecimalValueToStore", Fields[6],
               Attempt([&] { return ToBits(TMeasureDataManager::DecimalValueToStore(0, Value, Scale)); }), 0);
  return Difference.Report();
}

std::string CheckNoParser(const TFields& Fields) {
  using TManager = TMeasureDataManager;
  const TUnitSetup Setup(Fields[0], 3);
  const int Measure = ToInt(Fields[1]);
  const double Value = FromBits(Fields[2]);
  const std::u16string Text = Unescape(Fields[3]);
  TFlags F("000001");
  F.Append = Fields[4] == "1";
  TDifference Difference;
  Difference.Expect("first form", Fields[5], Attempt([&] { return FirstForm(Measure, Value, -1, F); }));
  Difference.ExpectFlag("CheckDisplay", Fields[6], TManager::CheckDisplay(Measure, Text));
  Difference.Expect("DisplayToStore", Fields[7],
                    Attempt([&] { return ToBits(TManager::DisplayToStore(Measure, Text, -1)); }));
  Difference.Expect("ExprToStore", Fields[8],
                    Attempt([&] { return Escape(TManager::ExprToStore(Measure, Text, 0, true)); }));
  Difference.Expect("IsANum", Fields[9],
                    Attempt([&] { return TManager::IsANum(Measure, Text, false) ? "1" : "0"; }));
  Difference.Expect("DecimalValueToStore", Fields[10],
                    Attempt([&] { return ToBits(TManager::DecimalValueToStore(Measure, Value, -1)); }));
  Difference.Expect("GetUnitSymbol", Fields[11],
                    Escape(TManager::GetUnitSymbol(Measure, false)) + "|" +
                        Escape(TManager::GetUnitSymbol(Measure, true)));
  return Difference.Report();
}

} // namespace unitlib::differential

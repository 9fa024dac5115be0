#include "unitlib/typing/Explanation.h"

#include "unitlib/convert/ImperialText.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"
#include "unitlib/typing/Rewriting.h"

namespace unitlib::typing {
namespace {

/// Feet, inches and fraction of a text that the facade reads as imperial, from its standard form.
struct TImperialParts {
  std::u16string Form; // empty: it does not
  std::u16string Feet, Inches, Fraction;
};

TImperialParts PartsOf(std::u16string_view Text) {
  TImperialParts Parts;
  if (!IsFraction(Text)) return Parts;
  const std::u16string Form = GetFractionStandardFormat(Text);
  if (!IsStandardFormat(Form)) return Parts;
  const std::size_t Foot = Form.find(FootMark), Blank = Form.find(u' ');
  const std::size_t First = Form.front() == u'-' ? 1 : 0;
  Parts.Form = Form;
  Parts.Feet = Form.substr(First, Foot - First);
  Parts.Inches = Form.substr(Foot + 1, Blank - Foot - 1);
  Parts.Fraction = Form.substr(Blank + 1, Form.size() - Blank - 2);
  return Parts;
}

void AddImperialSteps(std::u16string_view Text, std::vector<TTypedStep>& Steps) {
  const TImperialParts Parts = PartsOf(Text);
  if (Parts.Form.empty()) return;
  Steps.push_back({u"imperial form", Parts.Form});
  Steps.push_back({u"feet", Parts.Feet});
  Steps.push_back({u"inches", Parts.Inches});
  Steps.push_back({u"fraction", Parts.Fraction});
}

std::u16string_view BaseUnit(TQuantityKind Kind) {
  constexpr std::u16string_view Names[] = {u"",       u" mm",   u" mm2",   u" mm3", u" kg",
                                           u" kg/m3", u" m3/m", u" m3/m2", u" kg/m"};
  return Names[static_cast<std::size_t>(Kind)];
}

std::u16string BaseText(double Base, const TField& Field) {
  return FloatToStr(Base) + std::u16string(BaseUnit(Field.Kind));
}

} // namespace

std::u16string ValueWords(double Base, const TField& Field) {
  const std::u16string Shown = Field.Shown(Base);
  const bool IsRounded = Field.Check(Shown) && !Agree(Field.StoreBase(Shown), Base);
  return IsRounded ? BaseText(Base, Field) + u", shown as " + Shown : Shown;
}

std::u16string FacadeWords(std::u16string_view Text, double Base, const TField& Field) {
  const TImperialParts Parts = PartsOf(Text);
  if (Parts.Form.empty() || IsNumeric(Text)) return u"read as " + ValueWords(Base, Field);
  const bool NoFraction = Parts.Fraction.starts_with(u"0/");
  std::u16string Words = (Base < 0 ? u"minus " : u"") + Parts.Feet + u" feet " + Parts.Inches;
  if (!NoFraction) Words += u" " + Parts.Fraction;
  return Words + u" inches" + (Text.find(u'-', 1) != Text.npos ? u", dash read as a separator" : u"");
}

std::vector<TTypedStep> Explain(std::u16string_view Text, const TTypedReading& Reading, double Base,
                                const TField& Field) {
  std::vector<TTypedStep> Steps = {{u"typed", std::u16string(Text)}, {u"understood", Reading.Understood}};
  if (Reading.Rewritten != Text) Steps.push_back({u"rewritten", Reading.Rewritten});
  if (!Reading.HasValue) return Steps;
  const std::u16string NoSymbol = Field.Parser->RemoveSymbol(Reading.Rewritten);
  if (NoSymbol != Reading.Rewritten) Steps.push_back({u"symbol removed", NoSymbol});
  if (!IsNumeric(NoSymbol)) AddImperialSteps(Reading.Rewritten, Steps);
  Steps.push_back({u"value", BaseText(Base, Field)});
  Steps.push_back({u"shown back", Field.Shown(Base)});
  return Steps;
}

std::u16string QuantityWords(const TQuantity& Quantity, const TField& Field) {
  if (!Field.Unit || !Quantity.IsPlain()) return Quantity.Words();
  TQuantity WithUnit = Quantity;
  // A fraction without a mark counts inches, whatever the field.
  const bool Inches = Field.IsImperialLength && Quantity.Parts.front().IsFraction;
  WithUnit.Parts.front().Unit = Inches ? &UnitAt(Inch) : Field.Unit;
  return WithUnit.Words();
}

} // namespace unitlib::typing

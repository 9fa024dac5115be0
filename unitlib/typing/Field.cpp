#include "unitlib/typing/Field.h"

#include "unitlib/convert/ZELUnitConvertor.h"
#include "unitlib/model/ZELUnitConst.h"
#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"
#include "unitlib/typing/Refusal.h"

namespace unitlib::typing {
namespace {

/// Settings without a digit group show none.
bool ShowsGroupsOfFour() {
  try {
    return SameText(TSystemUnitDataManager::CurDigitGroup()->DigitGroupParserClassName,
                    u"TDigitGroup4CommaParser");
  } catch (const EListError&) {
    return false;
  }
}

} // namespace

TField::TField(int AMeasure, const TTypedOptions& AOptions)
    : Measure(AMeasure), Options(AOptions), Parser(TCommonUnitCommand(AMeasure).GetParser()) {
  if (!Parser)
    Refuse(TTypedProblem::Field, 0, u"measure " + IntToStr(Measure) + u" has no unit to read values in");
  const std::u16string& Class = Parser->GetUnit()->UnitParserClassName;
  GroupsOfFour = ShowsGroupsOfFour();
  Unit = UnitOfClass(Class);
  if (!Unit) return;
  Kind = Unit->Kind;
  IsImperialLength = IsFeetInches(Unit);
  IsDecimalFeet = IsUnit(Unit, Foot);
  IsFractional =
      SameText(Class, u"TFractionalInchParser") || SameText(Class, u"TFeetAndFractionalInchParser");
}

bool TField::TakesNames() const noexcept {
  return IsExpression() && Measure == ElevationMeasure;
}

bool TField::Check(std::u16string_view Text) const {
  return TMeasureDataManager::CheckDisplay(Measure, Text);
}

double TField::Store(std::u16string_view Text, int ScaleIndex) const {
  try {
    return TMeasureDataManager::DisplayToStore(Measure, Text, ScaleIndex);
  } catch (const EListError&) {
    throw;
  } catch (const EUnitError& Error) {
    Refuse(TTypedProblem::Range, 0, Error.Message());
  }
}

double TField::StoreBase(std::u16string_view Text) const {
  return Store(Text, BaseScale);
}

std::u16string TField::Shown(double Base) const {
  try {
    return TMeasureDataManager::StoreToDisplay(Measure, Base, BaseScale, true);
  } catch (const EUnitError&) {
    return {}; // an increment that is no number, no digit group that is current: read it can be all the same
  }
}

} // namespace unitlib::typing

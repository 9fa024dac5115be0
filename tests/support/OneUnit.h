/// A unit of one class with one rounding, for tests of a single parser.
#pragma once

#include "unitlib/convert/ZELUnitParseRegister.h"
#include "unitlib/model/UnitModel.h"

#include <memory>

namespace unitlib::test {

class TOneUnit {
public:
  explicit TOneUnit(std::u16string_view ClassName, std::u16string_view Increment = u"0.001",
                    bool CanEdit = false) {
    Unit.UnitParserClassName = ClassName;
    TRound& Round = Unit.RoundContainer.Add();
    Round.SetIncrement(Increment);
    Round.IncrementCanEdit = CanEdit;
    Unit.UnitSymbolContainer.Add().Description = u"None";
  }

  /// Adds a symbol and makes it the current one.
  TOneUnit& Symbol(std::u16string_view Description) {
    Unit.UnitSymbolContainer.Add().Description = Description;
    Unit.CurUnitSymbolIndex = Unit.UnitSymbolContainer.Count() - 1;
    return *this;
  }
  TOneUnit& NoSymbolChosen() {
    Unit.CurUnitSymbolIndex = 0;
    return *this;
  }

  std::unique_ptr<TCommonUnitParser> Parser() { return GetUnitParser(Unit.UnitParserClassName, &Unit); }
  std::u16string Show(double Value, int Scale = -1) {
    return Parser()->AsString(Value, Scale, false, false, false, false);
  }
  double Read(std::u16string_view Text, int Scale = -1) { return Parser()->AsDouble(Text, Scale); }
  bool Valid(std::u16string_view Text) { return Parser()->IsValid(Text); }

  TUnit Unit;
};

} // namespace unitlib::test

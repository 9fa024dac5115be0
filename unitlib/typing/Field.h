/// The field that a text is typed into: its measure's current unit, as the settings have it now.
#pragma once

#include "unitlib/convert/ZELUnitCommon.h"
#include "unitlib/typing/ReadTyped.h"
#include "unitlib/typing/UnitWords.h"

#include <memory>

namespace unitlib::typing {

struct TField {
  /// errors      TRefusal the measure is unknown or its unit has no parser; EListError as ReadTyped
  TField(int Measure, const TTypedOptions& Options);

  int Measure;
  TTypedOptions Options;
  std::unique_ptr<TCommonUnitParser> Parser;
  const TUnitRow* Unit = nullptr; // that a plain number counts; null for a class of the host
  TQuantityKind Kind = TQuantityKind::None;
  bool IsImperialLength = false; // feet, inches
  bool IsFractional = false;     // no decimals without a mark: 2.5 could be feet or inches
  bool IsDecimalFeet = false;
  bool GroupsOfFour = false; // of digits, as the settings show them: 1,2345

  bool IsExpression() const noexcept { return Options.Kind == TTypedKind::Expression; }
  /// One name may stand in the text, for a level of which nothing is known.
  bool TakesNames() const noexcept;

  // The facade.

  bool Check(std::u16string_view Text) const;
  /// Value of a text that Check accepts. errors      TRefusal out of range
  double Store(std::u16string_view Text, int ScaleIndex) const;
  double StoreBase(std::u16string_view Text) const;
  /// The value as it is shown, with its unit; empty where it cannot be shown.
  std::u16string Shown(double Base) const;
};

} // namespace unitlib::typing

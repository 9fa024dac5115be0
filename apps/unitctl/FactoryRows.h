/// Rows of the factory settings that stand for what a settings file should say.
#pragma once

#include "unitlib/model/DefaultConfigTables.h"
#include "unitlib/model/UnitModel.h"

namespace unitlib::app {

/// The unit with this code and description, else with this description, else with this parser class, else
/// with this code; null when none has any of them.
const defaults::TUnitRow* FactoryUnit(const TUnit& Unit);
/// The unit with exactly this code and description; null when there is none.
const defaults::TUnitRow* SameFactoryUnit(const TUnit& Unit);
/// The measure with this code and description, else with this description, else with this code; null when
/// none has.
const defaults::TMeasureRow* FactoryMeasure(const TMeasure& Measure);

/// True for the measure that the factory settings write behind another of its code and name, on purpose.
bool IsFactoryTwin(const TMeasure& Measure);

// Adds what the factory settings have.
void AddFactoryRounds(const defaults::TUnitRow& Row, TUnit& Unit);
void AddFactorySymbols(const defaults::TUnitRow& Row, TUnit& Unit);
void AddFactoryUnits(const defaults::TMeasureRow& Row, TMeasure& Measure);
/// Measures of the factory system of that description; of its metric system when it has none.
void AddFactoryMeasures(TConfig& System);
void AddFactoryGroups(TOwningList<TDigitGroup>& Groups);

/// Increment of the factory's rounding of that description; empty when there is none.
std::u16string FactoryIncrement(std::u16string_view Description);

/// Sets the six switches as the factory settings have them.
void SetFactorySwitches(const defaults::TUnitRow& Row, TUnit& Unit);

} // namespace unitlib::app

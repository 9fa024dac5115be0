#include "tests/typing/TypedFields.h"

namespace unitlib::test {
namespace {

constexpr TFieldRow Fields[] = {
    {"feet-inches", CYAmInch, 0, 1},
    {"decimal-feet", CYAmInch, 7, 0},
    {"decimal-inches", CYEnInch, 0, 2},
    {"inch-fractions", CYEnInch, 7, 3},
    {"metres", CYStandMetric, 7, 4},
    {"centimetres", CYTWMetric, 0, 5},
    {"millimetres", CYStandMetric, 0, 6},
    {"square-feet", CYAmInch, 1, 0},
    {"square-inches", CYAmInch, 1, 1},
    {"square-metres", CYStandMetric, 1, 2},
    {"cubic-yards", CYAmInch, 2, 0},
    {"cubic-feet", CYEnInch, 2, 1},
    {"cubic-metres", CYTWMetric, 2, 3},
    {"pounds", CYAmInch, 6, 0},
    {"kilograms", CYStandMetric, 6, 1},
    {"kilograms-per-cubic-metre", CYStandMetric, 4, 0},
    {"pounds-per-cubic-yard", CYAmInch, 4, 2},
    {"cubic-metres-per-metre", CYStandMetric, 5, 0},
    {"cubic-yards-per-foot", CYAmInch, 5, 2},
    {"elevation-feet", CYAmInch, 3, 1},
    {"elevation-decimal-feet", CYAmInch, 3, 0},
    {"elevation-metres", CYStandMetric, 3, 4},
    {"elevation-millimetres", CYTWMetric, 3, 6},
};

} // namespace

std::span<const TFieldRow> AllFields() {
  return Fields;
}

const TFieldRow* FindField(std::string_view Name) {
  for (const TFieldRow& Field : Fields)
    if (Field.Name == Name) return &Field;
  return nullptr;
}

TUnit& UseField(const TFieldRow& Field) {
  TSystemUnitDataManager::SetCurConfig(Field.System);
  TMeasure& Measure = *TSystemUnitDataManager::CurConfigMeasure(Field.Measure);
  Measure.CurUnitIndex = Field.Unit;
  return *Measure.GetCurUnit();
}

} // namespace unitlib::test

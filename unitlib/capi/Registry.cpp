/// Parsers that a host registers by size alone.
#include "unitlib/capi/Texts.h"
#include "unitlib/convert/ZELUnitDigitGroupParserRegister.h"
#include "unitlib/convert/ZELUnitParseRegister.h"
#include "unitlib/rtl/Text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <list>
#include <utility>

namespace unitlib::capi {
namespace {

/// The host's units: name and size in base units. A parser class is one function for all of them, which knows
/// its unit by the class name that the settings give it.
using THostUnit = std::pair<std::u16string, double>;
std::list<THostUnit> HostUnits;
std::list<std::u16string> HostDigitGroups;

/// A decimal unit of the host.
class THostUnitParser : public TCommonUnitParser {
public:
  THostUnitParser(TUnit* Unit, double Size) : TCommonUnitParser(Unit), FSize(Size) {}
  double GetScale(int ScaleIndex) const override { return FSize / GetMScale(ScaleIndex); }

private:
  double FSize;
};

std::unique_ptr<TCommonUnitParser> CreateHostUnitParser(TUnit* Unit) {
  for (const auto& [Name, Size] : HostUnits)
    if (Unit && SameText(Name, Unit->UnitParserClassName))
      return std::make_unique<THostUnitParser>(Unit, Size);
  return nullptr;
}

/// Groups of a count of digits chosen by the host.
template <int Digits> class THostDigitGroupParser : public TDigitGroup3CommaParser {
public:
  using TDigitGroup3CommaParser::TDigitGroup3CommaParser;
  int GetNum() const override { return Digits; }
};

template <int... Less>
constexpr std::array<TDigitGroupParserClass, sizeof...(Less)>
HostDigitGroupClasses(std::integer_sequence<int, Less...>) {
  return {CreateDigitGroupParser<THostDigitGroupParser<Less + 1>>...};
}
constexpr int MostDigits = 9;
constexpr auto DigitGroupClasses = HostDigitGroupClasses(std::make_integer_sequence<int, MostDigits>());

bool IsUnitParser(const std::u16string& Name) {
  TUnit Unit;
  Unit.UnitParserClassName = Name;
  return GetUnitParser(Name, &Unit) != nullptr;
}

bool IsDigitGroupParser(const std::u16string& Name) {
  const bool OfTheLibrary =
      SameText(Name, u"TDigitGroup3CommaParser") || SameText(Name, u"TDigitGroup4CommaParser");
  return OfTheLibrary || std::any_of(HostDigitGroups.begin(), HostDigitGroups.end(),
                                     [&](const std::u16string& Taken) { return SameText(Taken, Name); });
}

std::u16string RequireFreeName(std::u16string Name, bool (*IsTaken)(const std::u16string&)) {
  if (Name.empty()) FailArgument(u"A parser class needs a name");
  if (IsTaken(Name))
    throw TFailure{UL_ERROR_ARGUMENT, u"A parser class is registered as \"" + Name + u"\" already", Name};
  return Name;
}

template <class C> ul_status RegisterUnit(TIn<C> Name, double Size) {
  return Call([&] {
    const std::u16string Free = RequireFreeName(Read(Name), IsUnitParser);
    if (!std::isfinite(Size) || Size <= 0) FailArgument(u"The size of a unit must be above 0 and finite");
    HostUnits.emplace_back(Free, Size);
    RegisterUnitParser(Free, CreateHostUnitParser);
  });
}

template <class C> ul_status HasUnit(TIn<C> Name, int32_t* Present) {
  return Answer(Present, [&] { return IsUnitParser(Read(Name)); });
}

template <class C> ul_status RegisterDigitGroup(TIn<C> Name, int32_t Digits) {
  return Call([&] {
    const std::u16string Free = RequireFreeName(Read(Name), IsDigitGroupParser);
    if (Digits < 1 || Digits > MostDigits) FailArgument(u"A digit group has 1 to 9 digits");
    HostDigitGroups.push_back(Free);
    RegisterDigitGroupParser(Free, DigitGroupClasses[static_cast<size_t>(Digits - 1)]);
  });
}

template <class C> ul_status Group(TIn<C> Name, TIn<C> Text, TOut<C> Out) {
  return Give(Out, [&] { return GetDigitGroupParser(Read(Name), Read(Text))->ToStr(); });
}

} // namespace
} // namespace unitlib::capi

using namespace unitlib::capi;

ul_status UL_CALL ul_register_unit_parser(const ul_char16* name, int32_t length, double size) {
  return RegisterUnit(TIn{name, length}, size);
}
ul_status UL_CALL ul_register_unit_parser_u8(const char* name, int32_t length, double size) {
  return RegisterUnit(TIn{name, length}, size);
}
ul_status UL_CALL ul_has_unit_parser(const ul_char16* name, int32_t length, int32_t* present) {
  return HasUnit(TIn{name, length}, present);
}
ul_status UL_CALL ul_has_unit_parser_u8(const char* name, int32_t length, int32_t* present) {
  return HasUnit(TIn{name, length}, present);
}
ul_status UL_CALL ul_register_digit_group_parser(const ul_char16* name, int32_t length, int32_t digits) {
  return RegisterDigitGroup(TIn{name, length}, digits);
}
ul_status UL_CALL ul_register_digit_group_parser_u8(const char* name, int32_t length, int32_t digits) {
  return RegisterDigitGroup(TIn{name, length}, digits);
}
ul_status UL_CALL ul_group_digits(const ul_char16* name, int32_t name_length, const ul_char16* text,
                                  int32_t length, ul_char16* buffer, int32_t capacity, int32_t* needed) {
  return Group(TIn{name, name_length}, TIn{text, length}, TOut(buffer, capacity, needed));
}
ul_status UL_CALL ul_group_digits_u8(const char* name, int32_t name_length, const char* text, int32_t length,
                                     char* buffer, int32_t capacity, int32_t* needed) {
  return Group(TIn{name, name_length}, TIn{text, length}, TOut(buffer, capacity, needed));
}

/// What became of a call: its result, or how it was refused.
#pragma once

#include "fuzz/Check.h"
#include "fuzz/slow/Units.h"
#include "unitlib/rtl/Errors.h"

#include <optional>

namespace unitlib::fuzz {

template <class T> struct TOutcome {
  std::optional<T> Value;
  const char* Refusal = ""; // the error's name; empty: none
};

/// errors      none but those of the family: everything else ends the process
template <class TCall> auto LibraryOutcome(TCall Call) -> TOutcome<decltype(Call())> {
  try {
    return {Call(), ""};
  } catch (const EConvertError&) {
    return {std::nullopt, "EConvertError"};
  } catch (const ERangeError&) {
    return {std::nullopt, "ERangeError"};
  } catch (const EListError&) {
    return {std::nullopt, "EListError"};
  }
}

template <class TCall> auto OracleOutcome(TCall Call) -> TOutcome<decltype(Call())> {
  try {
    return {Call(), ""};
  } catch (const slow::TRefused& Refused) {
    constexpr const char* Names[] = {"EConvertError", "ERangeError", "EListError"};
    return {std::nullopt, Names[static_cast<int>(Refused.Kind)]};
  }
}

/// True when both have a value.
template <class T, class U, class G>
bool RequireSameRefusal(std::string_view What, const G& Given, const TOutcome<T>& Library,
                        const TOutcome<U>& Wanted) {
  RequireSame("the error of " + std::string(What), Given, std::string(Library.Refusal),
              std::string(Wanted.Refusal));
  return Library.Value.has_value();
}

} // namespace unitlib::fuzz

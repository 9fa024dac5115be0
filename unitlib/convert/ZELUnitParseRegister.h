/// The parser registry: from class names in the settings file to the parser classes of the library and the
/// host.
#pragma once

#include "unitlib/convert/ZELUnitCommon.h"

#include <memory>
#include <string_view>

namespace unitlib {

/// Makes a parser of one class for a unit.
using TUnitParserClass = std::unique_ptr<TCommonUnitParser> (*)(TUnit* Unit);

/// The factory of class T, to be registered.
template <class T> std::unique_ptr<TCommonUnitParser> CreateUnitParser(TUnit* Unit) {
  return std::make_unique<T>(Unit);
}

/// Registers a class: RegisterUnitParser(u"TMyParser", CreateUnitParser<TMyParser>). A name that is
/// registered already, in any letter case, keeps its first class. Call it before conversions start; the
/// registry is not locked.
void RegisterUnitParser(std::u16string_view Name, TUnitParserClass Class);

/// A parser of the class registered under Name (letter case does not matter) for Unit; null when there is
/// none.
/// errors      EListError Unit is null
std::unique_ptr<TCommonUnitParser> GetUnitParser(std::u16string_view Name, TUnit* Unit);

/// Start-up and shut-down of the package; see ZELUnitPackage.h.
void CreateUnitParserRegistry();
void FreeUnitParserRegistry() noexcept;

} // namespace unitlib

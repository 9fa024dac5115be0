/// The parser registry: from class names in the settings file to the parser classes of the library and the
/// host.
#pragma once

#include "unitlib/convert/ZELUnitCommon.h"

#include <cstddef>
#include <memory>
#include <new>
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

/// Makes a parser in Room, which has place for a TCommonUnitParser.
using TUnitParserPlacer = TCommonUnitParser* (*)(void* Room, TUnit* Unit);

/// The same for a class that holds nothing beside its base.
template <class T> TCommonUnitParser* PlaceUnitParser(void* Room, TUnit* Unit) {
  static_assert(sizeof(T) == sizeof(TCommonUnitParser) && alignof(T) == alignof(TCommonUnitParser));
  return ::new (Room) T(Unit);
}

/// Registers a class that can be made in place, too.
void RegisterUnitParser(std::u16string_view Name, TUnitParserClass Class, TUnitParserPlacer Placer);

/// The parser that GetUnitParser gives for the class of a unit, for one call: one of the library is made in
/// here instead of on the heap, a tenth to a fifth less time for a conversion.
class TUnitParserHere {
public:
  /// No parser when there is no unit, or no class of that name.
  explicit TUnitParserHere(TUnit* Unit);
  ~TUnitParserHere() {
    if (FParser && !FOwned) FParser->~TCommonUnitParser();
  }
  TUnitParserHere(const TUnitParserHere&) = delete;
  TUnitParserHere& operator=(const TUnitParserHere&) = delete;

  explicit operator bool() const noexcept { return FParser != nullptr; }
  const TCommonUnitParser* operator->() const noexcept { return FParser; }

private:
  alignas(TCommonUnitParser) std::byte FRoom[sizeof(TCommonUnitParser)];
  std::unique_ptr<TCommonUnitParser> FOwned; // of a class of the host
  TCommonUnitParser* FParser = nullptr;
};

/// Start-up and shut-down of the package; see ZELUnitPackage.h.
void CreateUnitParserRegistry();
void FreeUnitParserRegistry() noexcept;

} // namespace unitlib

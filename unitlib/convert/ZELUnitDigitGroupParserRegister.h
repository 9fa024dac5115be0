/// The digit-group registry: from class names in the settings file to the classes that group digits.
#pragma once

#include "unitlib/convert/ZELUnitDigitGroupParser.h"

#include <memory>
#include <string_view>

namespace unitlib {

/// Makes a digit-group parser of one class for a number text.
using TDigitGroupParserClass = std::unique_ptr<TDigitGroupParser> (*)(std::u16string_view AText);

template <class T> std::unique_ptr<TDigitGroupParser> CreateDigitGroupParser(std::u16string_view AText) {
  return std::make_unique<T>(AText);
}

/// Registers a class under a name; a name that is registered already, in any letter case, keeps its first
/// class.
void RegisterDigitGroupParser(std::u16string_view AName, TDigitGroupParserClass AClass);

/// A parser of the class registered under AName (letter case does not matter) for AText. Never null: an
/// unknown name, an empty one too, gives the base class, which groups nothing.
std::unique_ptr<TDigitGroupParser> GetDigitGroupParser(std::u16string_view AName, std::u16string_view AText);

/// Digits per group of the library's own class registered under AName; 0 for a class of the host, an unknown
/// name and a name whose registration the host came first with. Spares the object where nothing but the size
/// is needed.
int LibraryGroupSize(std::u16string_view AName) noexcept;

/// Start-up (registers the classes of the library) and shut-down of the package; see ZELUnitPackage.h.
void CreateDigitGroupParserRegistry();
void FreeDigitGroupParserRegistry() noexcept;

} // namespace unitlib

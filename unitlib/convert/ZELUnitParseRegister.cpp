#include "unitlib/convert/ZELUnitParseRegister.h"

#include "unitlib/ZELUnitPackage.h"
#include "unitlib/rtl/ClassRegistry.h"

namespace unitlib {
namespace {

TClassRegistry<TUnitParserClass>* Registry = nullptr;

[[gnu::used]] constexpr TPackageAnchor Anchor = LoadUnitPackage;

} // namespace

void RegisterUnitParser(std::u16string_view Name, TUnitParserClass Class) {
  if (Registry) Registry->Register(Name, Class);
}

std::unique_ptr<TCommonUnitParser> GetUnitParser(std::u16string_view Name, TUnit* Unit) {
  const TUnitParserClass Class = Registry ? Registry->Find(Name) : nullptr;
  return Class ? Class(Unit) : nullptr;
}

void CreateUnitParserRegistry() {
  if (!Registry) Registry = new TClassRegistry<TUnitParserClass>;
}

void FreeUnitParserRegistry() noexcept {
  delete Registry;
  Registry = nullptr;
}

} // namespace unitlib

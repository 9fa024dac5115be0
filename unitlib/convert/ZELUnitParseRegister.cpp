#include "unitlib/convert/ZELUnitParseRegister.h"

#include "unitlib/ZELUnitPackage.h"
#include "unitlib/rtl/ClassRegistry.h"

namespace unitlib {
namespace {

struct TMakers {
  TUnitParserClass Class = nullptr;
  TUnitParserPlacer Placer = nullptr; // null: only on the heap

  explicit operator bool() const noexcept { return Class != nullptr; }
};

TClassRegistry<TMakers>* Registry = nullptr;

TMakers FindMakers(std::u16string_view Name) noexcept {
  return Registry ? Registry->Find(Name) : TMakers{};
}

[[gnu::used]] constexpr TPackageAnchor Anchor = LoadUnitPackage;

} // namespace

void RegisterUnitParser(std::u16string_view Name, TUnitParserClass Class) {
  RegisterUnitParser(Name, Class, nullptr);
}

void RegisterUnitParser(std::u16string_view Name, TUnitParserClass Class, TUnitParserPlacer Placer) {
  if (Registry) Registry->Register(Name, {Class, Placer});
}

std::unique_ptr<TCommonUnitParser> GetUnitParser(std::u16string_view Name, TUnit* Unit) {
  const TUnitParserClass Class = FindMakers(Name).Class;
  return Class ? Class(Unit) : nullptr;
}

TUnitParserHere::TUnitParserHere(TUnit* Unit) {
  const TMakers Makers = Unit ? FindMakers(Unit->UnitParserClassName) : TMakers{};
  if (Makers.Placer) {
    FParser = Makers.Placer(FRoom, Unit);
  } else if (Makers.Class) {
    FOwned = Makers.Class(Unit);
    FParser = FOwned.get();
  }
}

void CreateUnitParserRegistry() {
  if (!Registry) Registry = new TClassRegistry<TMakers>;
}

void FreeUnitParserRegistry() noexcept {
  delete Registry;
  Registry = nullptr;
}

} // namespace unitlib

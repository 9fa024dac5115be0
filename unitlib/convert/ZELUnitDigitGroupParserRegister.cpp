#include "unitlib/convert/ZELUnitDigitGroupParserRegister.h"

#include "unitlib/ZELUnitPackage.h"
#include "unitlib/rtl/ClassRegistry.h"

#include <utility>

namespace unitlib {
namespace {

TClassRegistry<TDigitGroupParserClass>* Registry = nullptr;

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
  const TDigitGroupParserClass Class = Registry ? Registry->Find(AName) : nullptr;
  if (Class == CreateDigitGroupParser<TDigitGroup3CommaParser>) return 3;
  return Class == CreateDigitGroupParser<TDigitGroup4CommaParser> ? 4 : 0;
}

void CreateDigitGroupParserRegistry() {
  if (Registry) return;
  Registry = new TClassRegistry<TDigitGroupParserClass>;
  RegisterDigitGroupParser(u"TDigitGroup3CommaParser", CreateDigitGroupParser<TDigitGroup3CommaParser>);
  RegisterDigitGroupParser(u"TDigitGroup4CommaParser", CreateDigitGroupParser<TDigitGroup4CommaParser>);
}

void FreeDigitGroupParserRegistry() noexcept {
  delete Registry;
  Registry = nullptr;
}

} // namespace unitlib

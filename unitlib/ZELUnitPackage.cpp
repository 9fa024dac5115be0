#include "unitlib/ZELUnitPackage.h"

#include "unitlib/convert/ZELUnitCommon.h"
#include "unitlib/convert/ZELUnitDigitGroupParserRegister.h"
#include "unitlib/convert/ZELUnitParseRegister.h"
#include "unitlib/notify/ZELUnitRefreshUtils.h"

namespace unitlib {

void LoadUnitPackage() {
  CreateDigitGroupParserRegistry();
  CreateUnitParserRegistry();
  RegisterUnitParsers();
  CreateUnitRefreshManager();
}

void UnloadUnitPackage() noexcept {
  FreeUnitRefreshManager();
  FreeUnitParserRegistry();
  FreeDigitGroupParserRegistry();
}

namespace {

/// Runs the start-up when the program or the shared library that holds this file is loaded.
struct TPackageLife {
  TPackageLife() { LoadUnitPackage(); }
  ~TPackageLife() { UnloadUnitPackage(); }
} PackageLife;

} // namespace
} // namespace unitlib

/// The one operation of the data manager that needs the conversions above it; it stands here so that no
/// include of the model points up.
#include "unitlib/convert/ZELUnitConvertor.h"
#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/rtl/Numbers.h"

#include <exception>

namespace unitlib {

void TSystemUnitDataManager::UpdateDispalyValue() {
  std::exception_ptr FirstError;
  for (const auto& Measure : CurConfig()->MeasureContainer) {
    try {
      Measure->ExampleDisplayValue = TMeasureDataManager::StoreToDisplay(
          Measure->ClassifyCode, StrToFloat(Measure->ExampleValue), BaseScale);
    } catch (const EUnitError&) {
      Measure->ExampleDisplayValue.clear();
      if (!FirstError) FirstError = std::current_exception();
    }
  }
  if (FirstError) std::rethrow_exception(FirstError);
}

} // namespace unitlib

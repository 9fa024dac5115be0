#include "unitlib/ui/UiTexts.h"

#include "unitlib/rtl/UserTexts.h"

namespace unitlib {
namespace {

constexpr bool InOrder() {
  for (size_t I = 0; I < UiTexts.size(); ++I)
    if (static_cast<size_t>(UiTexts[I].Id) != I) return false;
  return true;
}
static_assert(InOrder());

} // namespace

std::u16string UiText(TUiText Id) {
  const TUiTextRow& Row = UiTexts[static_cast<size_t>(Id)];
  return Row.Key.empty() ? std::u16string(Row.English) : UserText(Row.Key, Row.English);
}

} // namespace unitlib

#include "unitlib/rtl/OwningList.h"

#include "unitlib/rtl/Numbers.h"

namespace unitlib {

void RaiseListIndex(int Index) {
  const std::u16string Text = IntToStr(Index);
  throw EListError(u"List index out of bounds (" + Text + u")", Text);
}

void RaiseNullItem() {
  throw EListError(u"A list takes no item that is null", u"");
}

} // namespace unitlib

#include "apps/unitctl/Texts.h"

#include "apps/common/Utf8.h"
#include "unitlib/rtl/Text.h"
#include "unitlib/rtl/UserTexts.h"

#include <vector>

namespace unitlib::app {

std::string FilledText(const TTextRow& Row, const std::string_view* Values, std::size_t Count) {
  const std::u16string Text = UserText(FromUtf8(Row.Key), FromUtf8(Row.English));
  std::vector<std::u16string> Filled;
  for (std::size_t I = 0; I < Count; ++I) Filled.push_back(FromUtf8(Values[I]));
  return ToUtf8(FillText(Text, Filled));
}

void LoadTexts(std::string_view Path) {
  LoadTextTable(FromTerminal(Path));
}

} // namespace unitlib::app

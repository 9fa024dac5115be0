#include "unitlib/rtl/Errors.h"

#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"

namespace unitlib {
namespace {

std::u16string PlaceText(std::u16string_view Problem, const EXmlError::TPlace& Place) {
  std::u16string Result = Place.Path;
  if (Place.Line > 0) Result.append(u":").append(IntToStr(Place.Line)); // GCC 12 warns of +
  if (!Result.empty()) Result += u": ";
  Result += Problem;
  if (!Place.Attribute.empty()) Result += u", attribute \"" + Place.Attribute + u"\"";
  if (!Place.Element.empty()) Result += u" of element \"" + Place.Element + u"\"";
  return Result;
}

} // namespace

EUnitError::EUnitError(std::u16string Message, std::u16string_view Text)
    : std::runtime_error(ToUtf8(Message)), FMessage(std::move(Message)), FText(Text) {}

EFileError::EFileError(std::u16string_view Message, std::u16string_view Path, std::u16string_view Cause)
    : EUnitError(std::u16string(Path) + u": " + std::u16string(Message) + (Cause.empty() ? u"" : u": ") +
                     std::u16string(Cause),
                 Cause),
      FPath(Path) {}

EXmlError::EXmlError(std::u16string_view Problem, TPlace Place, std::u16string_view Text)
    : EUnitError(PlaceText(Problem, Place), Text), FPlace(std::move(Place)) {}

} // namespace unitlib

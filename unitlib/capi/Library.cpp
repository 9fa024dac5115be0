/// Version and last error.
#include "unitlib/capi/Texts.h"

namespace unitlib::capi {
namespace {

constexpr int32_t Major = UNITLIB_VERSION_MAJOR, Minor = UNITLIB_VERSION_MINOR, Patch = UNITLIB_VERSION_PATCH;

/// The text of the last error. Its own failures must not replace that error, so they are only returned.
template <class C> ul_status LastErrorText(int32_t Part, TOut<C> Out) noexcept {
  try {
    RequireCode(Part, TErrorRecord::TextCount, u"part of an error");
    const TErrorRecord* const Record = FindLastError();
    return Out.Write(Record ? Record->Texts[static_cast<size_t>(Part)] : std::u16string(),
                     TOnFailure::JustReturn);
  } catch (const TFailure& Failure) {
    return Failure.Status;
  } catch (...) {
    return UL_ERROR_MEMORY;
  }
}

} // namespace
} // namespace unitlib::capi

using namespace unitlib::capi;

ul_status UL_CALL ul_version(int32_t* major, int32_t* minor, int32_t* patch) {
  return Call([&] {
    int32_t &ToMajor = Result(major), &ToMinor = Result(minor), &ToPatch = Result(patch);
    ToMajor = Major;
    ToMinor = Minor;
    ToPatch = Patch;
  });
}

ul_status UL_CALL ul_last_error(ul_error* error) {
  if (!error) return UL_ERROR_ARGUMENT;
  const TErrorRecord* const Record = FindLastError();
  *error = Record ? Record->Info : TErrorRecord().Info;
  return UL_OK;
}

ul_status UL_CALL ul_last_error_text(int32_t part, ul_char16* buffer, int32_t capacity, int32_t* needed) {
  return LastErrorText(part, TOut(buffer, capacity, needed));
}

ul_status UL_CALL ul_last_error_text_u8(int32_t part, char* buffer, int32_t capacity, int32_t* needed) {
  return LastErrorText(part, TOut(buffer, capacity, needed));
}

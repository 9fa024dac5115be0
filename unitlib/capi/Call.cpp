#include "unitlib/capi/Call.h"

#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Text.h"

#include <new>
#include <typeinfo>

namespace unitlib::capi {
namespace {

TErrorRecord Describe(ul_status Status, std::u16string Message, std::u16string Text = {}) {
  TErrorRecord Record;
  Record.Info.code = Status;
  Record.Texts[UL_LAST_MESSAGE] = std::move(Message);
  Record.Texts[UL_LAST_TEXT] = std::move(Text);
  return Record;
}

TErrorRecord Describe(TFailure&& Failure) {
  TErrorRecord Record = Describe(Failure.Status, std::move(Failure.Message), std::move(Failure.Text));
  Record.Info.position = Failure.Position;
  return Record;
}

TErrorRecord Describe(ul_status Status, const EUnitError& Error) {
  return Describe(Status, Error.Message(), Error.Text());
}

TErrorRecord Describe(const EFileError& Error) {
  TErrorRecord Record = Describe(UL_ERROR_FILE, Error);
  Record.Texts[UL_LAST_PATH] = Error.Path();
  return Record;
}

TErrorRecord Describe(const EXmlError& Error) {
  TErrorRecord Record = Describe(UL_ERROR_XML, Error);
  Record.Info.line = Error.Line();
  Record.Texts[UL_LAST_PATH] = Error.Path();
  Record.Texts[UL_LAST_ELEMENT] = Error.Element();
  Record.Texts[UL_LAST_ATTRIBUTE] = Error.Attribute();
  return Record;
}

/// Lists are absent while nothing is loaded, which a host wants to tell from a wrong position.
ul_status StatusOfListError() noexcept {
  return TSystemUnitDataManager::FCurUseUnitConfigContainer ? UL_ERROR_INDEX : UL_ERROR_NOT_LOADED;
}

} // namespace

void FailArgument(std::u16string Message) {
  throw TFailure{UL_ERROR_ARGUMENT, std::move(Message)};
}

TErrorRecord DescribeException() {
  try {
    throw;
  } catch (TFailure& Failure) {
    return Describe(std::move(Failure));
  } catch (const EListError& Error) {
    return Describe(StatusOfListError(), Error);
  } catch (const EConvertError& Error) {
    return Describe(UL_ERROR_CONVERT, Error);
  } catch (const ERangeError& Error) {
    return Describe(UL_ERROR_RANGE, Error);
  } catch (const EFileError& Error) {
    return Describe(Error);
  } catch (const EXmlError& Error) {
    return Describe(Error);
  } catch (const std::bad_alloc&) {
    return Describe(UL_ERROR_MEMORY, u"Out of memory");
  } catch (const std::exception& Error) {
    return Describe(UL_ERROR_UNEXPECTED, FromUtf8(Error.what()));
  } catch (...) {
    return Describe(UL_ERROR_UNEXPECTED, u"A listener or callback has raised an exception");
  }
}

ul_status KeepException(int32_t Item) noexcept {
  try {
    TErrorRecord Record = DescribeException();
    const ul_status Status = Record.Info.code;
    Record.Info.item = Item;
    KeepLastError(std::move(Record));
    return Status;
  } catch (...) { // no memory for the texts
    return UL_ERROR_MEMORY;
  }
}

ul_status KeepFailure(TFailure Failure) noexcept {
  const ul_status Status = Failure.Status;
  KeepLastError(Describe(std::move(Failure)));
  return Status;
}

} // namespace unitlib::capi

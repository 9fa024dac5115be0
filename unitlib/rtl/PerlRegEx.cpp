#include "unitlib/rtl/PerlRegEx.h"

#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Text.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>

namespace unitlib {
namespace {

/// Memory of one match on the caller's stack. A buffer kept per thread would need a thread-exit handler,
/// which must not outlive an unloaded library; a buffer per call from the heap costs as much as the match
/// itself.
struct TArena {
  alignas(std::max_align_t) unsigned char Bytes[1024];
  size_t Used = 0;

  bool Owns(const void* Memory) const { return Memory >= Bytes && Memory < Bytes + sizeof Bytes; }
};

void* TakeMemory(size_t Size, void* Arena) {
  auto& Place = *static_cast<TArena*>(Arena);
  const size_t Rounded =
      (Size + alignof(std::max_align_t) - 1) / alignof(std::max_align_t) * alignof(std::max_align_t);
  if (Rounded > sizeof Place.Bytes - Place.Used) return std::malloc(Size);
  void* Memory = Place.Bytes + Place.Used;
  Place.Used += Rounded;
  return Memory;
}

void GiveMemory(void* Memory, void* Arena) {
  if (!static_cast<TArena*>(Arena)->Owns(Memory)) std::free(Memory);
}

/// Subject as UTF-8: short ASCII texts, nearly all there are, need no memory from the heap.
class TUtf8Subject {
public:
  explicit TUtf8Subject(std::u16string_view Text) {
    const bool Plain = Text.size() <= sizeof FShort &&
                       std::all_of(Text.begin(), Text.end(), [](char16_t C) { return C < 0x80; });
    if (Plain) {
      std::transform(Text.begin(), Text.end(), FShort,
                     [](char16_t C) { return static_cast<unsigned char>(C); });
      FSize = Text.size();
    } else {
      FLong = ToUtf8(Text);
      FSize = FLong.size();
      FData = reinterpret_cast<const unsigned char*>(FLong.data());
    }
  }
  const unsigned char* Data() const { return FData; }
  size_t Size() const { return FSize; }

private:
  unsigned char FShort[128];
  std::string FLong;
  const unsigned char* FData = FShort;
  size_t FSize = 0;
};

} // namespace

struct TPerlRegEx::TSpan {
  bool Found = false;
  bool IsWhole = false;
};

TPerlRegEx::TPerlRegEx(std::u16string_view Pattern, bool IgnoreCase) {
  const std::string Utf8 = ToUtf8(Pattern);
  int Error = 0;
  PCRE2_SIZE Offset = 0;
  const uint32_t Options = PCRE2_UTF | (IgnoreCase ? PCRE2_CASELESS : 0);
  pcre2_code* Code = pcre2_compile(reinterpret_cast<PCRE2_SPTR>(Utf8.data()), Utf8.size(), Options, &Error,
                                   &Offset, nullptr);
  if (!Code && Error == PCRE2_ERROR_HEAP_FAILED) throw std::bad_alloc();
  if (!Code) throw EConvertError(u"Not a regular expression: " + std::u16string(Pattern), Pattern);
  pcre2_jit_compile(Code, PCRE2_JIT_COMPLETE); // where it fails the interpreter does the same, slower
  FCode = Code;
}

TPerlRegEx::~TPerlRegEx() {
  pcre2_code_free(static_cast<pcre2_code*>(FCode));
}

TPerlRegEx::TSpan TPerlRegEx::FirstMatch(std::u16string_view Subject) const {
  const TUtf8Subject Utf8(Subject);
  TArena Arena;
  const std::unique_ptr<pcre2_general_context, decltype(&pcre2_general_context_free)> Context(
      pcre2_general_context_create(TakeMemory, GiveMemory, &Arena), pcre2_general_context_free);
  const std::unique_ptr<pcre2_match_data, decltype(&pcre2_match_data_free)> Data(
      pcre2_match_data_create(1, Context.get()), pcre2_match_data_free);
  const int Result = pcre2_match(static_cast<const pcre2_code*>(FCode), Utf8.Data(), Utf8.Size(), 0,
                                 PCRE2_NO_UTF_CHECK, Data.get(), nullptr);
  if (Result == PCRE2_ERROR_NOMEMORY) throw std::bad_alloc();
  if (Result < 0) return {};
  const PCRE2_SIZE* Span = pcre2_get_ovector_pointer(Data.get());
  return {true, Span[0] == 0 && Span[1] == Utf8.Size()};
}

bool TPerlRegEx::Match(std::u16string_view Subject) const {
  return FirstMatch(Subject).Found;
}
bool TPerlRegEx::MatchesWhole(std::u16string_view Subject) const {
  return FirstMatch(Subject).IsWhole;
}

} // namespace unitlib

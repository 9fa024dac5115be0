/// Every function of the list, and arguments for it taken at random from small pools that mix right and
/// wrong.
#pragma once

#include "unitlib/capi/unitlib.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <map>
#include <random>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

namespace capi_test {

/// Sizes up to which random arguments may go: every buffer holds this many items, and no length is larger.
inline constexpr int32_t Most = 4095;

inline void UL_CALL Listen(void*) {}
inline int32_t UL_CALL Lock(void*, const char16_t*, int32_t, int32_t) {
  return 1;
}
inline int32_t UL_CALL Lock8(void*, const char*, int32_t, int32_t) {
  return 1;
}

/// Arguments of every type that occurs, from small pools that mix right and wrong.
class TArguments {
public:
  explicit TArguments(unsigned Seed) : FRandom(Seed) {
    for (size_t I = 0; I < FTexts.size(); ++I) {
      FTexts8[I].assign(Most + 1, '\0');
      FTexts16[I].assign(Most + 1, u'\0');
      std::copy(FTexts[I].begin(), FTexts[I].end(), FTexts8[I].begin());
      std::transform(FTexts[I].begin(), FTexts[I].end(), FTexts16[I].begin(),
                     [](char C) { return static_cast<char16_t>(static_cast<unsigned char>(C)); });
    }
    for (int32_t I = 0; I <= Most; ++I) FOffsetsIn.push_back(I / 2);
  }

  template <class T> T Take() {
    if constexpr (std::is_same_v<T, int32_t>) {
      return Pick<int32_t>({INT32_MIN, -2, -1, 0, 0, 1, 2, 3, 4, 5, 6, 7, 16, 99, 300, Most});
    } else if constexpr (std::is_same_v<T, uint32_t>) {
      return Pick<uint32_t>({0, 0, 1, 31, 32, 0xFFFFFFFFU});
    } else if constexpr (std::is_same_v<T, double>) {
      const double Inf = std::numeric_limits<double>::infinity();
      return Pick<double>({0, -0.0, 1, 1676.4, -25.4, 1e-300, 1e300, Inf, -Inf, std::nan("")});
    } else if constexpr (std::is_same_v<T, const char*>) {
      return Pick<const char*>({nullptr, Text(FTexts8).data(), Text(FTexts8).data(), Text(FTexts8).data()});
    } else if constexpr (std::is_same_v<T, const char16_t*>) {
      return Pick<const char16_t*>({nullptr, Text(FTexts16).data(), Text(FTexts16).data()});
    } else if constexpr (std::is_same_v<T, const int32_t*>) {
      return Pick<const int32_t*>({nullptr, FOffsetsIn.data(), FOffsetsIn.data()});
    } else if constexpr (std::is_same_v<T, ul_callback>) {
      return Pick<ul_callback>({nullptr, &Listen});
    } else if constexpr (std::is_same_v<T, ul_lock_file>) {
      return Pick<ul_lock_file>({nullptr, &Lock});
    } else if constexpr (std::is_same_v<T, ul_lock_file_u8>) {
      return Pick<ul_lock_file_u8>({nullptr, &Lock8});
    } else { // a place for results
      return Pick<T>({nullptr, reinterpret_cast<T>(FResults[FNext].data()),
                      reinterpret_cast<T>(FResults[FNext].data())});
    }
  }
  void NextResult() { FNext = (FNext + 1) % FResults.size(); }

private:
  template <class T> T Pick(std::initializer_list<T> Pool) {
    return *(Pool.begin() + std::uniform_int_distribution<size_t>(0, Pool.size() - 1)(FRandom));
  }
  template <class T> const T& Text(const T* Pool, size_t Size) {
    return Pool[std::uniform_int_distribution<size_t>(0, Size - 1)(FRandom)];
  }
  template <class T, size_t N> const T& Text(const std::array<T, N>& Pool) { return Text(Pool.data(), N); }

  static constexpr size_t TextCount = 8;
  static inline const std::array<std::string, TextCount> FTexts = {
      "", "5'6\"", "12.5", "Square meters", "own.xml", "1+(2*3", "\xFF\xC0", "TSquareFootParser"};

  std::mt19937 FRandom;
  std::array<std::string, TextCount> FTexts8;
  std::array<std::u16string, TextCount> FTexts16;
  std::vector<int32_t> FOffsetsIn;
  // One block per result of a call, so that none overlaps another; each holds Most doubles.
  std::array<std::vector<double>, 6> FResults{std::vector<double>(Most + 2), std::vector<double>(Most + 2),
                                              std::vector<double>(Most + 2), std::vector<double>(Most + 2),
                                              std::vector<double>(Most + 2), std::vector<double>(Most + 2)};
  size_t FNext = 0;
};

template <class... A> ul_status CallAtRandom(ul_status(UL_CALL* Function)(A...), TArguments& Arguments) {
  const std::tuple<A...> Taken{(Arguments.NextResult(), Arguments.Take<A>())...};
  return std::apply(Function, Taken);
}

template <class... A> ul_status CallWithNothing(ul_status(UL_CALL* Function)(A...)) {
  return Function(A{}...);
}

template <class T>
inline constexpr bool IsResult =
    std::is_pointer_v<T> && !std::is_const_v<std::remove_pointer_t<T>> &&
    !std::is_void_v<std::remove_pointer_t<T>> && !std::is_function_v<std::remove_pointer_t<T>>;

/// One function as the tests below call it.
struct TFunction {
  std::function<ul_status()> WithNothing;
  std::function<ul_status(TArguments&)> AtRandom;
  bool HasResult;
};

template <class... A> TFunction Describe(ul_status(UL_CALL* Function)(A...)) {
  return {[=] { return CallWithNothing(Function); },
          [=](TArguments& Arguments) { return CallAtRandom(Function, Arguments); }, (IsResult<A> || ...)};
}

inline std::map<std::string, TFunction> AllFunctions() {
  std::map<std::string, TFunction> All;
#define UL_FUNCTION(name) All.emplace(#name, Describe(&name));
#include "all_functions.h"
#undef UL_FUNCTION
  int32_t Available = 0;
  ul_dialogs_available(&Available);
  if (Available) { // they would open, and wait for somebody
    All.erase("ul_project_units_dialog");
    All.erase("ul_project_units_dialog_u8");
  }
  return All;
}

inline bool IsKnown(ul_status Status) {
  return Status >= UL_OK && Status <= UL_ERROR_UNEXPECTED;
}

} // namespace capi_test

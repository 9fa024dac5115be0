#include "apps/common/NearestName.h"

#include <algorithm>
#include <tuple>

namespace unitlib::app {
namespace {

/// A longer typed name is compared by its beginning only, so that the cost stays small.
constexpr std::size_t LongestCompared = 100;

std::string Folded(std::string_view Text) {
  std::string Result(Text.substr(0, LongestCompared));
  for (char& C : Result)
    if (C >= 'A' && C <= 'Z') C = static_cast<char>(C + ('a' - 'A'));
  return Result;
}

/// Fewest changes that make Typed equal to a part of Known that may start anywhere (FreeStart) and end
/// anywhere (FreeEnd).
std::size_t Distance(const std::string& Typed, const std::string& Known, bool FreeStart, bool FreeEnd) {
  std::vector<std::size_t> Row(Known.size() + 1);
  for (std::size_t J = 0; J < Row.size(); ++J) Row[J] = FreeStart ? 0 : J;
  for (std::size_t I = 1; I <= Typed.size(); ++I) {
    std::size_t Diagonal = Row[0];
    Row[0] = I;
    for (std::size_t J = 1; J < Row.size(); ++J) {
      const std::size_t Changed = Diagonal + (Typed[I - 1] == Known[J - 1] ? 0 : 1);
      Diagonal = Row[J];
      Row[J] = std::min({Changed, Row[J] + 1, Row[J - 1] + 1});
    }
  }
  return FreeEnd ? *std::min_element(Row.begin(), Row.end()) : Row.back();
}

} // namespace

std::size_t NearestName(std::string_view Typed, const std::vector<std::string>& Known) {
  const std::string Wanted = Folded(Typed);
  const auto Rank = [&Wanted](const std::string& Name) {
    const std::string Candidate = Folded(Name);
    const std::size_t AtStart = Distance(Wanted, Candidate, false, true);
    const std::size_t Inside = Distance(Wanted, Candidate, true, true);
    return std::tuple(std::min(AtStart, Inside + 1), Distance(Wanted, Candidate, false, false));
  };
  const auto Best = std::min_element(Known.begin(), Known.end(),
                                     [&Rank](const auto& A, const auto& B) { return Rank(A) < Rank(B); });
  return static_cast<std::size_t>(Best - Known.begin());
}

} // namespace unitlib::app

/// How the parts of the typed reader give up: thrown inside the layer, never out of it.
#pragma once

#include "unitlib/typing/ReadTyped.h"

namespace unitlib::typing {

struct TRefusal {
  TTypedProblem Problem = TTypedProblem::None;
  std::u16string Reason;
  std::size_t Offset = 0;
  std::size_t OfferBegin = 0; // what the offers stand for, in the text
  std::size_t OfferEnd = 0;
  std::vector<std::u16string> Offers;
};

[[noreturn]] void Refuse(TTypedProblem Problem, std::size_t Offset, std::u16string Reason);
/// With texts to type instead of a part of the text.
[[noreturn]] void Refuse(TTypedProblem Problem, std::size_t Offset, std::u16string Reason,
                         std::size_t OfferBegin, std::size_t OfferEnd, std::vector<std::u16string> Offers);

} // namespace unitlib::typing

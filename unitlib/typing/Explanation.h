/// How a text was read, step by step and in words.
#pragma once

#include "unitlib/typing/Quantity.h"

namespace unitlib::typing {

/// The steps from the typed text to the value and back: symbol removed, imperial form, feet, inches,
/// fraction, value, shown back.
std::vector<TTypedStep> Explain(std::u16string_view Text, const TTypedReading& Reading, double Base,
                                const TField& Field);

/// Words for a text that only the facade reads: "5 feet 6 inches" for 5-6.
std::u16string FacadeWords(std::u16string_view Text, double Base, const TField& Field);

/// The value as the field shows it, and the exact one before it where showing rounds: "2.5 mm, shown as 3 mm".
std::u16string ValueWords(double Base, const TField& Field);

/// "10 feet 6 inches"; a plain number with the unit that it counts in the field.
std::u16string QuantityWords(const TQuantity& Quantity, const TField& Field);

} // namespace unitlib::typing

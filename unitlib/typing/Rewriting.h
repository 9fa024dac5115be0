/// Quantities in the facade's grammar, and their values from the facade and its parsers.
#pragma once

#include "unitlib/typing/Quantity.h"

namespace unitlib::typing {

struct TRewritten {
  std::u16string Text; // that the facade reads in this field, without a sign
  double Base = 0;     // its value, in base units
};

/// errors      TRefusal the quantity does not fit the field, or the facade would read its text otherwise
TRewritten Rewrite(const TQuantity& Quantity, const TField& Field);

/// Feet and inches: 5'6 1/2", 5', 6", 1/2", 0". Inches >= 0.
/// errors      TRefusal a part has more than 15 digits
std::u16string FeetInchText(const TRational& Inches, std::size_t Place);

/// The number text, in the field's own unit, that the facade reads as Base.
std::u16string NumberText(double Base, const TField& Field, std::size_t Place);

/// Text of a length in the field's unit, an exact number of inches.
std::u16string LengthText(const TRational& Inches, const TField& Field, std::size_t Place);

/// True when two computations agree but for rounding.
bool Agree(double A, double B) noexcept;

} // namespace unitlib::typing

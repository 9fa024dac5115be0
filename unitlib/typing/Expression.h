/// Arithmetic of typed quantities.
#pragma once

#include "unitlib/typing/Rewriting.h"

namespace unitlib::typing {

struct TExpressionValue {
  std::u16string Text; // in the engine's grammar
  bool HasName = false;
  bool IsLone = false; // one quantity with a sign at most
  double Base = 0;
  std::u16string Words;
};

/// Reads a whole text as an expression: quantities, + - * / and brackets; where the field takes names, one
/// name with an offset. errors      TRefusal
TExpressionValue ReadExpression(const std::vector<TToken>& Tokens, std::u16string_view Text,
                                const TField& Field, TNotes& Notes);

} // namespace unitlib::typing

/// Texts of a tree: for storage, for the edit box, for display.
#pragma once

#include "unitlib/expr/ZELUnitArthProcessor.h"

#include <string>

namespace unitlib {

enum class TTextForm { Store, Edit, Display };

/// Text of a tree, see TParser::GetStoreValue.
std::u16string TreeText(TParser& Parser, const TNode& Root, TTextForm Form);

/// Text of an operand, without the brackets of a negative one. Empty, with the error flag set, where a marked
/// length is refused.
std::u16string OperandText(TParser& Parser, const TNode& Operand, TTextForm Form);

} // namespace unitlib

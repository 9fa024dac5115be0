/// The prompt that reports bad input, and the hook through which a host shows it in its own way.
#pragma once

#include "unitlib/rtl/MethodPtr.h"

#include <string_view>

namespace unitlib {

/// Shows Text to the user; Title is the caption of the dialog that asks.
using TPromptFunc = TMethodPtr<void(std::u16string_view Text, std::u16string_view Title)>;

/// Shows a text to the user through the host's hook when one is set, else through the toolkit's box of the
/// dialog that is open. Without either nothing is shown. Errors of hook and box pass through.
void ShowPrompt(std::u16string_view Text, std::u16string_view Title);

/// Sets the host's hook (empty: none) and returns the one set before.
TPromptFunc SetPromptHook(TPromptFunc Hook) noexcept;

/// Sets the box that serves when the host has no hook, and returns the one set before. For dialogs.
TPromptFunc SetPromptBox(TPromptFunc Box) noexcept;

} // namespace unitlib

#include "unitlib/rtl/Prompt.h"

namespace unitlib {
namespace {

constinit TPromptFunc PromptHook;
constinit TPromptFunc PromptBox;

} // namespace

void ShowPrompt(std::u16string_view Text, std::u16string_view Title) {
  const TPromptFunc Show = PromptHook ? PromptHook : PromptBox; // a copy: the call may replace the hook
  Show(Text, Title);
}

TPromptFunc SetPromptHook(TPromptFunc Hook) noexcept {
  return std::exchange(PromptHook, Hook);
}

TPromptFunc SetPromptBox(TPromptFunc Box) noexcept {
  return std::exchange(PromptBox, Box);
}

} // namespace unitlib

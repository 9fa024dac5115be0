#include "apps/unitctl/TypedOptions.h"

#include "apps/unitctl/Arguments.h"
#include "apps/unitctl/Command.h"
#include "apps/unitctl/Texts.h"
#include "unitlib/rtl/Text.h"

#include <CLI/CLI.hpp>

#include <utility>

namespace unitlib::app {
namespace {

constexpr std::pair<const char*, std::uint32_t> Languages[] = {{"english", tlEnglish}, {"german", tlGerman},
                                                               {"french", tlFrench},   {"spanish", tlSpanish},
                                                               {"chinese", tlChinese}, {"all", tlAll}};

std::uint32_t LanguageNamed(const std::string& Name) {
  for (const auto& [Known, Language] : Languages)
    if (SameText(FromUtf8(Known), FromUtf8(Name))) return Language;
  throw ERefused(Say("typed.language", Quoted(Name)));
}

} // namespace

void AddTypedOptions(CLI::App& Command, TTypedFlags& Flags) {
  Command.add_flag("--expression", Flags.Expression, Say("option.expression"));
  Command.add_flag("--decimal-comma", Flags.DecimalComma, Say("option.decimal-comma"));
  Command.add_option("--language", Flags.Languages, Say("option.language"))
      ->type_name("LANGUAGE")
      ->transform(UnguardText)
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

TTypedOptions TypedOptions(const TTypedFlags& Flags, int Scale) {
  TTypedOptions Options;
  Options.Kind = Flags.Expression ? TTypedKind::Expression : TTypedKind::SingleValue;
  Options.ScaleIndex = Scale;
  Options.DecimalComma = Flags.DecimalComma;
  for (const std::string& Name : Flags.Languages) Options.Languages |= LanguageNamed(Name);
  return Options;
}

void ComplainAboutTyped(TContext& Context, const std::string& Typed, const TTypedReading& Reading) {
  std::string Message = Say("value.bad", Quoted(Typed), Printable(ToUtf8(Reading.Reason)));
  std::string Before = Say("typed.write");
  for (const std::u16string& Suggestion : Reading.Suggestions)
    Message += std::exchange(Before, Say("typed.or")) + Printable(ToUtf8(Suggestion));
  Context.ComplainBad(Message, Typed, Utf8Offset(FromUtf8(Typed), Reading.Offset));
}

} // namespace unitlib::app

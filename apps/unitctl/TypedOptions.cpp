#include "apps/unitctl/TypedOptions.h"

#include "apps/unitctl/Arguments.h"
#include "apps/unitctl/Command.h"
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
  throw ERefused(Quoted(Name) + " is no language that units are read in: english, german, french, spanish, "
                                "chinese, all");
}

} // namespace

void AddTypedOptions(CLI::App& Command, TTypedFlags& Flags) {
  Command.add_flag("--expression", Flags.Expression,
                   "Read arithmetic, in which a dash may take away, instead of one value");
  Command.add_flag("--decimal-comma", Flags.DecimalComma, "Read 2,5 as two and a half");
  Command
      .add_option("--language", Flags.Languages,
                  "Read the unit words of this language, too (or: all); may be repeated")
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
  std::string Message = Quoted(Typed) + ": " + Printable(ToUtf8(Reading.Reason));
  const char* Before = "; write ";
  for (const std::u16string& Suggestion : Reading.Suggestions)
    Message += std::exchange(Before, " or ") + Printable(ToUtf8(Suggestion));
  Context.ComplainBad(Message, Typed, Utf8Offset(FromUtf8(Typed), Reading.Offset));
}

} // namespace unitlib::app

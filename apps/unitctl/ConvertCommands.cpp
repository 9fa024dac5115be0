/// unitctl format, parse, check: stored values to text and back.
#include "apps/unitctl/Command.h"
#include "apps/unitctl/FormatOptions.h"
#include "apps/unitctl/Names.h"
#include "apps/unitctl/Session.h"
#include "apps/unitctl/TypedOptions.h"
#include "unitlib/convert/ZELUnitConvertor.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace unitlib::app {
namespace {

struct TConvertOptions {
  std::string Measure;
  std::vector<std::string> Texts;
  TFormatOptions Format;
  bool AsTyped = false;
  TTypedFlags Typed;
};

/// Classify code of the measure; -1, "no measure", is one of its own.
int MeasureCode(const std::string& Name) {
  constexpr int NoMeasure = -1;
  return Name == "-1" ? NoMeasure : FindConvertible(Name).ClassifyCode;
}

/// The text of one value. A bad one is reported and gives an empty text, so that line N stays value N.
std::string FormatOne(TContext& Context, int Code, const std::string& Typed, const TFormatOptions& Options) {
  double Value = 0;
  if (!TryStrToFloat(FromTerminal(Typed), Value)) {
    Context.ComplainBad(Quoted(Typed) + " " + NumberProblem(Typed), Typed, NumberStop(Typed));
    return {};
  }
  try {
    return ToUtf8(DisplayText(Code, Value, Options));
  } catch (const ERangeError& Error) {
    Context.ComplainBad(Quoted(Typed) + ": " + Error.what(), Typed, NoPlace);
    return {};
  }
}

void Format(TContext& Context, const TConvertOptions& Options) {
  const TSession Session(Context);
  const int Code = MeasureCode(Options.Measure);
  for (const std::string& Typed : Options.Texts)
    Context.Print(FormatOne(Context, Code, Typed, Options.Format) + "\n");
}

std::string UnitName(const TMeasure& Measure) {
  return Quoted(Measure.Description) + " in " + Quoted(Measure.GetCurUnit()->Description);
}

/// Where reading a text in a decimal unit stops. Texts with imperial marks have several forms, and which one
/// was meant is not known.
std::size_t ParseStop(const std::string& Typed) {
  return Typed.find_first_of("'\"/") == Typed.npos ? NumberStop(Typed) : NoPlace;
}

std::string ParseOne(TContext& Context, const TMeasure& Measure, const std::string& Typed, int Scale) {
  const std::u16string Text = FromTerminal(Typed);
  try {
    if (TMeasureDataManager::CheckDisplay(Measure.ClassifyCode, Text))
      return ToUtf8(FloatToStr(TMeasureDataManager::DisplayToStore(Measure.ClassifyCode, Text, Scale)));
    Context.ComplainBad(Quoted(Typed) + " is not a value of " + UnitName(Measure), Typed, ParseStop(Typed));
  } catch (const EUnitError& Error) {
    Context.ComplainBad(Quoted(Typed) + ": " + Error.what(), Typed, NoPlace);
  }
  return {};
}

/// The value, or what an expression with a name is handed on as.
std::string ReadOne(TContext& Context, const TMeasure& Measure, const std::string& Typed,
                    const TTypedOptions& Options) {
  const TTypedReading Reading = ReadTyped(Measure.ClassifyCode, FromTerminal(Typed), Options);
  if (Reading.Accepted)
    return Reading.HasValue ? ToUtf8(FloatToStr(Reading.StoreValue)) : ToUtf8(Reading.Rewritten);
  ComplainAboutTyped(Context, Typed, Reading);
  return {};
}

void Parse(TContext& Context, const TConvertOptions& Options) {
  const TSession Session(Context);
  const TMeasure& Measure = FindConvertible(Options.Measure);
  const TTypedFlags& Flags = Options.Typed;
  if (!Options.AsTyped && (Flags.Expression || Flags.DecimalComma || !Flags.Languages.empty()))
    throw ERefused("--expression, --decimal-comma and --language need --as-typed");
  const TTypedOptions AsTyped = TypedOptions(Flags, Options.Format.Scale);
  for (const std::string& Typed : Options.Texts)
    Context.Print((Options.AsTyped ? ReadOne(Context, Measure, Typed, AsTyped)
                                   : ParseOne(Context, Measure, Typed, Options.Format.Scale)) +
                  "\n");
}

void Check(TContext& Context, const TConvertOptions& Options) {
  const TSession Session(Context);
  const int Code = FindConvertible(Options.Measure).ClassifyCode;
  for (const std::string& Typed : Options.Texts) {
    const bool Valid = TMeasureDataManager::CheckDisplay(Code, FromTerminal(Typed));
    if (!Valid) Context.ExitCode = ExitBad;
    Context.Print((Valid ? "valid    " : "invalid  ") + Printable(Typed) + "\n");
  }
}

void AddMeasure(CLI::App& Command, TConvertOptions& Options) {
  AddText(Command, "MEASURE", Options.Measure, "Measure, by description or classify code")->required();
}

void AddFormat(CLI::App& App, TContext& Context) {
  auto Options = std::make_shared<TConvertOptions>();
  CLI::App* Command = AddCommand(
      App, "format", "Show stored values as text, one line each",
      "  unitctl format 0 1676.4 -1676.4\n"
      "  unitctl format Area 92903.04 --append-symbol\n"
      "A bad value gives an empty line and exit status 2. Measure -1 stands for none: plain numbers.");
  AddMeasure(*Command, *Options);
  AddTexts(*Command, "VALUE", Options->Texts, "Stored values")->required();
  AddFormatOptions(*Command, Options->Format);
  Command->callback([&Context, Options] { Format(Context, *Options); });
}

void AddParse(CLI::App& App, TContext& Context) {
  auto Options = std::make_shared<TConvertOptions>();
  CLI::App* Command = AddCommand(App, "parse", "Read texts as stored values, one line each",
                                 "  unitctl parse 0 \"5' 6 1/2\\\"\" \"-3/4\\\"\"\n"
                                 "  unitctl parse 0 --as-typed \"10'-6\\\"\" \"2.5 m\" \"10 ft 6 in\"\n"
                                 "A bad text gives an empty line and exit status 2.");
  AddMeasure(*Command, *Options);
  AddTexts(*Command, "TEXT", Options->Texts, "Texts as a user types them")->required();
  AddScaleOption(*Command, Options->Format.Scale);
  Command->add_flag("--as-typed", Options->AsTyped,
                    "Read the spellings of the trade, and refuse what has two readings");
  AddTypedOptions(*Command, Options->Typed);
  Command->callback([&Context, Options] { Parse(Context, *Options); });
}

void AddCheck(CLI::App& App, TContext& Context) {
  auto Options = std::make_shared<TConvertOptions>();
  CLI::App* Command = AddCommand(App, "check", "Tell which texts can be read as values of a measure",
                                 "  unitctl check 0 \"5'6\" \"5 feet\"\n"
                                 "Exit status 2 when any of them is invalid.");
  AddMeasure(*Command, *Options);
  AddTexts(*Command, "TEXT", Options->Texts, "Texts as a user types them")->required();
  Command->callback([&Context, Options] { Check(Context, *Options); });
}

} // namespace

void AddConvertCommands(CLI::App& App, TContext& Context) {
  AddFormat(App, Context);
  AddParse(App, Context);
  AddCheck(App, Context);
}

} // namespace unitlib::app

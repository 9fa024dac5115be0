/// unitctl format, parse, check: stored values to text and back.
#include "apps/unitctl/Command.h"
#include "apps/unitctl/FormatOptions.h"
#include "apps/unitctl/Json.h"
#include "apps/unitctl/Names.h"
#include "apps/unitctl/Session.h"
#include "apps/unitctl/Texts.h"
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
  bool Json = false;
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
    Context.ComplainBad(NumberProblem(Typed), Typed, NumberStop(Typed));
    return {};
  }
  try {
    return ToUtf8(DisplayText(Code, Value, Options));
  } catch (const ERangeError& Error) {
    Context.ComplainBad(Say("value.bad", Quoted(Typed), Error.what()), Typed, NoPlace);
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
  return Say("value.unit", Quoted(Measure.Description), Quoted(Measure.GetCurUnit()->Description));
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
    Context.ComplainBad(Say("value.no-value", Quoted(Typed), UnitName(Measure)), Typed, ParseStop(Typed));
  } catch (const EUnitError& Error) {
    Context.ComplainBad(Say("value.bad", Quoted(Typed), Error.what()), Typed, NoPlace);
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
    throw ERefused(Say("typed.needs-as-typed"));
  const TTypedOptions AsTyped = TypedOptions(Flags, Options.Format.Scale);
  for (const std::string& Typed : Options.Texts)
    Context.Print((Options.AsTyped ? ReadOne(Context, Measure, Typed, AsTyped)
                                   : ParseOne(Context, Measure, Typed, Options.Format.Scale)) +
                  "\n");
}

/// Texts and whether they are valid, as JSON.
std::string ChecksAsJson(const std::vector<std::string>& Texts, int Code) {
  TJson Json;
  Json.Open('[');
  for (const std::string& Typed : Texts) {
    Json.Open('{');
    Json.Key("text");
    Json.Text(Typed);
    Json.Key("valid");
    Json.Boolean(TMeasureDataManager::CheckDisplay(Code, FromTerminal(Typed)));
    Json.Close('}');
  }
  Json.Close(']');
  return Json.Take();
}

void Check(TContext& Context, const TConvertOptions& Options) {
  const TSession Session(Context);
  const int Code = FindConvertible(Options.Measure).ClassifyCode;
  if (Options.Json) Context.Print(ChecksAsJson(Options.Texts, Code));
  for (const std::string& Typed : Options.Texts) {
    const bool Valid = TMeasureDataManager::CheckDisplay(Code, FromTerminal(Typed));
    if (!Valid) Context.ExitCode = ExitBad;
    if (Options.Json) continue;
    Context.PrintRow(Valid ? Say("value.valid") : Say("value.invalid"), Printable(Typed));
  }
}

void AddMeasure(CLI::App& Command, TConvertOptions& Options) {
  AddText(Command, "MEASURE", Options.Measure, Say("option.measure"))->required();
}

void AddFormat(CLI::App& App, TContext& Context) {
  auto Options = std::make_shared<TConvertOptions>();
  CLI::App* Command =
      AddCommand(App, "format", Say("help.group.values"), Say("help.format"),
                 "unitctl format 0 1676.4 -1676.4\nunitctl format Area 92903.04 --append-symbol",
                 Say("help.format.notes"));
  AddMeasure(*Command, *Options);
  AddTexts(*Command, "VALUE", Options->Texts, Say("option.values"))->required();
  AddFormatOptions(*Command, Options->Format);
  Command->callback([&Context, Options] { Format(Context, *Options); });
}

void AddParse(CLI::App& App, TContext& Context) {
  auto Options = std::make_shared<TConvertOptions>();
  CLI::App* Command = AddCommand(App, "parse", Say("help.group.values"), Say("help.parse"),
                                 "unitctl parse 0 \"5' 6 1/2\\\"\" \"-3/4\\\"\"\n"
                                 "unitctl parse 0 --as-typed \"10'-6\\\"\" \"2.5 m\" \"10 ft 6 in\"",
                                 Say("help.parse.notes"));
  AddMeasure(*Command, *Options);
  AddTexts(*Command, "TEXT", Options->Texts, Say("option.typed-texts"))->required();
  AddScaleOption(*Command, Options->Format.Scale);
  Command->add_flag("--as-typed", Options->AsTyped, Say("option.as-typed"));
  AddTypedOptions(*Command, Options->Typed);
  Command->callback([&Context, Options] { Parse(Context, *Options); });
}

void AddCheck(CLI::App& App, TContext& Context) {
  auto Options = std::make_shared<TConvertOptions>();
  CLI::App* Command = AddCommand(App, "check", Say("help.group.values"), Say("help.check"),
                                 "unitctl check 0 \"5'6\" \"5 feet\"", Say("help.check.notes"));
  AddMeasure(*Command, *Options);
  AddTexts(*Command, "TEXT", Options->Texts, Say("option.typed-texts"))->required();
  Command->add_flag("--json", Options->Json, Say("option.json"));
  Command->callback([&Context, Options] { Check(Context, *Options); });
}

} // namespace

void AddConvertCommands(CLI::App& App, TContext& Context) {
  AddFormat(App, Context);
  AddParse(App, Context);
  AddCheck(App, Context);
}

} // namespace unitlib::app

/// unitctl compare: a take-off schedule in all unit systems side by side.
#include "apps/common/Files.h"
#include "apps/common/TablePrinter.h"
#include "apps/unitctl/Arguments.h"
#include "apps/unitctl/Command.h"
#include "apps/unitctl/Json.h"
#include "apps/unitctl/Names.h"
#include "apps/unitctl/Schedule.h"
#include "apps/unitctl/Session.h"
#include "apps/unitctl/Texts.h"
#include "unitlib/rtl/Text.h"

#include <CLI/CLI.hpp>

#include <deque>
#include <memory>

namespace unitlib::app {
namespace {

using TManager = TSystemUnitDataManager;

struct TCompareOptions {
  TScheduleOptions Schedule;
  std::optional<std::string> Input;
  bool NoSymbols = false;
  bool Json = false;
};

/// The row in every system. Bad in one system: an empty cell there, and a report.
class TComparison {
public:
  TComparison(TContext& Context, const TScheduleReader& Reader, const TScheduleOptions& Options,
              std::string Source)
      : FContext(Context), FLayout(Reader.Layout()), FSource(std::move(Source)), FTable(Columns(Reader)) {
    for (int I = 0; I < TManager::CurUseUnitConfigContainer().Count(); ++I) {
      TManager::SetCurConfig(I);
      FConverters.emplace_back(FLayout, Options);
    }
  }

  void Add(const TRowBatch::TRow& Row, std::string_view Raw) {
    if (Raw.empty()) return;
    if (!FFields.Split(Raw) || Row.OpenQuote || FFields.Count() != FLayout.Count)
      return Report(Row.Line, {0, Say("compare.shape"), "", NoPlace});
    std::vector<std::string> Cells;
    for (std::size_t I = 0; I < FFields.Count(); ++I)
      if (IsShown(I)) Cells.emplace_back(FFields[I]);
    TRowProblem Problem;
    std::u16string Display;
    for (std::size_t I = 0; I < FConverters.size(); ++I) {
      TManager::SetCurConfig(static_cast<int>(I));
      if (!FConverters[I].Convert(FFields, Display, Problem)) Report(Row.Line, Problem);
      Cells.push_back(ToUtf8(Display));
    }
    FTable.Add(Cells);
    FRows.push_back(std::move(Cells));
  }

  std::string Text() const { return FTable.Text(); }

  /// One object a row, its texts by the titles of their columns.
  std::string Json(const TScheduleReader& Reader) const {
    const std::vector<TColumn> Titles = Columns(Reader);
    TJson Json;
    Json.Open('[');
    for (const auto& Row : FRows) {
      Json.Open('{');
      for (std::size_t I = 0; I < Titles.size(); ++I) {
        Json.Key(Titles[I].Title);
        Json.Text(Row[I]);
      }
      Json.Close('}');
    }
    Json.Close(']');
    return Json.Take();
  }

private:
  /// Measure and value are told by the texts.
  bool IsShown(std::size_t Column) const { return Column != FLayout.Measure && Column != FLayout.Value; }

  std::vector<TColumn> Columns(const TScheduleReader& Reader) const {
    std::vector<TColumn> Result;
    for (std::size_t I = 0; I < Reader.Columns().size(); ++I)
      if (IsShown(I)) Result.push_back({Reader.Columns()[I]});
    for (const auto& System : TManager::CurUseUnitConfigContainer())
      Result.push_back({ToUtf8(System->Description), TAlign::Right});
    return Result;
  }

  void Report(std::uint64_t Line, const TRowProblem& Problem) {
    FContext.ComplainBad(FSource + ":" + std::to_string(Line) + ": " + Problem.Message, Problem.Text,
                         Problem.Place);
  }

  TContext& FContext;
  TScheduleLayout FLayout;
  std::string FSource;
  TTable FTable;
  std::vector<std::vector<std::string>> FRows;
  std::deque<TRowConverter> FConverters; // one for each system
  TCsvFields FFields;
};

void Compare(TContext& Context, TCompareOptions& Options) {
  const TSession Session(Context);
  Options.Schedule.Format.AppendSymbol = !Options.NoSymbols;
  const auto Input = OpenInput(Context, Options.Input);
  const std::string Source = Printable(Input->Name());
  TScheduleReader Reader(*Input, Source, Options.Schedule);
  TComparison Comparison(Context, Reader, Options.Schedule, Source);
  TRowBatch Batch;
  while (Reader.ReadBatch(Batch))
    Batch.ForEach([&Comparison](const TRowBatch::TRow& Row, std::string_view Raw) {
      Comparison.Add(Row, Raw);
      return true;
    });
  Context.Print(Options.Json ? Comparison.Json(Reader) : Comparison.Text());
}

} // namespace

void AddCompareCommand(CLI::App& App, TContext& Context) {
  auto Options = std::make_shared<TCompareOptions>();
  CLI::App* Command = AddCommand(App, "compare", Say("help.group.schedules"), Say("help.compare"),
                                 "unitctl compare examples/data/small-house.csv", Say("help.compare.notes"));
  const auto Add = [Command](const char* Name, auto& Value, const char* Type,
                             const std::string& Description) {
    return Command->add_option(Name, Value, Description)->type_name(Type)->transform(UnguardText);
  };
  AddText(*Command, "IN.csv", Options->Input, Say("option.schedule.input"));
  Add("--measure-column", Options->Schedule.MeasureColumn, "NAME", Say("option.schedule.measure-column"));
  Add("--value-column", Options->Schedule.ValueColumn, "NAME", Say("option.schedule.value-column"));
  Add("--measure", Options->Schedule.Measure, "MEASURE", Say("option.schedule.measure"));
  AddScaleOption(*Command, Options->Schedule.Format.Scale);
  Command->add_flag("--no-symbols", Options->NoSymbols, Say("option.compare.no-symbols"));
  Command->add_flag("--json", Options->Json, Say("option.json"));
  Command->callback([&Context, Options] { Compare(Context, *Options); });
}

} // namespace unitlib::app

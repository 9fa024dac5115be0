/// unitctl schedule: appends display texts to a take-off schedule.
#include "apps/common/CsvReader.h"
#include "apps/common/Files.h"
#include "apps/common/Platform.h"
#include "apps/common/ProgressBar.h"
#include "apps/common/TablePrinter.h"
#include "apps/unitctl/Arguments.h"
#include "apps/unitctl/BatchPipeline.h"
#include "apps/unitctl/Command.h"
#include "apps/unitctl/Schedule.h"
#include "apps/unitctl/Session.h"
#include "apps/unitctl/Texts.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <exception>
#include <memory>
#include <thread>

namespace unitlib::app {
namespace {

/// A file of this size takes long enough for a progress bar.
constexpr std::uint64_t LongInput = std::uint64_t{4} << 20;

struct TCommandOptions {
  TScheduleOptions Schedule;
  std::optional<std::string> Input;
  std::optional<std::string> Output;
  bool Table = false;
};

/// Bytes of an output file, for reading them again.
class TTextSource final : public TByteSource {
public:
  explicit TTextSource(std::string_view Text) : FRest(Text) {}
  std::size_t Read(char* Buffer, std::size_t Size) override {
    const std::size_t Count = FRest.copy(Buffer, Size);
    FRest.remove_prefix(Count);
    return Count;
  }

private:
  std::string_view FRest;
};

/// Holds the rows back and writes them as an aligned table.
class TTableSink final : public TByteSink {
public:
  TTableSink(std::unique_ptr<TByteSink> Target, std::vector<TColumn> Columns)
      : FTarget(std::move(Target)), FTable(std::move(Columns)) {}

  void Write(std::string_view Csv) override {
    TTextSource Source(Csv);
    TCsvReader Reader(Source);
    TCsvRecord Record;
    TCsvFields Fields;
    while (Reader.Next(Record)) {
      if (Record.Raw.empty()) continue;
      Fields.Split(Record.Raw);
      FTable.Add({Fields.All().begin(), Fields.All().end()});
    }
  }

  void Commit() override {
    FTarget->Write(FTable.Text());
    FTarget->Commit();
  }

private:
  std::unique_ptr<TByteSink> FTarget;
  TTable FTable;
};

/// Output goes to a file, not to standard output.
bool IsFile(const std::optional<std::string>& Path) {
  return Path && *Path != "-";
}

std::unique_ptr<TByteSink> OpenOutput(const TContext& Context, const std::optional<std::string>& Path) {
  if (Path && Path->empty()) throw ERefused(Say("schedule.no-output"));
  if (!IsFile(Path)) return std::make_unique<TStreamOutput>(Context.Streams.Out, Say("stream.out"));
  return std::make_unique<TFileOutput>(*Path);
}

std::unique_ptr<TByteSink> AsTable(std::unique_ptr<TByteSink> Target, const TScheduleReader& Reader,
                                   const TScheduleOptions& Options) {
  std::vector<TColumn> Columns;
  for (std::size_t I = 0; I < Reader.Columns().size(); ++I)
    Columns.push_back({Reader.Columns()[I], I == Reader.Layout().Value ? TAlign::Right : TAlign::Left});
  Columns.push_back({Options.DisplayColumn, TAlign::Right});
  return std::make_unique<TTableSink>(std::move(Target), std::move(Columns));
}

/// A bar is of use when it does not run through the rows on the same screen.
bool WantsProgress(const TContext& Context, const TInput& Input, bool WritesToScreen) {
  const bool Long = Input.Size() == 0 || Input.Size() >= LongInput;
  return Long && !WritesToScreen && platform::IsTerminal(Context.Streams.Err) &&
         !(Input.Size() == 0 && platform::IsTerminal(Context.Streams.In));
}

void Report(const TContext& Context, const std::string& Source, const TRowProblem& Problem) {
  std::string Text = Source + ":" + std::to_string(Problem.Line) + ": " + Problem.Message + "\n";
  if (Problem.Place != NoPlace && !Problem.Text.empty()) Text += MarkedText(Problem.Text, Problem.Place);
  std::fwrite(Text.data(), 1, Text.size(), Context.Streams.Err);
}

struct TTotals {
  std::uint64_t Rows = 0;
  std::uint64_t Bad = 0;
  bool Stopped = false;
};

/// Takes results in the order of the rows: reports, counts, writes.
class TResultTaker {
public:
  TResultTaker(const TContext& Context, TByteSink& Output, const TInput& Input, TProgressBar& Progress)
      : FContext(Context), FOutput(Output), FInput(Input), FProgress(Progress) {}

  void Take(const TBatchResult& Result) {
    if (!Result.Problems.empty()) FProgress.Clear();
    for (const TRowProblem& Problem : Result.Problems) Report(FContext, FInput.Name(), Problem);
    FTotals.Rows += Result.Rows;
    FTotals.Bad += Result.Problems.size();
    FTotals.Stopped = Result.Stopped;
    FOutput.Write(Result.Csv);
    FProgress.Update(FInput.Done(), FTotals.Rows);
  }
  const TTotals& Totals() const noexcept { return FTotals; }

private:
  const TContext& FContext;
  TByteSink& FOutput;
  const TInput& FInput;
  TProgressBar& FProgress;
  TTotals FTotals;
};

void RunHere(TScheduleReader& Reader, TBatchConverter Converter, TResultTaker& Taker) {
  TRowBatch Batch;
  TBatchResult Result;
  while (!Taker.Totals().Stopped && Reader.ReadBatch(Batch)) {
    Converter.Convert(Batch, Result);
    Taker.Take(Result);
  }
}

/// This thread reads and writes, the others convert.
template <class TMake>
void RunOnThreads(std::size_t Threads, TScheduleReader& Reader, TMake Make, TResultTaker& Taker) {
  TBatchPipeline Pipeline(Threads, Make);
  std::exception_ptr ReadError; // comes up behind the rows before it
  for (bool AtEnd = false; !Taker.Totals().Stopped && !(AtEnd && !Pipeline.HasWork());) {
    if (AtEnd || !Pipeline.HasRoom()) {
      Taker.Take(Pipeline.Take());
      continue;
    }
    try {
      AtEnd = !Reader.ReadBatch(Pipeline.Free());
    } catch (...) {
      ReadError = std::current_exception();
      AtEnd = true;
    }
    if (!AtEnd) Pipeline.Give();
  }
  if (ReadError && !Taker.Totals().Stopped) std::rethrow_exception(ReadError);
}

/// A long file is converted on all processors. Rows that come through a pipe are converted as they come:
/// their texts must not wait until more rows have come.
std::size_t ThreadsFor(const TInput& Input) {
  const std::size_t Processors = std::thread::hardware_concurrency();
  return Processors > 1 && Input.Size() >= LongInput ? std::min<std::size_t>(Processors, 8) : 0;
}

std::string BadRows(const TTotals& Totals) {
  const std::string Bad = std::to_string(Totals.Bad);
  return Totals.Rows == 1 ? Say("schedule.one-bad", Bad)
                          : Say("schedule.bad", Bad, std::to_string(Totals.Rows));
}

void Schedule(TContext& Context, const TCommandOptions& Options) {
  const TSession Session(Context);
  TSession::System(); // chosen, or a message that says how
  auto Input = OpenInput(Context, Options.Input);
  TScheduleReader Reader(*Input, Printable(Input->Name()), Options.Schedule);
  const auto Make = [&] { return TBatchConverter(Reader.Layout(), Options.Schedule, Reader.LineEnd()); };
  TBatchConverter Converter = Make(); // may refuse, so it comes before the output
  auto Output = OpenOutput(Context, Options.Output);
  if (Options.Table) Output = AsTable(std::move(Output), Reader, Options.Schedule);
  if (!Options.Table) Output->Write(Reader.Header());
  const bool ToScreen = !IsFile(Options.Output) && platform::IsTerminal(Context.Streams.Out);
  TProgressBar Progress(Context.Streams.Err, Input->Size(), WantsProgress(Context, *Input, ToScreen),
                        Say("schedule.rows", "{0}"));
  TResultTaker Taker(Context, *Output, *Input, Progress);
  if (const std::size_t Threads = ThreadsFor(*Input))
    RunOnThreads(Threads, Reader, Make, Taker);
  else
    RunHere(Reader, std::move(Converter), Taker);
  const TTotals& Totals = Taker.Totals();
  Progress.Clear();
  if (Totals.Bad > 0) Context.ExitCode = ExitBad;
  if (Totals.Stopped) {
    return Context.Complain(IsFile(Options.Output) ? Say("schedule.stopped-file", Printable(*Options.Output))
                                                   : Say("schedule.stopped"));
  }
  Input.reset(); // the output may take its place, and not every system replaces an open file
  Output->Commit();
  if (Totals.Bad > 0) Context.Complain(BadRows(Totals));
}

} // namespace

void AddScheduleCommand(CLI::App& App, TContext& Context) {
  auto Options = std::make_shared<TCommandOptions>();
  CLI::App* Command = AddCommand(App, "schedule", Say("help.group.schedules"), Say("help.schedule"),
                                 "unitctl schedule takeoff.csv -o shown.csv\n"
                                 "unitctl schedule --system 2 --append-symbol --table < takeoff.csv\n"
                                 "unitctl schedule rebar.csv --measure 6 --value-column mass",
                                 Say("help.schedule.notes"));
  const auto Add = [Command](const char* Name, auto& Value, const char* Type,
                             const std::string& Description) {
    return Command->add_option(Name, Value, Description)->type_name(Type)->transform(UnguardText);
  };
  AddText(*Command, "IN.csv", Options->Input, Say("option.schedule.input"));
  Add("-o,--output", Options->Output, "FILE", Say("option.schedule.output"));
  Add("--measure-column", Options->Schedule.MeasureColumn, "NAME", Say("option.schedule.measure-column"));
  Add("--value-column", Options->Schedule.ValueColumn, "NAME", Say("option.schedule.value-column"));
  Add("--display-column", Options->Schedule.DisplayColumn, "NAME", Say("option.schedule.display-column"));
  Add("--measure", Options->Schedule.Measure, "MEASURE", Say("option.schedule.measure"));
  AddFormatOptions(*Command, Options->Schedule.Format);
  Command->add_flag("--table", Options->Table, Say("option.schedule.table"));
  Command->add_flag("--strict", Options->Schedule.Strict, Say("option.schedule.strict"));
  Command->callback([&Context, Options] { Schedule(Context, *Options); });
}

} // namespace unitlib::app

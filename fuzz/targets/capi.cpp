/// Input: calls of the C interface, a byte for the function and what its arguments need; texts end at a
/// separator.
#include "fuzz/CapiCalls.h"
#include "fuzz/Check.h"
#include "fuzz/ModelText.h"
#include "fuzz/Targets.h"
#include "fuzz/WorkFolder.h"
#include "unitlib/convert/ZELUnitConvertor.h"
#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/rtl/Errors.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <iterator>
#include <vector>

namespace unitlib::fuzz {
namespace {

constexpr int MostCalls = 40;
constexpr std::int32_t Codes[] = {0, 7, 3, 1, -1, 2, 42};

std::size_t Behind(const std::string& Text, std::string_view Mark, std::size_t From) {
  return Text.find(Mark, From) + Mark.size();
}

/// The factory settings, cut down to what loads fast: the first configuration with four measures, and of each
/// measure the first two units and the last one.
std::string SmallSettings(std::string Xml) {
  std::size_t End = 0;
  for (int I = 0; I < 4; ++I) {
    const std::size_t Second = Behind(Xml, "</Unit>", Behind(Xml, "</Unit>", End));
    Xml.erase(Second, Xml.rfind("<Unit ", Xml.find("</Measurement>", Second)) - Second);
    End = Behind(Xml, "</Measurement>", Second);
  }
  Xml.erase(End, Xml.find("</Config>", End) - End);
  const std::size_t Config = Behind(Xml, "</Config>", End);
  Xml.erase(Config, Xml.find("</TemplateConfig>") - Config);
  return Xml.replace(Xml.find("\"-1\""), 4, "\"0\""); // a choice, so that loading does not save
}

const std::string& SettingsFile() {
  static const std::string Path = [] {
    // Nothing may be written outside: the working copy goes beside the settings.
    for (const auto Set : {ul_set_common_documents_path_u8, ul_set_exe_path_u8})
      if (Set(WorkPath("").c_str(), UL_TO_NUL) != UL_OK) Fail("no folders");
    const std::string File = WorkPath("small.xml");
    if (ul_generate_default_config_file_u8(File.c_str(), UL_TO_NUL) != UL_OK) Fail("no factory settings");
    WriteFile(File, SmallSettings(ReadFile(File)));
    return File;
  }();
  return Path;
}

class TCalls {
public:
  explicit TCalls(TInput& Input) : FInput(Input) {}

  /// Settings that no call has changed stay loaded for the next run: loading takes longer than all the rest.
  /// A run ends with as much memory in use as it began with, or each would be searched for leaks, which takes
  /// longer still.
  void Run() {
    ClearTrace();
    [[maybe_unused]] static const bool Loaded = (Load(), true);
    for (int I = 0; I < MostCalls && !FInput.AtEnd(); ++I) {
      const TFunction Function = Functions[FInput.Below(std::size(Functions))];
      (this->*Function)();
      FChanged =
          FChanged || std::find(std::begin(Changing), std::end(Changing), Function) != std::end(Changing);
    }
    if (FChanged) CheckSavedModel();
    if (FChanged) Load();
    Checked(ul_detach_refresh_unit(Listener, this));
    if (Checked(ul_set_cur_config_index(4711)) != UL_ERROR_INDEX)
      FailCall("a configuration outside the list");
    ClearTrace();
  }

private:
  std::int32_t Code() { return Codes[FInput.Below(std::size(Codes))]; }
  std::int32_t Scale() { return static_cast<std::int32_t>(FInput.Below(10)) - 1; }
  double Value() { return FInput.Flag() ? FInput.Double() : FInput.Number(); }

  // --- settings ---

  void Load() {
    Trace("load");
    Checked(ul_initial_unit_system_u8(SettingsFile().c_str(), UL_TO_NUL, UL_US_IMPERIAL, 0));
  }
  void LoadMissing() {
    Trace("load a file that is not there");
    const TTextIn Name(WideWorkPath("missing/none.xml"));
    if (Checked(ul_init_system_unit(Name.Wide(), Name.WideLength())) != UL_ERROR_FILE)
      FailCall("no file error");
    Load();
  }
  void Free() {
    Trace("free");
    Checked(ul_free_unit_system());
    const auto Loaded = ResultOf<std::int32_t>("is_loaded", ul_is_loaded);
    if (Loaded != 0) FailCall("loaded after freeing");
    if (Checked(ul_set_cur_config_index(0)) != UL_ERROR_NOT_LOADED) FailCall("settings after freeing");
  }
  void Save() {
    Trace("save");
    const std::string Path = WorkPath("saved.xml");
    Checked(ul_save_config_file_u8(Path.c_str(), UL_TO_NUL));
  }

  /// What the calls have made of the settings survives saving and loading.
  void CheckSavedModel() {
    std::int32_t Loaded = 0;
    if (ul_is_loaded(&Loaded) != UL_OK || !Loaded) return;
    Trace("save at the end");
    const std::string Path = WorkPath("saved.xml");
    const std::string Before = ModelText(true);
    const ul_status Status = Checked(ul_save_config_file_u8(Path.c_str(), UL_TO_NUL));
    if (Status == UL_ERROR_XML) return; // a text that XML cannot carry was set
    if (Status != UL_OK) FailCall("not saved: " + Show(Status));
    if (Checked(ul_init_system_unit_u8(Path.c_str(), UL_TO_NUL)) != UL_OK) FailCall("not loaded again");
    if (ModelText(false) != Before) FailCall("other settings after saving and loading: " + ModelText(false));
  }

  // --- conversions ---

  void StoreToDisplay() {
    const std::int32_t Measure = Code(), AtScale = Scale();
    const std::uint32_t Flags = FInput.Below(34);
    const double Stored = Value();
    const auto Text = TextOut(
        "store_to_display",
        [&](auto* B, auto C, auto* N) {
          return ul_store_to_display(Measure, Stored, AtScale, Flags, B, C, N);
        },
        [&](auto* B, auto C, auto* N) {
          return ul_store_to_display_u8(Measure, Stored, AtScale, Flags, B, C, N);
        });
    if (!Text) return;
    const std::u16string Direct =
        TMeasureDataManager::StoreToDisplay(Measure, Stored, AtScale, (Flags & 1) != 0, (Flags & 2) != 0,
                                            (Flags & 4) != 0, (Flags & 8) != 0, (Flags & 16) != 0);
    RequireSame("ul_store_to_display", Stored, *Text, Direct);
  }

  void DisplayToStore() {
    const std::int32_t Measure = Code(), AtScale = Scale();
    const std::uint32_t Flags = FInput.Below(3);
    const TTextIn Text(FInput);
    const auto Valid = ResultOf<std::int32_t>("check_display", [&](std::int32_t* R) {
      return ul_check_display(Measure, Text.Wide(), Text.WideLength(), R);
    });
    const auto Stored = ResultOf<double>("display_to_store", [&](double* R) {
      return ul_display_to_store(Measure, Text.Wide(), Text.WideLength(), AtScale, Flags, R);
    });
    if (Flags == 0 && Valid && (*Valid != 0) != Stored.has_value())
      FailCall("valid, but not read: " + Show(Text.Text()));
    if (Stored && !std::isfinite(*Stored)) FailCall("a value that is not finite: " + Show(Text.Text()));
    if (!Text.HasTwin()) return;
    const auto Twin = ResultOf<double>("display_to_store_u8", [&](double* R) {
      return ul_display_to_store_u8(Measure, Text.Narrow(), Text.NarrowLength(), AtScale, Flags, R);
    });
    if (Twin != Stored) FailCall("the twin reads another value: " + Show(Text.Text()));
  }

  void DecimalValueToStore() {
    const std::int32_t Measure = Code(), AtScale = Scale();
    const double Number = Value();
    const auto Stored = ResultOf<double>("decimal_value_to_store", [&](double* R) {
      return ul_decimal_value_to_store(Measure, Number, AtScale, R);
    });
    if (Stored && !std::isfinite(*Stored)) FailCall("a value that is not finite");
  }

  void IsANum() {
    const std::int32_t Measure = Code(), Reject = FInput.Below(2) ? 1 : 0;
    const TTextIn Text(FInput);
    const auto Ask = [&](std::int32_t How) {
      return ResultOf<std::int32_t>("is_a_num", [&](std::int32_t* R) {
        return ul_is_a_num(Measure, Text.Wide(), Text.WideLength(), How, R);
      });
    };
    const auto Strict = Ask(1), Loose = Ask(0);
    if (Strict && Loose && *Strict > *Loose)
      FailCall("refusing fractions accepts more: " + Show(Text.Text()));
    if (Reject == 1) Ask(7);
  }

  void ExprToStore() {
    const std::int32_t Measure = Code(), Skip = FInput.Below(2) ? 1 : 0;
    const TTextIn Text(FInput);
    TextWithTwin(
        "expr_to_store", Text,
        [&](auto* B, auto C, auto* N) {
          return ul_expr_to_store(Measure, Text.Wide(), Text.WideLength(), Skip, B, C, N);
        },
        [&](auto* B, auto C, auto* N) {
          return ul_expr_to_store_u8(Measure, Text.Narrow(), Text.NarrowLength(), Skip, B, C, N);
        });
  }

  void UnitSymbol() {
    const std::int32_t Measure = Code(), Empty = FInput.Below(2) ? 1 : 0;
    TextOut(
        "get_unit_symbol",
        [&](auto* B, auto C, auto* N) { return ul_get_unit_symbol(Measure, Empty, B, C, N); },
        [&](auto* B, auto C, auto* N) { return ul_get_unit_symbol_u8(Measure, Empty, B, C, N); });
  }

  std::optional<std::u16string> TextWithTwin(const std::string& Name, const TTextIn& Text,
                                             const TWideOut& Wide, const TNarrowOut& Narrow) {
    return TextOut(Name, Wide, Text.HasTwin() ? Narrow : TNarrowOut());
  }

  void DisplayValue() {
    const TTextIn Text(FInput);
    const auto Shown = TextWithTwin(
        "get_display_value", Text,
        [&](auto* B, auto C, auto* N) {
          return ul_get_display_value(Text.Wide(), Text.WideLength(), B, C, N);
        },
        [&](auto* B, auto C, auto* N) {
          return ul_get_display_value_u8(Text.Narrow(), Text.NarrowLength(), B, C, N);
        });
    std::u16string Wanted = Text.Text();
    std::erase_if(Wanted, [](char16_t C) { return C == u'[' || C == u']'; });
    if (Shown != Wanted) FailCall("brackets left in " + Show(Text.Text()));
  }

  // --- expressions ---

  void Evaluate() {
    const TTextIn Text(FInput);
    std::int32_t IsImperial = 7;
    const auto Result = ResultOf<double>("evaluate", [&](double* R) {
      return ul_evaluate(Text.Wide(), Text.WideLength(), R, R ? &IsImperial : nullptr);
    });
    if (Result.has_value() != (IsImperial == 0 || IsImperial == 1))
      FailCall("imperial or not: " + Show(IsImperial));
    if (Result && !std::isfinite(*Result)) FailCall("a value that is not finite: " + Show(Text.Text()));
    EvaluateColumn(Text, Result);
  }

  /// A column of the text twice, and of an empty one.
  void EvaluateColumn(const TTextIn& Text, const std::optional<double>& Wanted) {
    const std::u16string Texts = Text.Text() + Text.Text();
    const auto Size = static_cast<std::int32_t>(Text.Text().size());
    const std::int32_t Offsets[] = {0, Size, Size, 2 * Size};
    double Values[3] = {};
    ul_status Statuses[3] = {-1, -1, -1};
    Trace("evaluate_column");
    const ul_status Status = Checked(ul_evaluate_column(Texts.data(), Offsets, 3, Values, nullptr, Statuses));
    if (Status == UL_ERROR_NOT_LOADED || Status == UL_ERROR_INDEX) return;
    if (Status != UL_ITEMS_FAILED) FailCall("an empty text has a value");
    if (Statuses[1] == UL_OK || !std::isnan(Values[1])) FailCall("an empty item has a value");
    for (const int I : {0, 2}) {
      if ((Statuses[I] == UL_OK) != Wanted.has_value()) FailCall("an item's status differs from the call's");
      if (Wanted && Values[I] != *Wanted) FailCall("an item's value differs from the call's");
      if (!Wanted && !std::isnan(Values[I])) FailCall("a failed item has a value");
    }
  }

  void ExpressionToStore() {
    const std::int32_t Measure = Code(), AtScale = Scale();
    const TTextIn Text(FInput);
    const auto Stored = ResultOf<double>("expression_to_store", [&](double* R) {
      return ul_expression_to_store(Measure, Text.Wide(), Text.WideLength(), AtScale, R);
    });
    if (Stored && !std::isfinite(*Stored)) FailCall("a value that is not finite: " + Show(Text.Text()));
  }

  void Elevation() {
    const TTextIn Text(FInput);
    const auto Valid = ResultOf<std::int32_t>("check_elev_edit_value", [&](std::int32_t* R) {
      return ul_check_elev_edit_value(Text.Wide(), Text.WideLength(), R);
    });
    const auto Store = TextWithTwin(
        "get_elev_store_value", Text,
        [&](auto* B, auto C, auto* N) {
          return ul_get_elev_store_value(Text.Wide(), Text.WideLength(), B, C, N);
        },
        [&](auto* B, auto C, auto* N) {
          return ul_get_elev_store_value_u8(Text.Narrow(), Text.NarrowLength(), B, C, N);
        });
    if (Valid == 0 && Store && *Store != Text.Text()) FailCall("a refused elevation changed");
    TextWithTwin(
        "get_elev_edit_value", Text,
        [&](auto* B, auto C, auto* N) {
          return ul_get_elev_edit_value(Text.Wide(), Text.WideLength(), B, C, N);
        },
        [&](auto* B, auto C, auto* N) {
          return ul_get_elev_edit_value_u8(Text.Narrow(), Text.NarrowLength(), B, C, N);
        });
    TextWithTwin(
        "get_elev_display_value", Text,
        [&](auto* B, auto C, auto* N) {
          return ul_get_elev_display_value(Text.Wide(), Text.WideLength(), B, C, N);
        },
        [&](auto* B, auto C, auto* N) {
          return ul_get_elev_display_value_u8(Text.Narrow(), Text.NarrowLength(), B, C, N);
        });
  }

  // --- reading the settings ---

  void ReadConfig() {
    const std::int32_t Config = FInput.Integer();
    const auto Info =
        ResultOf<ul_config_info>("get_config", [&](ul_config_info* R) { return ul_get_config(Config, R); });
    const auto Count = ResultOf<std::int32_t>("get_config_count", ul_get_config_count);
    ResultOf<std::int32_t>("get_cur_config_index", ul_get_cur_config_index);
    if (Info && Config != UL_CURRENT && Config >= Count.value_or(0))
      FailCall("a configuration outside the list");
    TextOut(
        "get_config_description",
        [&](auto* B, auto C, auto* N) { return ul_get_config_description(Config, B, C, N); },
        [&](auto* B, auto C, auto* N) { return ul_get_config_description_u8(Config, B, C, N); });
    const std::int32_t Wanted = Code();
    const auto Found = ResultOf<std::int32_t>(
        "find_measure", [&](std::int32_t* R) { return ul_find_measure(Config, Wanted, R); });
    if (!Found) return;
    const auto Measure = ResultOf<ul_measure_info>(
        "get_measure", [&](ul_measure_info* R) { return ul_get_measure(Config, *Found, R); });
    if (!Measure || Measure->classify_code != Wanted) FailCall("another measure was found");
  }

  void ReadMeasure() {
    const std::int32_t Config = FInput.Integer(), Measure = FInput.Integer(), Part = FInput.Integer();
    const auto Info = ResultOf<ul_measure_info>(
        "get_measure", [&](ul_measure_info* R) { return ul_get_measure(Config, Measure, R); });
    if (Info && (Info->unit_count < 0)) FailCall("a count below zero");
    TextOut(
        "get_measure_text",
        [&](auto* B, auto C, auto* N) { return ul_get_measure_text(Config, Measure, Part, B, C, N); },
        [&](auto* B, auto C, auto* N) { return ul_get_measure_text_u8(Config, Measure, Part, B, C, N); });
    const std::int32_t Order = FInput.Integer();
    ResultOf<std::int32_t>("find_measure_by_order_index",
                           [&](std::int32_t* R) { return ul_find_measure_by_order_index(Config, Order, R); });
  }

  void ReadUnit() {
    const std::int32_t Config = FInput.Integer(), Measure = FInput.Integer(), Unit = FInput.Integer(),
                       Item = FInput.Integer(), Part = FInput.Integer();
    ResultOf<ul_unit_info>("get_unit",
                           [&](ul_unit_info* R) { return ul_get_unit(Config, Measure, Unit, R); });
    ResultOf<ul_round_info>("get_round",
                            [&](ul_round_info* R) { return ul_get_round(Config, Measure, Unit, Item, R); });
    ResultOf<ul_switch_info>(
        "get_switch", [&](ul_switch_info* R) { return ul_get_switch(Config, Measure, Unit, Item, R); });
    ResultOf<std::int32_t>("get_symbol",
                           [&](std::int32_t* R) { return ul_get_symbol(Config, Measure, Unit, Item, R); });
    TextOut(
        "get_unit_text",
        [&](auto* B, auto C, auto* N) { return ul_get_unit_text(Config, Measure, Unit, Part, B, C, N); },
        [&](auto* B, auto C, auto* N) { return ul_get_unit_text_u8(Config, Measure, Unit, Part, B, C, N); });
    TextOut(
        "get_round_text",
        [&](auto* B, auto C, auto* N) {
          return ul_get_round_text(Config, Measure, Unit, Item, Part, B, C, N);
        },
        [&](auto* B, auto C, auto* N) {
          return ul_get_round_text_u8(Config, Measure, Unit, Item, Part, B, C, N);
        });
    TextOut(
        "get_symbol_description",
        [&](auto* B, auto C, auto* N) {
          return ul_get_symbol_description(Config, Measure, Unit, Item, B, C, N);
        },
        [&](auto* B, auto C, auto* N) {
          return ul_get_symbol_description_u8(Config, Measure, Unit, Item, B, C, N);
        });
  }

  void ReadDigitGroups() {
    const std::int32_t Group = FInput.Integer(), Part = FInput.Integer();
    ResultOf<std::int32_t>("get_digit_group_count", ul_get_digit_group_count);
    ResultOf<std::int32_t>("get_cur_digit_group_index", ul_get_cur_digit_group_index);
    ResultOf<std::int32_t>("get_digit_group", [&](std::int32_t* R) { return ul_get_digit_group(Group, R); });
    TextOut(
        "get_digit_group_text",
        [&](auto* B, auto C, auto* N) { return ul_get_digit_group_text(Group, Part, B, C, N); },
        [&](auto* B, auto C, auto* N) { return ul_get_digit_group_text_u8(Group, Part, B, C, N); });
  }

  // --- changing the settings ---

  void Choose() {
    const std::int32_t Config = FInput.Integer(), Measure = FInput.Integer(), Unit = FInput.Integer(),
                       Item = FInput.Integer();
    const unsigned Which = FInput.Below(6);
    Trace("choose " + Show(static_cast<int>(Which)));
    const ul_status Status = Checked(Which == 0   ? ul_set_cur_config_index(Config)
                                     : Which == 1 ? ul_set_cur_unit_index(Config, Measure, Unit)
                                     : Which == 2 ? ul_set_cur_round_index(Config, Measure, Unit, Item)
                                     : Which == 3 ? ul_set_cur_symbol_index(Config, Measure, Unit, Item)
                                     : Which == 4 ? ul_set_cur_digit_group_index(Item)
                                                  : ul_configure_unit_system(Item));
    if (Status != UL_OK || Which != 1) return;
    ul_measure_info Info{};
    if (ul_get_measure(Config, Measure, &Info) != UL_OK ||
        (Unit != UL_CURRENT && Info.cur_unit_index != Unit))
      FailCall("the unit that was chosen is not current");
  }

  void ChooseByText() {
    const std::int32_t Config = FInput.Integer(), Measure = FInput.Integer(), Unit = FInput.Integer();
    const unsigned Which = FInput.Below(4);
    const TTextIn Text(FInput);
    Trace("choose by text " + Show(static_cast<int>(Which)));
    const auto* T = Text.Wide();
    const std::int32_t L = Text.WideLength();
    Checked(Which == 0   ? ul_set_cur_unit(Config, Measure, T, L)
            : Which == 1 ? ul_set_cur_round(Config, Measure, Unit, T, L)
            : Which == 2 ? ul_set_cur_symbol(Config, Measure, Unit, T, L)
                         : ul_set_cur_digit_group(T, L));
  }

  void SetIncrement() {
    const std::int32_t Config = FInput.Integer(), Measure = FInput.Integer(), Unit = FInput.Integer(),
                       Round = FInput.Integer();
    const TTextIn Text(FInput);
    Trace("set_increment");
    if (Checked(ul_set_increment(Config, Measure, Unit, Round, Text.Wide(), Text.WideLength())) != UL_OK)
      return;
    const auto Set =
        TextOut("get_round_text",
                [&](auto* B, auto C, auto* N) {
                  return ul_get_round_text(Config, Measure, Unit, Round, UL_ROUND_INCREMENT, B, C, N);
                },
                {});
    if (Set != Text.Text()) FailCall("another increment than was set");
  }

  void SetSwitch() {
    const std::int32_t Config = FInput.Integer(), Measure = FInput.Integer(), Unit = FInput.Integer(),
                       Which = FInput.Integer(), Enable = FInput.Integer(), Ticked = FInput.Integer();
    Trace("set_switch");
    if (Checked(ul_set_switch(Config, Measure, Unit, Which, Enable, Ticked)) != UL_OK) return;
    ul_switch_info Info{};
    if (ul_get_switch(Config, Measure, Unit, Which, &Info) != UL_OK || Info.enable != (Enable != 0) ||
        Info.checked != (Ticked != 0))
      FailCall("another switch than was set");
  }

  void Restore() {
    const std::int32_t Config = FInput.Integer(), Measure = FInput.Integer(), Unit = FInput.Integer();
    const unsigned Which = FInput.Below(5);
    Trace("restore " + Show(static_cast<int>(Which)));
    Checked(Which == 0   ? ul_restore_default_unit(Config, Measure, Unit)
            : Which == 1 ? ul_restore_default_measure(Config, Measure)
            : Which == 2 ? ul_restore_default_config(Config)
            : Which == 3 ? ul_restore_default_unit_system(Config)
                         : ul_update_display_values());
  }

  // --- digit groups, parsers, listeners, dialogs ---

  void GroupDigits() {
    const TTextIn Name(FInput), Text(FInput);
    const auto Grouped = TextOut(
        "group_digits",
        [&](auto* B, auto C, auto* N) {
          return ul_group_digits(Name.Wide(), Name.WideLength(), Text.Wide(), Text.WideLength(), B, C, N);
        },
        Name.HasTwin() && Text.HasTwin() ? TNarrowOut([&](auto* B, auto C, auto* N) {
          return ul_group_digits_u8(Name.Narrow(), Name.NarrowLength(), Text.Narrow(), Text.NarrowLength(), B,
                                    C, N);
        })
                                         : TNarrowOut());
    if (!Grouped) FailCall("digits are always grouped");
  }

  void HasParser() {
    const TTextIn Name(FInput);
    const auto Present = ResultOf<std::int32_t>("has_unit_parser", [&](std::int32_t* R) {
      return ul_has_unit_parser(Name.Wide(), Name.WideLength(), R);
    });
    if (!Present) FailCall("an answer about every name");
    Trace("register a parser that cannot be");
    if (*Present &&
        Checked(ul_register_unit_parser(Name.Wide(), Name.WideLength(), 1.0)) != UL_ERROR_ARGUMENT)
      FailCall("a name was registered twice");
    for (const double Size : {0.0, -1.0, std::nan(""), HUGE_VAL})
      if (Checked(ul_register_unit_parser(Name.Wide(), Name.WideLength(), Size)) != UL_ERROR_ARGUMENT)
        FailCall("a parser of size " + Show(Size));
  }

  static void UL_CALL Listener(void* Context) { ++static_cast<TCalls*>(Context)->FFired; }

  void Listeners() {
    Trace("listeners");
    Checked(ul_attach_refresh_unit(Listener, this));
    Checked(ul_attach_refresh_unit(Listener, this));
    FFired = 0;
    Checked(ul_refresh_unit());
    if (FFired != 1) FailCall("a listener that was attached twice was called " + Show(FFired) + " times");
    Checked(ul_detach_refresh_unit(Listener, this));
    Checked(ul_refresh_unit());
    if (FFired != 1) FailCall("a listener was called after it was detached");
    if (Checked(ul_attach_refresh_unit(nullptr, this)) != UL_ERROR_ARGUMENT) FailCall("a null listener");
  }

  void Columns() {
    const std::int32_t Measure = Code();
    double Values[3] = {Value(), 1676.4, Value()};
    std::int32_t Offsets[4] = {-1, -1, -1, -1}, Needed = -1;
    ul_status Statuses[3] = {-1, -1, -1};
    ul_char16 Buffer[2000];
    Trace("store_to_display_column");
    const ul_status Status = Checked(ul_store_to_display_column(Measure, Values, 3, UL_BASE_SCALE, 0, Buffer,
                                                                2000, &Needed, Offsets, Statuses));
    if (Status != UL_OK && Status != UL_ITEMS_FAILED) return;
    for (int I = 0; I < 3; ++I) {
      if (Offsets[I] < 0 || Offsets[I + 1] < Offsets[I]) FailCall("offsets that do not rise");
      const auto One = TextOut("store_to_display",
                               [&](auto* B, auto C, auto* N) {
                                 return ul_store_to_display(Measure, Values[I], UL_BASE_SCALE, 0, B, C, N);
                               },
                               {});
      const std::u16string Item(Buffer + Offsets[I], Buffer + Offsets[I + 1]);
      if (One.has_value() != (Statuses[I] == UL_OK) || One.value_or(u"") != Item)
        FailCall("an item of a column differs from the single call");
    }
  }

  void Arguments() {
    Trace("arguments that cannot be");
    const TTextIn Text(FInput);
    std::int32_t Valid = 5, Needed = 5;
    for (const std::int32_t Length : {-2, INT32_MIN, 1})
      if (Checked(ul_check_display(0, nullptr, Length, &Valid)) != UL_ERROR_ARGUMENT) FailCall("a null text");
    if (Checked(ul_get_display_value(Text.Wide(), -2, nullptr, 0, &Needed)) != UL_ERROR_ARGUMENT)
      FailCall("a length below zero");
    if (Checked(ul_get_display_value_u8("\xC0\x80", 2, nullptr, 0, &Needed)) != UL_ERROR_ENCODING)
      FailCall("an overlong character");
    if (Checked(ul_get_display_value(nullptr, 0, nullptr, 5, &Needed)) != UL_ERROR_ARGUMENT)
      FailCall("no buffer of 5");
    const auto Dialogs = ResultOf<std::int32_t>("dialogs_available", ul_dialogs_available);
    std::int32_t Outcome = 9;
    if (Dialogs != 0 || Checked(ul_project_units_dialog(0, nullptr, 0, nullptr, nullptr, nullptr, nullptr,
                                                        &Outcome)) != UL_ERROR_NOT_AVAILABLE)
      FailCall("a dialog");
  }

  /// Asking about the last error changes nothing about it, not even when the question is wrong.
  void LastErrorText() {
    Trace("last_error_text");
    const std::int32_t Part = FInput.Integer();
    ul_error Before{}, After{};
    std::int32_t Needed = -7;
    if (ul_last_error(&Before) != UL_OK) FailCall("no last error");
    const ul_status Status = ul_last_error_text(Part, nullptr, 0, &Needed);
    const bool IsPart = Part >= UL_LAST_MESSAGE && Part <= UL_LAST_ATTRIBUTE;
    if (Status != (IsPart ? UL_BUFFER_TOO_SMALL : UL_ERROR_ARGUMENT)) FailCall("status " + Show(Status));
    std::vector<ul_char16> Buffer(static_cast<std::size_t>(std::max(Needed, 1)), u'#');
    if (IsPart && (ul_last_error_text(Part, Buffer.data(), Needed, &Needed) != UL_OK || Buffer.back() != 0))
      FailCall("the text of the last error does not fit where it said");
    if (ul_last_error(&After) != UL_OK || std::memcmp(&Before, &After, sizeof Before) != 0)
      FailCall("another last error after asking about it");
  }

  using TFunction = void (TCalls::*)();
  static constexpr TFunction Functions[] = {&TCalls::Load,
                                            &TCalls::LoadMissing,
                                            &TCalls::Free,
                                            &TCalls::Save,
                                            &TCalls::StoreToDisplay,
                                            &TCalls::DisplayToStore,
                                            &TCalls::DecimalValueToStore,
                                            &TCalls::IsANum,
                                            &TCalls::ExprToStore,
                                            &TCalls::UnitSymbol,
                                            &TCalls::DisplayValue,
                                            &TCalls::Evaluate,
                                            &TCalls::ExpressionToStore,
                                            &TCalls::Elevation,
                                            &TCalls::ReadConfig,
                                            &TCalls::ReadMeasure,
                                            &TCalls::ReadUnit,
                                            &TCalls::ReadDigitGroups,
                                            &TCalls::Choose,
                                            &TCalls::ChooseByText,
                                            &TCalls::SetIncrement,
                                            &TCalls::SetSwitch,
                                            &TCalls::Restore,
                                            &TCalls::GroupDigits,
                                            &TCalls::HasParser,
                                            &TCalls::Listeners,
                                            &TCalls::Columns,
                                            &TCalls::Arguments,
                                            &TCalls::LastErrorText};

  static constexpr TFunction Changing[] = {&TCalls::Free,         &TCalls::Choose,    &TCalls::ChooseByText,
                                           &TCalls::SetIncrement, &TCalls::SetSwitch, &TCalls::Restore};

  TInput& FInput;
  bool FChanged = false;
  int FFired = 0;
};

} // namespace

void RunCapi(TInput& Input) {
  TCalls(Input).Run();
}

} // namespace unitlib::fuzz

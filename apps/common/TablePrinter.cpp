#include "apps/common/TablePrinter.h"

#include "apps/common/TextWidth.h"
#include "apps/common/Utf8.h"

#include <algorithm>

namespace unitlib::app {
namespace {

constexpr std::string_view Gap = "  ";

void AppendCell(std::string& Line, std::string_view Text, std::size_t Width, TAlign Align) {
  const std::string Padding(Width - std::min(Width, DisplayWidth(Text)), ' ');
  if (Align == TAlign::Right) Line += Padding;
  Line += Text;
  if (Align == TAlign::Left) Line += Padding;
}

void EndLine(std::string& Text) {
  Text.erase(Text.find_last_not_of(' ') + 1);
  Text += '\n';
}

} // namespace

void TTable::Add(const std::vector<std::string>& Cells) {
  std::vector<std::string>& Row = FRows.emplace_back(FColumns.size());
  for (std::size_t I = 0; I < std::min(Cells.size(), Row.size()); ++I) Row[I] = Printable(Cells[I]);
}

std::vector<std::size_t> TTable::Widths() const {
  std::vector<std::size_t> Result;
  for (std::size_t I = 0; I < FColumns.size(); ++I) {
    std::size_t& Width = Result.emplace_back(DisplayWidth(FColumns[I].Title));
    for (const auto& Row : FRows) Width = std::max(Width, DisplayWidth(Row[I]));
  }
  return Result;
}

std::string TTable::Text() const {
  const std::vector<std::size_t> Width = Widths();
  std::string Result;
  std::string Rule;
  for (std::size_t I = 0; I < FColumns.size(); ++I) {
    if (I > 0) Result += Gap, Rule += Gap;
    AppendCell(Result, FColumns[I].Title, Width[I], FColumns[I].Align);
    Rule.append(Width[I], '-');
  }
  EndLine(Result);
  Result += Rule + '\n';
  for (const auto& Row : FRows) {
    std::string Line;
    for (std::size_t I = 0; I < Row.size(); ++I) {
      if (I > 0) Line += Gap;
      AppendCell(Line, Row[I], Width[I], FColumns[I].Align);
    }
    EndLine(Line);
    Result += Line;
  }
  return Result;
}

} // namespace unitlib::app

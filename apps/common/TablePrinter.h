/// Aligned tables for the terminal. Columns are as wide as their widest text; East-Asian wide characters
/// count two.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace unitlib::app {

enum class TAlign { Left, Right };

struct TColumn {
  std::string Title;
  TAlign Align = TAlign::Left;
};

/// Collects rows, then writes them all.
///   TTable Table({{"Code", TAlign::Right}, {"Measure"}});
///   Table.Add({"0", "Area"});
///   std::string Text = Table.Text();
class TTable {
public:
  explicit TTable(std::vector<TColumn> Columns) : FColumns(std::move(Columns)) {}

  /// Appends a row; missing cells are empty, surplus ones are dropped. Control characters are shown as
  /// escapes.
  void Add(const std::vector<std::string>& Cells);
  /// Title line, rule and rows, each ended by a line feed, without blanks at the line's end.
  std::string Text() const;

private:
  std::vector<std::size_t> Widths() const;

  std::vector<TColumn> FColumns;
  std::vector<std::vector<std::string>> FRows;
};

} // namespace unitlib::app

/// Writer of comma-separated values.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace unitlib::app {

/// Appends a field, in quotes where it holds a comma, a quote or a line break, or starts with a UTF-8 mark.
///   5' 6"   becomes   "5' 6"""
void AppendCsvField(std::string& Out, std::string_view Field);

/// Appends a record without line end. A record of one empty field becomes "", so that it is no empty line.
void AppendCsvRecord(std::string& Out, const std::vector<std::string_view>& Fields);

} // namespace unitlib::app

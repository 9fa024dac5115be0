#include "apps/common/CsvWriter.h"

namespace unitlib::app {

namespace {

/// A field that starts with the mark of UTF-8 would, as the first of a file, be taken for that mark.
bool NeedsQuotes(std::string_view Field) {
  return Field.find_first_of(",\"\r\n") != std::string_view::npos || Field.starts_with("\xEF\xBB\xBF");
}

} // namespace

void AppendCsvField(std::string& Out, std::string_view Field) {
  if (!NeedsQuotes(Field)) {
    Out.append(Field);
    return;
  }
  Out.push_back('"');
  for (const char C : Field) {
    if (C == '"') Out.push_back('"');
    Out.push_back(C);
  }
  Out.push_back('"');
}

void AppendCsvRecord(std::string& Out, const std::vector<std::string_view>& Fields) {
  if (Fields.size() == 1 && Fields.front().empty()) {
    Out.append("\"\"");
    return;
  }
  for (std::size_t I = 0; I < Fields.size(); ++I) {
    if (I > 0) Out.push_back(',');
    AppendCsvField(Out, Fields[I]);
  }
}

} // namespace unitlib::app

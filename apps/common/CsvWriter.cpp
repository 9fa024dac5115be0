#include "apps/common/CsvWriter.h"

namespace unitlib::app {

void AppendCsvField(std::string& Out, std::string_view Field) {
  if (Field.find_first_of(",\"\r\n") == std::string_view::npos) {
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

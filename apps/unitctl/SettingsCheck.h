/// Checks a settings file without trusting it: every finding with its place and what to do, and the settings
/// as they are when all that can be repaired is repaired.
#pragma once

#include "unitlib/model/UnitModel.h"
#include "unitlib/rtl/Xml.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace unitlib::app {

struct TFinding {
  std::string_view Kind; // a stable word for scripts, see docs/unitctl.md
  int Line = 0;          // of the file, from 1; 0: not about a line
  std::string Place;     // "US Imperial System / Area / Square feet"
  std::string Problem;
  std::string Advice;
  bool Repaired = true; // in the repaired settings
};

struct TCheckedSettings {
  std::vector<TFinding> Findings;
  std::unique_ptr<TXMLDocument> Repaired; // null when nothing can be made of the file
};

/// Known       parser classes and digit-group classes that the host registers itself
/// errors      EFileError the file cannot be read
TCheckedSettings CheckSettingsFile(const std::string& Path, const std::vector<std::string>& Known);
/// The same for a file's content. Path only stands in the findings.
TCheckedSettings CheckSettings(std::string Content, const std::string& Path,
                               const std::vector<std::string>& Known);

} // namespace unitlib::app

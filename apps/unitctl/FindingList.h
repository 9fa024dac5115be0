/// Where the checks of a settings file are, and what they have found.
#pragma once

#include "apps/unitctl/SettingsCheck.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace unitlib::app {

class TFindingList {
public:
  /// While it lives, findings are about something inside.
  class TScope {
  public:
    TScope(TFindingList& List, std::u16string_view Name);
    ~TScope() { FList.FPlace.pop_back(); }
    TScope(const TScope&) = delete;
    TScope& operator=(const TScope&) = delete;

  private:
    TFindingList& FList;
  };

  void Add(std::string_view Kind, int Line, std::string Problem, std::string Advice, bool Repaired = true);
  std::vector<TFinding> Take() { return std::move(FFindings); }

  // Lines of the parts of the model, which has none itself.
  void SetLine(const void* Part, int Line) { FLines[Part] = Line; }
  int Line(const void* Part) const {
    const auto Found = FLines.find(Part);
    return Found == FLines.end() ? 0 : Found->second;
  }

private:
  std::vector<std::string> FPlace;
  std::vector<TFinding> FFindings;
  std::map<const void*, int> FLines;
};

} // namespace unitlib::app

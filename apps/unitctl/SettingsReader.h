/// Reads a settings file as far as it can be read, where the library's own reader stops at the first fault.
#pragma once

#include "apps/unitctl/FindingList.h"
#include "unitlib/model/UnitModel.h"

namespace unitlib::app {

struct TSettings {
  TOwningList<TConfig> Systems;
  TOwningList<TDigitGroup> Groups;
  int CurrentSystem = -1;
  int CurrentGroup = 0;
};

/// What is missing or of the wrong form is reported and filled in from the factory settings.
/// return      false when this is no settings file at all
bool ReadSettings(const TXMLDocument& Document, TSettings& Settings, TFindingList& Findings);

} // namespace unitlib::app

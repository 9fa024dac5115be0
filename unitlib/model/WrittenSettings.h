/// Reads settings that stand in their file just as the library writes them.
#pragma once

#include "unitlib/model/UnitModel.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace unitlib {

/// The content of a settings file.
struct TWrittenSettings {
  int CurConfigIndex = 0;
  int CurDigitGroupIndex = 0;
  std::vector<std::unique_ptr<TConfig>> Configs;
  std::vector<std::unique_ptr<TDigitGroup>> DigitGroups;
};

/// Text        bytes of the file
/// return      what it says; none where it is not what SaveConfigToMemory writes for some settings, be it by one
///             comment: whether it is a settings file all the same is for the reader of documents to tell
std::optional<TWrittenSettings> ReadWrittenSettings(const std::string& Text);

} // namespace unitlib

/// Settings of the measured library: the factory settings in a private folder.
#pragma once

#include <string>

namespace unitlib::bench {

/// Writes the factory settings into a fresh folder and loads them; the folder is removed at the end of the
/// program.
void LoadFactorySettings();
/// A file of that name in the folder.
std::u16string PrivateFile(const std::string& Name);

/// Makes a unit of measure 0 and of the elevations current, in metres with symbol and groups of three, or in
/// feet and fractional inches with sixteenths.
void UseMetres();
void UseFeet();

} // namespace unitlib::bench

/// Fields to type into: a measure in one of its units, with the settings of the test.
#pragma once

#include "tests/support/Settings.h"
#include "unitlib/typing/ReadTyped.h"

#include <span>
#include <string_view>

namespace unitlib::test {

struct TFieldRow {
  std::string_view Name;
  TConfigueType System;
  int Measure;
  int Unit; // its index
};

std::span<const TFieldRow> AllFields();
/// null: no field has this name.
const TFieldRow* FindField(std::string_view Name);

/// Makes the field's system and unit current. The factory settings are loaded.
TUnit& UseField(const TFieldRow& Field);

} // namespace unitlib::test

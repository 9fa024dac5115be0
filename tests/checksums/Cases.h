/// The families of cases: each asks the library one kind of question.
#pragma once

#include "Random.h"
#include "Results.h"

#include <string>

namespace checksums {

struct TFamily {
  const char* Name;
  int Count;
  void (*Run)(TRandom& Random, TResults& Results); // one case
};

extern const TFamily Families[];
extern const int FamilyCount;

/// The factory settings, loaded from a file of their own that is removed with this object.
class TSettings {
public:
  TSettings();
  ~TSettings();
  TSettings(const TSettings&) = delete;
  TSettings& operator=(const TSettings&) = delete;
  /// The settings as a file holds them.
  static std::string Saved();
};

} // namespace checksums

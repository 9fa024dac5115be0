/// Random settings as an XML text, together with the text of the model (see ModelText.h) that a reader must
/// make of it. Written without the library.
#pragma once

#include "fuzz/Input.h"

#include <string>

namespace unitlib::fuzz {

struct TMadeSettings {
  std::string Xml;
  std::string Model;
};

TMadeSettings MakeSettings(TInput& Input);

} // namespace unitlib::fuzz

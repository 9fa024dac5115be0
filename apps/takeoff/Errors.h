/// The errors that this program adds to the library's family.
#pragma once

#include "unitlib/rtl/Errors.h"

#include <string>
#include <string_view>

namespace unitlib::takeoff {

/// An edit that is not made, with the reason for the user. Text() is what was typed.
class ERefused : public EUnitError {
public:
  explicit ERefused(std::u16string Message, std::u16string_view Text = {})
      : EUnitError(std::move(Message), Text) {}
};

/// A project file that cannot be opened, read or written. Text() is its path.
class EProjectError : public EUnitError {
public:
  using EUnitError::EUnitError;
};

} // namespace unitlib::takeoff

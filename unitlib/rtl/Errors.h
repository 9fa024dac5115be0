/// The errors of the library: one small family, each with the text that caused it.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace unitlib {

/// Base of every error that leaves the library; catch this one to catch them all.
/// what() is UTF-8, Message() the same in UTF-16, Text() the offending text (a number, a name, an index, a
/// path).
class EUnitError : public std::runtime_error {
public:
  EUnitError(std::u16string Message, std::u16string_view Text);
  const std::u16string& Message() const noexcept { return FMessage; }
  const std::u16string& Text() const noexcept { return FText; }

private:
  std::u16string FMessage;
  std::u16string FText;
};

/// A position outside a list, or a list that is not there because no settings are loaded.
class EListError : public EUnitError {
public:
  using EUnitError::EUnitError;
};

/// A text that is not what it should be: not a number, not the name of a parser, not a known measure.
class EConvertError : public EUnitError {
public:
  using EUnitError::EUnitError;
};

/// A number that no result can be given for: not finite, or beyond 64-bit integers where these are needed.
class ERangeError : public EUnitError {
public:
  using EUnitError::EUnitError;
};

/// A file that cannot be read, written or replaced. Text() is the cause as the system gives it.
class EFileError : public EUnitError {
public:
  EFileError(std::u16string_view Message, std::u16string_view Path, std::u16string_view Cause);
  const std::u16string& Path() const noexcept { return FPath; }

private:
  std::u16string FPath;
};

/// A settings file whose content is wrong: not XML, or an element or attribute missing or of the wrong form.
/// Path() of the file (empty before it is known), Line() counted from 1 (0: not known), Element() and
/// Attribute() (empty: not about one).
class EXmlError : public EUnitError {
public:
  struct TPlace {
    std::u16string Path;
    int Line = 0;
    std::u16string Element;
    std::u16string Attribute;
  };
  EXmlError(std::u16string_view Problem, TPlace Place, std::u16string_view Text = {});
  const std::u16string& Path() const noexcept { return FPlace.Path; }
  int Line() const noexcept { return FPlace.Line; }
  const std::u16string& Element() const noexcept { return FPlace.Element; }
  const std::u16string& Attribute() const noexcept { return FPlace.Attribute; }

private:
  TPlace FPlace;
};

} // namespace unitlib

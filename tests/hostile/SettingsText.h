/// The text of a settings file, one element a line, and what can be done to it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace unitlib::test {

/// Lines of a settings file as the library writes it. Editing gives a new text, the file stays.
class TSettingsText {
public:
  explicit TSettingsText(std::string_view Text);
  /// The factory settings; "US Imperial System" is current, so that loading them writes no working copy.
  static const TSettingsText& Factory();
  /// The same cut down to one configuration with one measure with one unit with one round and one symbol.
  static const TSettingsText& Small();

  /// The same with a second such measure, of elevations.
  static std::string SmallWithElevation();

  struct TAttribute {
    std::string Name, Value;
  };
  struct TElement {
    std::string Name, Parent;
    int Line = 0; // from 1
    std::vector<TAttribute> Attributes;
  };
  const std::vector<TElement>& Elements() const { return FElements; }
  std::string Text() const;

  std::string WithoutElement(const TElement& Element) const;
  std::string WithoutAttribute(const TElement& Element, const TAttribute& Attribute) const;
  std::string WithValue(const TElement& Element, const TAttribute& Attribute, std::string_view Value) const;
  /// Lines put in front of line Line.
  std::string WithLines(int Line, std::string_view Lines) const;

private:
  const std::string& LineOf(const TElement& Element) const;
  std::string Joined(std::vector<std::string> Lines) const;
  std::string WithLine(const TElement& Element, std::string Line) const;

  std::vector<std::string> FLines;
  std::vector<TElement> FElements;
};

} // namespace unitlib::test

/// Writes XML straight into a text: what a document of Xml.h saves, without building the document first.
#pragma once

#include <string>
#include <string_view>

namespace unitlib {

/// True for the characters that XML 1.0 can carry, in well-formed UTF-16.
bool IsXmlText(std::u16string_view Text) noexcept;
/// Raises EXmlError for a text that is none.
[[noreturn]] void RaiseNoXmlText(std::u16string_view Element, std::u16string_view Attribute,
                                 std::u16string_view Text);

/// UTF-8 with a declaration, elements indented by two blanks, lines ended by LF, attributes only: byte for
/// byte what TXMLDocument::SaveToMemory writes, in a tenth of the time. Names are ASCII and outlive their
/// element.
class TXmlTextWriter {
public:
  TXmlTextWriter();

  /// Opens an element within the one that is open; attributes follow, then children.
  void Begin(std::string_view Element);
  /// errors      EXmlError the text holds a character that XML cannot carry
  void Text(std::string_view Attribute, std::u16string_view Value);
  void Integer(std::string_view Attribute, int Value);
  void Boolean(std::string_view Attribute, bool Value);
  /// Closes the element that was opened last.
  void End();

  /// The whole text, once everything is closed.
  std::string Take() { return std::move(FText); }

private:
  void StartAttribute(std::string_view Name);

  static constexpr int MaxDepth = 16;
  std::string FText;
  std::string_view FOpen[MaxDepth];
  int FDepth = 0;
  bool FInTag = false; // the tag of the innermost element is not closed yet
};

} // namespace unitlib

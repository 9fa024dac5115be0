/// A small XML layer: elements, attributes as text, integer and Boolean, files. Errors name element,
/// attribute, line.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace unitlib {

class TXMLDocument;

/// An element of a document; a light reference that lives no longer than its document.
class TXMLNode {
public:
  std::u16string Name() const;
  /// Line of the element in the file it was read from, counted from 1; 0 when not known.
  int Line() const;

  /// Child elements in document order; text, comments and processing instructions are no children.
  ///   for (TXMLNode Child = Node.FirstChild(); Child; Child = Child.NextSibling()) ...
  TXMLNode FirstChild() const;
  TXMLNode NextSibling() const;
  explicit operator bool() const noexcept { return FNode != nullptr; }
  int ChildCount() const;
  /// errors      EListError no child at that position
  TXMLNode Child(int Index) const;
  /// First child element of that name, compared letter for letter.
  /// errors      EXmlError there is none
  TXMLNode ChildByName(std::u16string_view ChildName) const;
  TXMLNode ChildByName(const char* ChildName) const;

  /// errors      EXmlError the attribute is missing or its text has not the asked form: an integer is decimal
  /// within 32
  ///             bits, a Boolean "true", "false", "1", "0" or "-1" in any letter case
  std::u16string AttributeText(std::u16string_view AttributeName) const;
  int AttributeInteger(std::u16string_view AttributeName) const;
  bool AttributeBoolean(std::u16string_view AttributeName) const;
  /// The same by an ASCII name, which needs no conversion: a third of the time.
  std::u16string AttributeText(const char* AttributeName) const;
  int AttributeInteger(const char* AttributeName) const;
  bool AttributeBoolean(const char* AttributeName) const;

  TXMLNode AddChild(std::u16string_view ChildName);
  /// Appends an attribute.
  /// errors      EXmlError the text holds a character that XML cannot carry (a control character other than
  /// tab, line
  ///             feed and return, half a surrogate pair, U+FFFE, U+FFFF)
  void AddText(std::u16string_view AttributeName, std::u16string_view Value);
  void AddInteger(std::u16string_view AttributeName, int Value);
  void AddBoolean(std::u16string_view AttributeName, bool Value);

private:
  friend class TXMLDocument;
  TXMLNode() = default;
  TXMLNode(const TXMLDocument* Document, void* Node) : FDocument(Document), FNode(Node) {}
  const char* RequiredAttribute(const char* AttributeName) const;
  [[noreturn]] void Raise(std::u16string_view Problem, std::u16string_view AttributeName,
                          std::u16string_view Text) const;

  const TXMLDocument* FDocument = nullptr;
  void* FNode = nullptr;
};

/// A document held in memory. Document type declarations and external entities are never followed.
class TXMLDocument {
public:
  ~TXMLDocument();

  /// Reads a file in UTF-8 (with or without mark), UTF-16 (either order) or, where declared, ISO 8859-1.
  /// errors      EFileError the file cannot be read; EXmlError it is not well-formed
  void LoadFromFile(std::u16string_view Path);
  /// The same from memory; Path only stands in the errors.
  void LoadFromMemory(std::string Content, std::u16string_view Path = {});

  /// Writes UTF-8 with a declaration, indented by two blanks, lines ended by LF; all or nothing (see
  /// Files.h).
  /// errors      EFileError
  void SaveToFile(std::u16string_view Path) const;
  std::string SaveToMemory() const;

  /// The root element.
  /// errors      EXmlError the document has none
  TXMLNode DocumentElement() const;
  /// Adds the root element of a new document.
  TXMLNode AddDocumentElement(std::u16string_view Name);

private:
  friend class TXMLNode;
  friend std::unique_ptr<TXMLDocument> CreateXMLDocument(bool Declaration, bool Indent);
  TXMLDocument(bool Declaration, bool Indent);
  int LineAt(std::ptrdiff_t Offset) const;

  struct TContent;
  std::unique_ptr<TContent> FContent;
};

/// An empty document. Declaration: a save starts with the XML declaration; Indent: a save is indented.
std::unique_ptr<TXMLDocument> CreateXMLDocument(bool Declaration = true, bool Indent = true);

} // namespace unitlib

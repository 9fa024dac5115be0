/// Reads back what TXmlTextWriter (XmlText.h) writes, straight from the text: no document is built.
#pragma once

#include <cstddef>
#include <cstring>
#include <string>

namespace unitlib {

/// Takes elements and attributes in the order they were written in; names are ASCII literals.
///   while (In.Begin("UnitSymbol")) { Name = In.Text("Description"); In.End("UnitSymbol"); }
/// It judges nothing: at the first byte that the writer would have put otherwise (another element or order, a
/// comment, "True", a number of ten digits, malformed UTF-8) it gives up, and what is asked for from then on
/// is empty, 0 or false. A document (Xml.h) has to read such a text and has the last word on it. Where the
/// reader does not give up, a document gives the same; only blanks and line ends between tags are free.
class TXmlTextReader {
public:
  /// Takes the declaration. The text outlives the reader.
  explicit TXmlTextReader(const std::string& Text) noexcept;
  bool GaveUp() const noexcept { return FGaveUp; }

  /// Opens the next element when it has that name; otherwise false, and it stays the next one.
  template <std::size_t Size> bool Begin(const char (&Element)[Size]) noexcept {
    if (!LeaveTag() || !IsAt<1>("<", Element) || (FAt[Size] != ' ' && FAt[Size] != '>')) return false;
    FAt += Size;
    return FInTag = true;
  }
  /// Opens the next element, which has that name.
  template <std::size_t Size> void Enter(const char (&Element)[Size]) noexcept {
    if (!Begin(Element)) GiveUp();
  }
  /// Closes the element that is open, which has that name, no more attributes and no more children.
  template <std::size_t Size> void End(const char (&Element)[Size]) noexcept {
    if (!LeaveTag()) return EndTag();
    if (!IsAt<2>("</", Element) || FAt[Size + 1] != '>') return GiveUp();
    FAt += Size + 2;
    SkipBlanks();
  }
  /// The text ends here.
  void Finish() noexcept {
    if (FAt != FEnd) GiveUp();
  }

  /// The next attribute of the tag, which has that name.
  template <std::size_t Size> std::u16string Text(const char (&Attribute)[Size]) {
    return FindValue(Attribute) ? TextValue() : std::u16string();
  }
  template <std::size_t Size> int Integer(const char (&Attribute)[Size]) noexcept {
    return FindValue(Attribute) ? IntegerValue() : 0;
  }
  template <std::size_t Size> bool Boolean(const char (&Attribute)[Size]) noexcept {
    return FindValue(Attribute) && BooleanValue();
  }

private:
  /// True when Head and Name come next, and not right at the end. Sizes that the compiler knows are compared
  /// without a call: a sixth of a load.
  template <std::size_t HeadSize, std::size_t Size>
  bool IsAt(const char* Head, const char (&Name)[Size]) const noexcept {
    return static_cast<std::size_t>(FEnd - FAt) >= HeadSize + Size && std::memcmp(FAt, Head, HeadSize) == 0 &&
           std::memcmp(FAt + HeadSize, Name, Size - 1) == 0;
  }
  /// Goes to the value of the attribute.
  template <std::size_t Size> bool FindValue(const char (&Attribute)[Size]) noexcept {
    if (!IsAt<1>(" ", Attribute) || FAt[Size] != '=' || FAt[Size + 1] != '"') return GiveUp(), false;
    FAt += Size + 2;
    return true;
  }
  /// False when the tag ends its element.
  bool LeaveTag() noexcept {
    if (!FInTag) return true;
    if (*FAt != '>') return false;
    ++FAt;
    SkipBlanks();
    return true;
  }
  void SkipBlanks() noexcept {
    FInTag = false;
    while (*FAt == ' ' || *FAt == '\n' || *FAt == '\r' || *FAt == '\t') ++FAt;
  }
  /// Takes Text when it comes next.
  template <std::size_t Size> bool Skip(const char (&Text)[Size]) noexcept {
    const bool Found = IsAt<0>("", Text);
    if (Found) FAt += Size - 1;
    return Found;
  }
  void EndTag() noexcept { Skip(" />") ? SkipBlanks() : GiveUp(); }
  std::u16string TextValue();
  std::u16string EscapedValue(const char* Begin);
  int IntegerValue() noexcept;
  bool BooleanValue() noexcept;
  void GiveUp() noexcept;

  const char* FAt; // the next byte; not at a blank, unless in a tag; a NUL stands behind the last one
  const char* FEnd;
  bool FInTag = false; // the tag of the innermost element is not closed yet
  bool FGaveUp = false;
};

} // namespace unitlib

#include "unitlib/rtl/Xml.h"

#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Files.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/OwningList.h"
#include "unitlib/rtl/Text.h"
#include "unitlib/rtl/XmlScan.h"
#include "unitlib/rtl/XmlText.h"

#include <pugixml.hpp>

#include <algorithm>
#include <cstring>
#include <new>

namespace unitlib {

struct TXMLDocument::TContent {
  pugi::xml_document Document;
  std::string Source; // what was parsed, to tell lines from offsets
  std::u16string Path;
  bool Declaration = true;
  bool Indent = true;
  std::ptrdiff_t CountedTo = 0; // see LineAt
  std::ptrdiff_t LinesBefore = 0;
};

namespace {

pugi::xml_node Pugi(void* Node) {
  return pugi::xml_node(static_cast<pugi::xml_node_struct*>(Node));
}

void* FirstElement(pugi::xml_node Node) {
  while (Node && Node.type() != pugi::node_element) Node = Node.next_sibling();
  return Node.internal_object();
}

/// True when every surrogate of the text stands in a pair.
bool IsUtf16(std::u16string_view Text) {
  for (size_t I = 0; I < Text.size(); ++I) {
    const char16_t C = Text[I];
    if (C < 0xD800 || C > 0xDFFF) continue;
    const bool Pair = C < 0xDC00 && I + 1 < Text.size() && Text[I + 1] >= 0xDC00 && Text[I + 1] <= 0xDFFF;
    if (!Pair) return false;
    ++I;
  }
  return true;
}

/// A name for the library underneath; the usual ones need no memory from the heap.
class TUtf8Name {
public:
  explicit TUtf8Name(std::u16string_view Name) {
    size_t Size = 0;
    while (Size < Name.size() && Size + 1 < sizeof FShort && Name[Size] < 0x80 && Name[Size] != 0) {
      FShort[Size] = static_cast<char>(Name[Size]);
      ++Size;
    }
    FShort[Size] = '\0';
    if (Size == Name.size()) return;
    FLong = ToUtf8(Name);
    FText = FLong.c_str();
  }
  TUtf8Name(const TUtf8Name&) = delete;
  TUtf8Name& operator=(const TUtf8Name&) = delete;
  const char* Text() const { return FText; }

private:
  char FShort[48];
  std::string FLong;
  const char* FText = FShort;
};

/// A whole number as files have it: up to nine digits, perhaps a sign. False for all else, which may be one
/// too.
bool ReadPlainInteger(const char* Text, int& Value) {
  const bool Negative = *Text == '-';
  if (Negative) ++Text;
  int Result = 0, Count = 0;
  for (; *Text >= '0' && *Text <= '9' && Count < 10; ++Text, ++Count)
    Result = Count < 9 ? Result * 10 + (*Text - '0') : 0;
  if (*Text != 0 || Count == 0 || Count > 9) return false;
  Value = Negative ? -Result : Result;
  return true;
}

/// What an error tells of a text: a hostile file must not make it megabytes long.
std::u16string Shown(std::string_view Text) {
  constexpr size_t Most = 200;
  if (Text.size() <= Most) return FromUtf8(Text);
  size_t End = Most;
  while (End > 0 && (static_cast<unsigned char>(Text[End]) & 0xC0) == 0x80) --End; // not within a character
  return FromUtf8(Text.substr(0, End)) + u"...";
}

bool StartsWith(std::string_view Text, std::string_view Head) {
  return Text.substr(0, Head.size()) == Head;
}

/// errors      EXmlError a half character at the end, or half a surrogate pair: nothing may be lost unseen
std::string FromUtf16Bytes(std::string_view Bytes, bool BigEndian, const std::u16string& Path) {
  std::u16string Text(Bytes.size() / 2, u'\0');
  for (size_t I = 0; I < Text.size(); ++I) {
    const auto A = static_cast<unsigned char>(Bytes[2 * I]), B = static_cast<unsigned char>(Bytes[2 * I + 1]);
    Text[I] = static_cast<char16_t>(BigEndian ? A << 8 | B : B << 8 | A);
  }
  if (Bytes.size() % 2 != 0 || !IsUtf16(Text))
    throw EXmlError(u"Not an XML file: its text is not valid UTF-16", {Path, 0, {}, {}});
  return ToUtf8(Text);
}

/// Content as UTF-8 without mark. A wrong declaration of an encoding other than ISO 8859-1 is passed over:
/// the bytes themselves tell UTF-8 from UTF-16.
std::string ToUtf8Source(std::string Content, const std::u16string& Path) {
  using namespace std::string_view_literals;
  const std::string_view View = Content;
  if (StartsWith(View, "\xEF\xBB\xBF"sv)) return Content.substr(3);
  if (StartsWith(View, "\xFF\xFE"sv)) return FromUtf16Bytes(View.substr(2), false, Path);
  if (StartsWith(View, "\xFE\xFF"sv)) return FromUtf16Bytes(View.substr(2), true, Path);
  if (StartsWith(View, "<\0"sv)) return FromUtf16Bytes(View, false, Path);
  if (StartsWith(View, "\0<"sv)) return FromUtf16Bytes(View, true, Path);
  return Content;
}

bool DeclaresLatin1(std::string_view Source) {
  if (!StartsWith(Source, "<?xml")) return false;
  std::string Declaration(Source.substr(0, Source.find("?>")));
  std::transform(Declaration.begin(), Declaration.end(), Declaration.begin(),
                 [](char C) { return C >= 'A' && C <= 'Z' ? static_cast<char>(C + 32) : C; });
  return Declaration.find("iso-8859-1") != std::string::npos ||
         Declaration.find("latin1") != std::string::npos;
}

std::string FromLatin1(std::string_view Bytes) {
  std::u16string Text(Bytes.size(), u'\0');
  std::transform(Bytes.begin(), Bytes.end(), Text.begin(),
                 [](char C) { return static_cast<char16_t>(static_cast<unsigned char>(C)); });
  return ToUtf8(Text);
}

class TStringWriter : public pugi::xml_writer {
public:
  void write(const void* Data, size_t Size) override { Text.append(static_cast<const char*>(Data), Size); }
  std::string Text;
};

} // namespace

TXMLDocument::TXMLDocument(bool Declaration, bool Indent) : FContent(std::make_unique<TContent>()) {
  FContent->Declaration = Declaration;
  FContent->Indent = Indent;
}

TXMLDocument::~TXMLDocument() = default;

std::unique_ptr<TXMLDocument> CreateXMLDocument(bool Declaration, bool Indent) {
  return std::unique_ptr<TXMLDocument>(new TXMLDocument(Declaration, Indent));
}

int TXMLDocument::LineAt(std::ptrdiff_t Offset) const {
  if (Offset < 0 || static_cast<size_t>(Offset) > FContent->Source.size()) return 0;
  // Counted on from the last answer: a walk over the document asks in its order, and a file may be large.
  TContent& Content = *FContent;
  if (Offset < Content.CountedTo) Content.CountedTo = Content.LinesBefore = 0;
  const auto Begin = Content.Source.begin();
  Content.LinesBefore += std::count(Begin + Content.CountedTo, Begin + Offset, '\n');
  Content.CountedTo = Offset;
  return static_cast<int>(Content.LinesBefore) + 1;
}

void TXMLDocument::LoadFromFile(std::u16string_view Path) {
  LoadFromMemory(ReadWholeFile(Path), Path);
}

void TXMLDocument::LoadFromMemory(std::string Content, std::u16string_view Path) {
  FContent->Path = Path;
  FContent->Source = ToUtf8Source(std::move(Content), FContent->Path);
  FContent->CountedTo = FContent->LinesBefore = 0;
  std::string& Source = FContent->Source;
  auto Place = [&](std::ptrdiff_t Offset) {
    return EXmlError::TPlace{FContent->Path, LineAt(Offset), {}, {}};
  };
  if (DeclaresLatin1(Source) && !IsUtf8(Source)) Source = FromLatin1(Source);
  if (const size_t Nul = Source.find('\0'); Nul != std::string::npos)
    throw EXmlError(u"Not an XML file: it holds a NUL character", Place(static_cast<std::ptrdiff_t>(Nul)));
  if (!IsUtf8(Source)) throw EXmlError(u"Not an XML file: its text is not valid UTF-8", Place(-1));
  if (const TXmlScan Scan = BlankTextBetweenTags(Source); Scan.Result != TXmlScan::Fine)
    throw EXmlError(Scan.Result == TXmlScan::Unfinished
                        ? u"Not a well-formed XML file: it ends before everything in it is closed"
                        : u"Not a well-formed XML file: a reference to a character that XML cannot carry",
                    Place(static_cast<std::ptrdiff_t>(Scan.Offset)));
  const pugi::xml_parse_result Result =
      FContent->Document.load_buffer(Source.data(), Source.size(), pugi::parse_default, pugi::encoding_utf8);
  if (Result.status == pugi::status_out_of_memory) throw std::bad_alloc();
  if (!Result)
    throw EXmlError(u"Not a well-formed XML file: " + FromUtf8(Result.description()), Place(Result.offset));
}

std::string TXMLDocument::SaveToMemory() const {
  TStringWriter Writer;
  unsigned Flags = pugi::format_default & ~(FContent->Indent ? 0U : pugi::format_indent);
  if (!FContent->Indent) Flags |= pugi::format_raw;
  if (!FContent->Declaration)
    Flags |= pugi::format_no_declaration;
  else
    Writer.Text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  FContent->Document.save(Writer, "  ", Flags | pugi::format_no_declaration, pugi::encoding_utf8);
  return std::move(Writer.Text);
}

void TXMLDocument::SaveToFile(std::u16string_view Path) const {
  WriteWholeFile(Path, SaveToMemory());
}

TXMLNode TXMLDocument::DocumentElement() const {
  const pugi::xml_node Root = FContent->Document.document_element();
  if (!Root) throw EXmlError(u"Not an XML file: it has no root element", {FContent->Path, 0, {}, {}});
  return TXMLNode(this, Root.internal_object());
}

TXMLNode TXMLDocument::AddDocumentElement(std::u16string_view Name) {
  const pugi::xml_node Root = FContent->Document.append_child(TUtf8Name(Name).Text());
  if (!Root) throw std::bad_alloc();
  return TXMLNode(this, Root.internal_object());
}

std::u16string TXMLNode::Name() const {
  return FromUtf8(Pugi(FNode).name());
}
int TXMLNode::Line() const {
  return FDocument->LineAt(Pugi(FNode).offset_debug());
}

TXMLNode TXMLNode::FirstChild() const {
  return TXMLNode(FDocument, FirstElement(Pugi(FNode).first_child()));
}
TXMLNode TXMLNode::NextSibling() const {
  return TXMLNode(FDocument, FirstElement(Pugi(FNode).next_sibling()));
}

int TXMLNode::ChildCount() const {
  int Count = 0;
  for (TXMLNode Child = FirstChild(); Child; Child = Child.NextSibling()) ++Count;
  return Count;
}

TXMLNode TXMLNode::Child(int Index) const {
  int Position = 0;
  for (TXMLNode Child = FirstChild(); Child; Child = Child.NextSibling())
    if (Position++ == Index) return Child;
  RaiseListIndex(Index);
}

TXMLNode TXMLNode::ChildByName(std::u16string_view ChildName) const {
  return ChildByName(TUtf8Name(ChildName).Text());
}

TXMLNode TXMLNode::ChildByName(const char* ChildName) const {
  const pugi::xml_node Found = Pugi(FNode).child(ChildName);
  if (!Found) {
    const std::u16string Missing = FromUtf8(ChildName);
    Raise(u"Missing child \"" + Missing + u"\"", {}, Missing);
  }
  return TXMLNode(FDocument, Found.internal_object());
}

void TXMLNode::Raise(std::u16string_view Problem, std::u16string_view AttributeName,
                     std::u16string_view Text) const {
  throw EXmlError(
      Problem, {FDocument->FContent->Path, Line(), Shown(Pugi(FNode).name()), std::u16string(AttributeName)},
      Text);
}

const char* TXMLNode::RequiredAttribute(const char* AttributeName) const {
  const pugi::xml_attribute Found = Pugi(FNode).attribute(AttributeName);
  if (!Found) Raise(u"Missing", FromUtf8(AttributeName), {});
  return Found.value();
}

std::u16string TXMLNode::AttributeText(std::u16string_view AttributeName) const {
  return AttributeText(TUtf8Name(AttributeName).Text());
}
int TXMLNode::AttributeInteger(std::u16string_view AttributeName) const {
  return AttributeInteger(TUtf8Name(AttributeName).Text());
}
bool TXMLNode::AttributeBoolean(std::u16string_view AttributeName) const {
  return AttributeBoolean(TUtf8Name(AttributeName).Text());
}

std::u16string TXMLNode::AttributeText(const char* AttributeName) const {
  return FromUtf8(RequiredAttribute(AttributeName));
}

int TXMLNode::AttributeInteger(const char* AttributeName) const {
  const char* const Plain = RequiredAttribute(AttributeName);
  int Value = 0;
  if (ReadPlainInteger(Plain, Value)) return Value;
  const std::u16string Text = FromUtf8(Plain);
  if (Text.empty() || Text.front() == u' ' || !TryStrToInt(Text, Value))
    Raise(u"\"" + Shown(Plain) + u"\" is not a 32-bit integer", FromUtf8(AttributeName), Shown(Plain));
  return Value;
}

bool TXMLNode::AttributeBoolean(const char* AttributeName) const {
  const char* const Plain = RequiredAttribute(AttributeName);
  if (std::strcmp(Plain, "false") == 0) return false; // as it is nearly always written
  if (std::strcmp(Plain, "true") == 0) return true;
  const std::u16string Text = Shown(Plain);
  if (SameText(Text, u"true") || Text == u"1" || Text == u"-1") return true;
  if (!SameText(Text, u"false") && Text != u"0")
    Raise(u"\"" + Text + u"\" is not a Boolean", FromUtf8(AttributeName), Text);
  return false;
}

TXMLNode TXMLNode::AddChild(std::u16string_view ChildName) {
  const pugi::xml_node Child = Pugi(FNode).append_child(TUtf8Name(ChildName).Text());
  if (!Child) throw std::bad_alloc();
  return TXMLNode(FDocument, Child.internal_object());
}

void TXMLNode::AddText(std::u16string_view AttributeName, std::u16string_view Value) {
  if (!IsXmlText(Value)) RaiseNoXmlText(Name(), AttributeName, Value);
  pugi::xml_attribute Attribute = Pugi(FNode).append_attribute(TUtf8Name(AttributeName).Text());
  if (!Attribute || !Attribute.set_value(ToUtf8(Value).c_str())) throw std::bad_alloc();
}

void TXMLNode::AddInteger(std::u16string_view AttributeName, int Value) {
  AddText(AttributeName, IntToStr(Value));
}
void TXMLNode::AddBoolean(std::u16string_view AttributeName, bool Value) {
  AddText(AttributeName, Value ? u"true" : u"false");
}

} // namespace unitlib

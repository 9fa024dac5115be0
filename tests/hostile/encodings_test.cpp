/// Small hostile files by name: encodings, declarations, entities, and what is no settings file at all.
#include "tests/hostile/HostileFile.h"
#include "tests/hostile/SettingsText.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Text.h"

#include <functional>

namespace unitlib::test {
namespace {

using TChange = std::string (*)(const std::string& Good);

std::string Utf16(const std::string& Text, bool BigEndian) {
  std::string Result;
  for (const char16_t C : FromUtf8(Text)) {
    const char High = static_cast<char>(C >> 8), Low = static_cast<char>(C & 0xFF);
    Result += BigEndian ? High : Low;
    Result += BigEndian ? Low : High;
  }
  return Result;
}

std::string Put(std::string Text, const std::string& Old, const std::string& New) {
  return Text.replace(Text.find(Old), Old.size(), New);
}

std::string Declared(const std::string& Text, const std::string& Encoding) {
  return Put(Text, "encoding=\"UTF-8\"", "encoding=\"" + Encoding + "\"");
}

/// The description of the configuration.
std::string Named(const std::string& Text, const std::string& Name) {
  return Put(Text, "US Imperial System", Name);
}

std::string WithDoctype(const std::string& Text, const std::string& Subset) {
  return Put(Text, "<Unit>", "<!DOCTYPE Unit [" + Subset + "]>\n<Unit>");
}

struct TRow {
  const char* Name; // also the reason
  TChange Change;
  const char16_t* Description; // of the configuration; null: refused
};

constexpr const char16_t* Usual = u"US Imperial System";
constexpr const char16_t* Refused = nullptr;

const TRow Rows[] = {
    {"Utf8WithoutMark", [](const std::string& T) { return T; }, Usual},
    {"Utf8WithMark", [](const std::string& T) { return "\xEF\xBB\xBF" + T; }, Usual},
    {"Utf8MarkAlone", [](const std::string&) { return std::string("\xEF\xBB\xBF"); }, Refused},
    {"Utf8MarkTwice", [](const std::string& T) { return "\xEF\xBB\xBF\xEF\xBB\xBF" + T; }, Usual},
    {"Utf16LittleWithMark", [](const std::string& T) { return "\xFF\xFE" + Utf16(T, false); }, Usual},
    {"Utf16BigWithMark", [](const std::string& T) { return "\xFE\xFF" + Utf16(T, true); }, Usual},
    {"Utf16LittleWithoutMark", [](const std::string& T) { return Utf16(T, false); }, Usual},
    {"Utf16BigWithoutMark", [](const std::string& T) { return Utf16(T, true); }, Usual},
    {"Utf16Declared", [](const std::string& T) { return "\xFF\xFE" + Utf16(Declared(T, "UTF-16"), false); },
     Usual},
    {"Utf16BeyondTheBasicPlane",
     [](const std::string& T) { return "\xFE\xFF" + Utf16(Named(T, "\xF0\x9F\x93\x90"), true); },
     u"\U0001F4D0"},
    {"Utf16WithHalfACharacter", [](const std::string& T) { return "\xFF\xFE" + Utf16(T, false) + "x"; },
     Refused},
    {"Utf16WithHalfAPair",
     [](const std::string& T) {
       return Put("\xFF\xFE" + Utf16(T, false), std::string("U\0S\0", 4), "\x3D\xD8S\x20");
     },
     Refused},
    {"Utf32", [](const std::string& T) { return std::string("\xFF\xFE\0\0<\0\0\0", 8) + T; }, Refused},
    {"DeclaredUtf16ButUtf8", [](const std::string& T) { return Declared(T, "UTF-16"); }, Usual},
    {"DeclaredLatin1ButUtf8",
     [](const std::string& T) { return Declared(Named(T, "m\xC2\xB2"), "ISO-8859-1"); }, u"m\u00B2"},
    {"DeclaredLatin1AndSo", [](const std::string& T) { return Declared(Named(T, "m\xB2"), "ISO-8859-1"); },
     u"m\u00B2"},
    {"DeclaredUtf8ButLatin1", [](const std::string& T) { return Named(T, "m\xB2"); }, Refused},
    {"DeclaredUnknown", [](const std::string& T) { return Declared(T, "x-nothing"); }, Usual},
    {"DeclaredGbAndSo", [](const std::string& T) { return Declared(Named(T, "\xC3\xD7"), "GB18030"); },
     Refused},
    {"OverlongUtf8", [](const std::string& T) { return Named(T, "\xC0\xAF"); }, Refused},
    {"SurrogateInUtf8", [](const std::string& T) { return Named(T, "\xED\xA0\x80"); }, Refused},
    {"BeyondUnicode", [](const std::string& T) { return Named(T, "\xF4\x90\x80\x80"); }, Refused},
    {"NulByteInAText", [](const std::string& T) { return Named(T, std::string("a\0b", 3)); }, Refused},
    {"NulBytesAtTheEnd", [](const std::string& T) { return T + std::string(100, '\0'); }, Refused},
    {"NulBytesOnly", [](const std::string&) { return std::string(4096, '\0'); }, Refused},
    {"Empty", [](const std::string&) { return std::string(); }, Refused},
    {"OneBlank", [](const std::string&) { return std::string(" "); }, Refused},
    {"PlainText", [](const std::string&) { return std::string("Lorem ipsum\n"); }, Refused},
    {"AProgram",
     [](const std::string&) {
       return std::string("\x7F"
                          "ELF\x02\x01\x01\0\0\0",
                          10);
     },
     Refused},
    {"AnArchive", [](const std::string&) { return std::string("PK\x03\x04\x14\0\x06\0", 8); }, Refused},
    {"Json", [](const std::string&) { return std::string("{\"Unit\": {}}"); }, Refused},
    {"WebPage",
     [](const std::string&) { return std::string("<!DOCTYPE html><html><body>404<br></body></html>"); },
     Refused},
    {"AnotherXml", [](const std::string&) { return std::string("<svg/>"); }, Refused},
    {"DeclarationOnly", [](const std::string& T) { return T.substr(0, T.find('\n')); }, Refused},
    {"EmptyRoot", [](const std::string&) { return std::string("<Unit/>"); }, Refused},
    {"TwoRoots", [](const std::string& T) { return T + T.substr(T.find("<Unit>")); }, Usual},
    {"ALineOfTextBehindTheRoot", [](const std::string& T) { return T + "and so on\n"; }, Usual},
    {"AnOpenTagBehindTheRoot", [](const std::string& T) { return T + "<Unit>"; }, Refused},
    {"ExternalEntity",
     [](const std::string& T) {
       return Named(WithDoctype(T, "<!ENTITY e SYSTEM \"file:///etc/hostname\">"), "&e;");
     },
     u"&e;"},
    {"ExternalSubset",
     [](const std::string& T) {
       return Put(T, "<Unit>", "<!DOCTYPE Unit SYSTEM \"file:///dev/zero\">\n<Unit>");
     },
     Usual},
    {"ParameterEntity",
     [](const std::string& T) { return WithDoctype(T, "<!ENTITY % p SYSTEM \"file:///etc/hostname\"> %p;"); },
     Usual},
    {"EntityExpansion",
     [](const std::string& T) {
       std::string Subset = "<!ENTITY a0 \"ha\">";
       for (int I = 1; I < 40; ++I) {
         const std::string Before = "&a" + std::to_string(I - 1) + ";";
         Subset += "<!ENTITY a" + std::to_string(I) + " \"" + Before + Before + "\">";
       }
       return Named(WithDoctype(T, Subset), "&a39;");
     },
     u"&a39;"},
    {"EntityOfItself",
     [](const std::string& T) { return Named(WithDoctype(T, "<!ENTITY a \"&a;\">"), "&a;"); }, u"&a;"},
    {"BracketsInTheSubset",
     [](const std::string& T) { return WithDoctype(T, "<!-- ]> ' --><?p ]>?><!ENTITY a \"]><b>\">"); },
     Usual},
    {"SubsetNotClosed",
     [](const std::string& T) { return Put(T, "<Unit>", "<!DOCTYPE Unit [<!ENTITY\n<Unit>"); }, Refused},
    {"CommentNotClosed", [](const std::string& T) { return Put(T, "<Config", "<!-- <Config"); }, Refused},
    {"CdataNotClosed", [](const std::string& T) { return Put(T, "<Config", "<![CDATA[ <Config"); }, Refused},
    {"InstructionNotClosed", [](const std::string& T) { return Put(T, "<Config", "<?p <Config"); }, Refused},
    {"QuoteNotClosed", [](const std::string& T) { return Put(T, "OrderIndex=\"0\"", "OrderIndex=\"0"); },
     Refused},
    {"TagsInComments",
     [](const std::string& T) { return Put(T, "<Config", "<!-- <Config> '\" -->\n<Config"); }, Usual},
    {"TagsInCdata", [](const std::string& T) { return Put(T, "<Config", "<![CDATA[</Unit><a>]]>\n<Config"); },
     Usual},
    {"TagsInInstructions",
     [](const std::string& T) { return Put(T, "<Config", "<?p </Unit> \" ?>\n<Config"); }, Usual},
    {"ABracketInAnAttribute", [](const std::string& T) { return Named(T, "a > b"); }, u"a > b"},
    {"QuotesOfBothKinds", [](const std::string& T) { return Put(T, "\"US Imperial System\"", "'5\" <- 6'"); },
     u"5\" <- 6"},
    {"TextBetweenTags",
     [](const std::string& T) { return Put(T, "<Config", "]]> &lt; it's \"text\" > <Config"); }, Usual},
    {"LineEndsOfWindows",
     [](const std::string& T) {
       std::string Result;
       for (const char C : T) Result += C == '\n' ? std::string("\r\n") : std::string(1, C);
       return Result;
     },
     Usual},
    {"ControlCharacterByReference", [](const std::string& T) { return Named(T, "a&#1;b"); }, Refused},
    {"NulByReference", [](const std::string& T) { return Named(T, "a&#0;b"); }, Refused},
    {"NulByReferenceInANumber",
     [](const std::string& T) { return Put(T, "OrderIndex=\"0\"", "OrderIndex=\"0&#x0;7\""); }, Refused},
    {"BeyondUnicodeByReference", [](const std::string& T) { return Named(T, "&#x110000;"); }, Refused},
    {"BeyondIntegersByReference", [](const std::string& T) { return Named(T, "&#99999999999999;"); },
     Refused},
    {"GoodReferences", [](const std::string& T) { return Named(T, "&#xB2;&#178;&#10;&#x1F4D0;&#;&#x;&#9"); },
     u"\u00B2\u00B2\n\U0001F4D0&#;&#x;&#9"},
    {"HalfAPairByReference", [](const std::string& T) { return Named(T, "a&#xD800;b"); }, Refused},
    {"AnAttributeTwice",
     [](const std::string& T) {
       return Put(T, "Description=\"US Imperial System\"",
                  "Description=\"US Imperial System\" Description=\"x\"");
     },
     Usual},
};

class NamedFile : public THostileFile, public testing::WithParamInterface<TRow> {};

TEST_P(NamedFile, LoadsOrIsRefused) {
  const TOutcome Outcome = Load(GetParam().Change(TSettingsText::Small().Text()));
  EXPECT_EQ(Outcome.Kind, GetParam().Description ? "loaded" : "EXmlError") << Outcome.Message;
  if (!GetParam().Description) return;
  TSystemUnitDataManager::InitUnitSystemSetting(Folders.File("tried.xml"));
  EXPECT_EQ(TSystemUnitDataManager::CurConfig()->Description, GetParam().Description);
}

INSTANTIATE_TEST_SUITE_P(Rows, NamedFile, testing::ValuesIn(Rows),
                         [](const auto& Info) { return std::string(Info.param.Name); });

} // namespace
} // namespace unitlib::test

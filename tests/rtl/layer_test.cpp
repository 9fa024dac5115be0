/// Lists, registry, regular expressions, files and folders, XML.
#include "tests/support/Settings.h"
#include "unitlib/rtl/ClassRegistry.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/FileFolders.h"
#include "unitlib/rtl/Files.h"
#include "unitlib/rtl/OwningList.h"
#include "unitlib/rtl/PerlRegEx.h"
#include "unitlib/rtl/Text.h"
#include "unitlib/rtl/Xml.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <thread>

#ifndef _WIN32
#include <pwd.h>
#include <unistd.h>
#endif

namespace unitlib {
namespace {
namespace fs = std::filesystem;
using test::TPrivateFolders;

// ---------------------------------------------------------------- lists and registry

TEST(OwningList, RaisesItsIndexError) {
  TOwningList<int> List;
  List.Add(std::make_unique<int>(7));
  EXPECT_EQ(List.Item(0), 7);
  EXPECT_EQ(List.Find(1), nullptr);
  for (int Index : {-1, 1, 2147483647, -2147483647 - 1}) EXPECT_THROW(List.Item(Index), EListError) << Index;
  try {
    List.Item(-1);
  } catch (const EListError& Error) {
    EXPECT_STREQ(Error.what(), "List index out of bounds (-1)");
    EXPECT_EQ(Error.Text(), u"-1");
  }
  EXPECT_THROW(List.Delete(1), EListError);
  List.Delete(0);
  EXPECT_EQ(List.Count(), 0);
}

TEST(ClassRegistry, FindsWithoutLetterCaseAndKeepsTheFirst) {
  TClassRegistry<int (*)()> Registry;
  Registry.Register(
      u"TBeta", +[] { return 1; });
  Registry.Register(
      u"TAlpha", +[] { return 2; });
  Registry.Register(
      u"tbeta", +[] { return 3; });
  EXPECT_EQ(Registry.Count(), 2);
  ASSERT_NE(Registry.Find(u"TBETA"), nullptr);
  EXPECT_EQ(Registry.Find(u"TBETA")(), 1);
  EXPECT_EQ(Registry.Find(u"talpha")(), 2);
  EXPECT_EQ(Registry.Find(u"TBet"), nullptr);
  EXPECT_EQ(Registry.Find(u""), nullptr);
}

// ---------------------------------------------------------------- texts

TEST(Texts, AreOrderedWithTheLettersFolded) {
  EXPECT_EQ(CompareText(u"Area", u"aREA"), 0);
  EXPECT_LT(CompareText(u"area", u"Areas"), 0);
  EXPECT_GT(CompareText(u"Areas", u"area"), 0);
  EXPECT_LT(CompareText(u"a", u"B"), 0);
  EXPECT_GT(CompareText(u"b", u"A"), 0);
  EXPECT_LT(CompareText(u"", u"a"), 0);
  EXPECT_NE(CompareText(u"\u00E4", u"\u00C4"), 0) << "A to Z only";
}

// ---------------------------------------------------------------- regular expressions

TEST(PerlRegEx, MatchesUtf16AsUtf8) {
  const TPerlRegEx Expression(u"\\d+");
  EXPECT_TRUE(Expression.Match(u"a12b"));
  EXPECT_FALSE(Expression.MatchesWhole(u"a12b"));
  EXPECT_TRUE(Expression.MatchesWhole(u"12"));
  EXPECT_FALSE(Expression.Match(u"\uFF11\u0661")); // digits of other scripts are none
  EXPECT_FALSE(Expression.Match(u"\xD800"));
  EXPECT_TRUE(TPerlRegEx(u"^.\\z").Match(u"\xD83D\xDE00")); // one character, two units
  EXPECT_TRUE(TPerlRegEx(u"ab", true).Match(u"xAB"));
  EXPECT_TRUE(Expression.MatchesWhole(std::u16string(100000, u'7')));
  EXPECT_THROW(TPerlRegEx(u"(("), EConvertError);
}

TEST(PerlRegEx, ServesSeveralThreads) {
  const TPerlRegEx Expression(u"\\A[-+]?\\d{1,15}'\\z");
  auto Run = [&Expression] {
    for (int I = 0; I < 20000; ++I) {
      ASSERT_TRUE(Expression.Match(u"12'"));
      ASSERT_FALSE(Expression.Match(u"12'x"));
    }
  };
  std::thread A(Run), B(Run);
  A.join();
  B.join();
}

// ---------------------------------------------------------------- files and folders

TEST(Folders, CanBeOverriddenAndEndWithTheDelimiter) {
  TPrivateFolders Folders;
  EXPECT_EQ(GetExePath().back(), PathDelim());
  EXPECT_EQ(GetExePath(), IncludeTrailingPathDelimiter(Folders.Root().u16string()));
  SetExePath(u"");
  EXPECT_EQ(GetExePath().back(), PathDelim());
  EXPECT_EQ(IncludeTrailingPathDelimiter(u""), u"");
}

TEST(Folders, AreCreatedWithParents) {
  TPrivateFolders Folders;
  ForceDirectories(Folders.File("a/b/c"));
  EXPECT_TRUE(fs::is_directory(Folders.Root() / "a" / "b" / "c"));
  ForceDirectories(Folders.File("a/b/c"));
  test::WriteBytes(Folders.File("file"), "x");
  EXPECT_THROW(ForceDirectories(Folders.File("file/b")), EFileError);
}

TEST(WholeFiles, AreReadAndReplaced) {
  TPrivateFolders Folders;
  const std::u16string Path = Folders.File("\xE9\x95\xBF \xC3\xA9.xml"); // not ASCII
  WriteWholeFile(Path, "one");
  EXPECT_EQ(ReadWholeFile(Path), "one");
  WriteWholeFile(Path, std::string(100000, 'x'));
  EXPECT_EQ(ReadWholeFile(Path).size(), 100000U);
  EXPECT_EQ(std::distance(fs::directory_iterator(Folders.Root()), fs::directory_iterator()), 2)
      << "a temporary file stayed";
}

TEST(WholeFiles, RefuseWithThePath) {
  TPrivateFolders Folders;
  auto Message = [](auto Action) {
    try {
      Action();
    } catch (const EFileError& Error) {
      return Error.Path();
    }
    return std::u16string(u"no error");
  };
  const std::u16string Missing = Folders.File("none.xml"), Folder = Folders.File("docs"),
                       Deep = Folders.File("no/such/folder.xml");
  EXPECT_EQ(Message([&] { ReadWholeFile(Missing); }), Missing);
  EXPECT_EQ(Message([&] { ReadWholeFile(Folder); }), Folder);
  EXPECT_EQ(Message([&] { WriteWholeFile(Folder, "x"); }), Folder);
  EXPECT_EQ(Message([&] { WriteWholeFile(Deep, "x"); }), Deep);
}

#ifndef _WIN32
TEST(Folders, DocumentsLieInTheHomeFolderOfTheUser) {
  TPrivateFolders Folders;
  SetCommonDocumentsPath(u"");
  const passwd* const User = getpwuid(getuid());
  ASSERT_NE(User, nullptr);
  EXPECT_EQ(ToUtf8(GetCommonDocumentsPath()), (fs::path(User->pw_dir) / "Documents").string());
}
#endif

#ifdef __linux__ // a regular file that can be opened, but not read: there is nothing at address 0
TEST(WholeFiles, RefuseWhatCannotBeReadToItsEnd) {
  try {
    ReadWholeFile(u"/proc/self/mem");
    FAIL() << "was read";
  } catch (const EFileError& Error) {
    EXPECT_EQ(Error.Path(), u"/proc/self/mem");
    EXPECT_STREQ(Error.what(), "/proc/self/mem: Cannot be read: Input/output error");
  }
}
#endif

#ifndef _WIN32 // links and permission bits are the POSIX ones
TEST(WholeFiles, FollowLinksAndKeepPermissions) {
  TPrivateFolders Folders;
  const std::u16string Target = Folders.File("target.xml"), Link = Folders.File("link.xml");
  WriteWholeFile(Target, "old");
  fs::permissions(fs::path(Target), fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
  fs::create_symlink("target.xml", fs::path(Link));
  WriteWholeFile(Link, "new");
  EXPECT_TRUE(fs::is_symlink(fs::path(Link)));
  EXPECT_EQ(ReadWholeFile(Target), "new");
  EXPECT_EQ(fs::status(fs::path(Target)).permissions(),
            fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
  const std::u16string Loop = Folders.File("loop.xml");
  fs::create_symlink("loop.xml", fs::path(Loop));
  EXPECT_THROW(WriteWholeFile(Loop, "x"), EFileError);
}
#endif

// ---------------------------------------------------------------- XML

std::unique_ptr<TXMLDocument> Parse(std::string_view Text) {
  auto Document = CreateXMLDocument();
  Document->LoadFromMemory(std::string(Text), u"test.xml");
  return Document;
}

TEST(Xml, WritesDeclarationIndentAndCharacterReferences) {
  auto Document = CreateXMLDocument();
  TXMLNode Child = Document->AddDocumentElement(u"Root").AddChild(u"Child");
  Child.AddText(u"Text", u"<&>\"'\u4E2D\r\n\t|");
  Child.AddText(u"Empty", u"");
  Child.AddInteger(u"Number", -5);
  Child.AddBoolean(u"Yes", true);
  const std::string Text = Document->SaveToMemory();
  EXPECT_EQ(Text.find("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Root>\n  <Child Text=\""), 0U) << Text;
  EXPECT_NE(Text.find("&#13;&#10;&#09;|"), std::string::npos) << Text;
  const auto Again = Parse(Text);
  const TXMLNode Read = Again->DocumentElement().ChildByName(u"Child");
  EXPECT_EQ(Read.AttributeText(u"Text"), u"<&>\"'\u4E2D\r\n\t|");
  EXPECT_EQ(Read.AttributeText(u"Empty"), u"");
  EXPECT_EQ(Read.AttributeInteger(u"Number"), -5);
  EXPECT_TRUE(Read.AttributeBoolean(u"Yes"));
}

TEST(Xml, IsOneLineWithoutDeclarationAndIndent) {
  const auto Document = CreateXMLDocument(false, false);
  Document->AddDocumentElement(u"r").AddChild(u"c").AddText(u"a", u"1");
  EXPECT_EQ(Document->SaveToMemory(), "<r><c a=\"1\"/></r>");
}

TEST(Xml, IsReadFromAFile) {
  TPrivateFolders Folders;
  test::WriteBytes(Folders.File("r.xml"), "<r><c a='1'/></r>");
  const auto Document = CreateXMLDocument();
  Document->LoadFromFile(Folders.File("r.xml"));
  EXPECT_EQ(Document->DocumentElement().ChildByName(u"c").AttributeInteger(u"a"), 1);
  EXPECT_THROW(Document->LoadFromFile(Folders.File("none.xml")), EFileError);
}

TEST(Xml, TakesNamesOfAnyLengthAndScript) {
  const std::u16string Long(300, u'n'), Umlaut = u"L\u00E4nge";
  const auto Document = CreateXMLDocument(false, false);
  TXMLNode Root = Document->AddDocumentElement(Umlaut);
  Root.AddText(Long, u"1");
  Root.AddText(Umlaut, u"2");
  EXPECT_EQ(Document->SaveToMemory(),
            "<L\xC3\xA4nge " + std::string(300, 'n') + "=\"1\" L\xC3\xA4nge=\"2\"/>");
  EXPECT_EQ(Root.AttributeText(Long), u"1");
  EXPECT_EQ(Root.AttributeText(Umlaut), u"2");
}

TEST(Xml, RefusesCharactersItCannotCarry) {
  auto Document = CreateXMLDocument();
  TXMLNode Root = Document->AddDocumentElement(u"Root");
  for (const std::u16string& Bad :
       {std::u16string(u"a\0b", 3), std::u16string(u"\x01"), std::u16string(u"\xD800"),
        std::u16string(u"\xDC00\xD800"), std::u16string(u"\uFFFE")})
    EXPECT_THROW(Root.AddText(u"A", Bad), EXmlError);
}

TEST(Xml, CountsElementsOnly) {
  const auto Document = Parse("<r><!-- c --><a/>text<?Rounds x?><b/></r>");
  const TXMLNode Root = Document->DocumentElement();
  EXPECT_EQ(Root.ChildCount(), 2);
  EXPECT_EQ(Root.Child(1).Name(), u"b");
  EXPECT_THROW(Root.Child(2), EListError);
  EXPECT_THROW(Root.ChildByName(u"Rounds"), EXmlError);
}

struct TBooleanRow {
  const char* Text;
  int Expected; // -1: refused
};

TEST(Xml, ReadsBooleansAndIntegersStrictly) {
  for (const TBooleanRow& Row : {TBooleanRow{"true", 1},
                                 {"TRUE", 1},
                                 {"False", 0},
                                 {"1", 1},
                                 {"0", 0},
                                 {"-1", 1},
                                 {"", -1},
                                 {"yes", -1},
                                 {"2", -1},
                                 {" true", -1}}) {
    const auto Document = Parse(std::string("<r a='") + Row.Text + "'/>");
    if (Row.Expected < 0)
      EXPECT_THROW(Document->DocumentElement().AttributeBoolean(u"a"), EXmlError) << Row.Text;
    else
      EXPECT_EQ(Document->DocumentElement().AttributeBoolean(u"a"), Row.Expected == 1) << Row.Text;
  }
  for (const char* Bad : {"", "1.5", "abc", "2147483648", "-2147483649", " 5", "0x10"})
    EXPECT_THROW(Parse(std::string("<r a='") + Bad + "'/>")->DocumentElement().AttributeInteger(u"a"),
                 EXmlError)
        << Bad;
}

TEST(Xml, TellsThePlaceOfAnError) {
  const auto Document = Parse("<r>\n  <x>\n    <y b='z'/>\n  </x>\n</r>");
  const TXMLNode Y = Document->DocumentElement().Child(0).Child(0);
  try {
    Y.AttributeInteger(u"b");
    FAIL() << "no error";
  } catch (const EXmlError& Error) {
    EXPECT_EQ(Error.Path(), u"test.xml");
    EXPECT_EQ(Error.Line(), 3);
    EXPECT_EQ(Error.Element(), u"y");
    EXPECT_EQ(Error.Attribute(), u"b");
    EXPECT_STREQ(Error.what(), "test.xml:3: \"z\" is not a 32-bit integer, attribute \"b\" of element \"y\"");
  }
  EXPECT_THROW(Y.AttributeText(u"none"), EXmlError);
}

TEST(Xml, CutsALongTextInAnErrorBetweenCharacters) {
  const std::string Shown(199, 'a'); // of at most 200 bytes; the character of two bytes does not fit any more
  const auto Document = Parse("<r a='" + Shown + "\xC3\xA9" + std::string(1000, 'b') + "'/>");
  try {
    Document->DocumentElement().AttributeInteger(u"a");
    FAIL() << "no error";
  } catch (const EXmlError& Error) {
    EXPECT_NE(std::string(Error.what()).find("\"" + Shown + "...\" is not"), std::string::npos)
        << Error.what();
  }
}

TEST(Xml, ReadsTheUsualEncodings) {
  const std::string Utf8 = "<r a='\xC3\xA9'/>";
  std::string Little = "\xFF\xFE", Big = "\xFE\xFF";
  for (char16_t C : std::u16string(u"<r a='\u00E9'/>")) {
    Little += {static_cast<char>(C & 0xFF), static_cast<char>(C >> 8)};
    Big += {static_cast<char>(C >> 8), static_cast<char>(C & 0xFF)};
  }
  for (const std::string& Text : {Utf8, "\xEF\xBB\xBF" + Utf8, Little, Big, Little.substr(2), Big.substr(2),
                                  std::string("<?xml version='1.0' encoding='ISO-8859-1'?><r a='\xE9'/>"),
                                  "<?xml version='1.0' encoding='UTF-16'?>" + Utf8})
    EXPECT_EQ(Parse(Text)->DocumentElement().AttributeText(u"a"), u"\u00E9") << Text;
}

TEST(Xml, RefusesWhatIsNoXml) {
  for (std::string_view Bad :
       {std::string_view(""), std::string_view("hello"), std::string_view("<a>"), std::string_view("<a></b>"),
        std::string_view("<a b='\xE9'/>"), std::string_view("<a/>\0<b/>", 9), std::string_view("\xFF\xFE")})
    EXPECT_THROW(Parse(Bad)->DocumentElement(), EXmlError) << Bad;
}

TEST(Xml, NeverFollowsEntities) {
  const auto Document =
      Parse("<!DOCTYPE r [<!ENTITY e SYSTEM 'file:///etc/passwd'><!ENTITY f 'x'>]><r a='&e;&f;&lt;'/>");
  EXPECT_EQ(Document->DocumentElement().AttributeText(u"a"), u"&e;&f;<");
}

TEST(Xml, TakesDeepNesting) {
  std::string Text;
  for (int I = 0; I < 200000; ++I) Text += "<a>";
  for (int I = 0; I < 200000; ++I) Text += "</a>";
  EXPECT_EQ(Parse(Text)->DocumentElement().Name(), u"a");
}

} // namespace
} // namespace unitlib

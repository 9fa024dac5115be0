#include "tests/hostile/HostileFile.h"

#include "tests/hostile/SettingsText.h"
#include "unitlib/convert/ZELUnitConvertor.h"
#include "unitlib/rtl/Errors.h"

#include <algorithm>

namespace unitlib::test {
namespace {

using TManager = TSystemUnitDataManager;

TOutcome LoadedOrError(std::u16string_view Path) {
  try {
    TManager::InitUnitSystemSetting(Path);
    return {"loaded", {}, {}, {}, {}, 0};
  } catch (const EXmlError& Error) {
    return {
        "EXmlError", Error.what(), ToUtf8(Error.Path()), ToUtf8(Error.Element()), ToUtf8(Error.Attribute()),
        Error.Line()};
  } catch (const EFileError& Error) {
    return {"EFileError", Error.what(), ToUtf8(Error.Path()), {}, {}, 0};
  } catch (const std::exception& Error) {
    return {"unexpected", Error.what(), {}, {}, {}, 0};
  }
}

/// Conversions and changes of whatever was loaded: a result or an error of the family, nothing else.
void UseWhateverIsLoaded() {
  auto Try = [](auto Operation) {
    try {
      Operation();
    } catch (const EUnitError&) {
    }
  };
  for (const int Code : {0, 1, 3, 6}) {
    Try([&] { TMeasureDataManager::StoreToDisplay(Code, 1676.4); });
    Try([&] { TMeasureDataManager::DisplayToStore(Code, u"12"); });
  }
  Try([] { TManager::UpdateDispalyValue(); });
  Try([] { TManager::RestoreDefaultUnitSystem(0); });
}

} // namespace

THostileFile::THostileFile() : FGood(Folders.File("good.xml")), FTried(Folders.File("tried.xml")) {
  WriteBytes(FGood, TSettingsText::Small().Text());
}

THostileFile::~THostileFile() {
  FreeUnitSystem();
}

TOutcome THostileFile::Load(std::string_view Content) {
  WriteBytes(FTried, Content);
  return LoadPath(FTried);
}

TOutcome THostileFile::LoadPath(std::u16string_view Path) {
  const TOutcome Outcome = LoadedOrError(Path);
  EXPECT_TRUE(Outcome.Kind == "loaded" || Outcome.Kind == "EXmlError" || Outcome.Kind == "EFileError")
      << Outcome.Kind << ": " << Outcome.Message;
  if (Outcome.Kind != "loaded") {
    EXPECT_EQ(Outcome.Path, ToUtf8(Path));
    EXPECT_EQ(Outcome.Message.substr(0, Outcome.Path.size()), Outcome.Path);
    EXPECT_LT(Outcome.Message.size(), Outcome.Path.size() + 1000U) << "a message is for reading";
    const std::u16string Untouched = Folders.File("never.xml");
    EXPECT_THROW(TManager::SaveConfigFile(Untouched), EFileError) << "half a model is never saved";
    EXPECT_FALSE(std::filesystem::exists(std::filesystem::path(Untouched)));
  }
  UseWhateverIsLoaded();
  CheckThatTheLibraryWorksOn();
  return Outcome;
}

void THostileFile::CheckThatTheLibraryWorksOn() const {
  TManager::InitUnitSystemSetting(FGood);
  // Decimal feet to the nearest 1000: 609600 mm are 2000 feet.
  EXPECT_EQ(TMeasureDataManager::StoreToDisplay(0, 609600), u"2000");
  EXPECT_EQ(TMeasureDataManager::DisplayToStore(0, u"2"), 609.6);
}

} // namespace unitlib::test

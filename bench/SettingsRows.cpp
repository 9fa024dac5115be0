/// Loading and saving the factory settings, beside the XML library underneath.
#include "bench/Row.h"
#include "bench/Settings.h"
#include "unitlib/model/ZELUnitMgr.h"

#include <pugixml.hpp>

#include <filesystem>

namespace unitlib::bench {
namespace {

class TStringWriter final : public pugi::xml_writer {
public:
  void write(const void* Data, size_t Size) override { Text.append(static_cast<const char*>(Data), Size); }
  std::string Text;
};

/// A row whose inputs are all the same.
template <class TUse> void AddRepeated(std::string Operation, std::string Competitor, TUse Use) {
  Rows().push_back({std::move(Operation), std::move(Competitor), 50,
                    [Use](std::size_t Count) {
                      for (std::size_t I = 0; I < Count; ++I) Keep(Use());
                    },
                    UseMetres});
}

} // namespace

void AddSettingsRows() {
  // The factory file, in which a system has been chosen: without a choice a load writes the working copy,
  // too.
  static const std::u16string File = PrivateFile("chosen.xml");
  TSystemUnitDataManager::SaveConfigFile(File);
  static const std::string Path = std::filesystem::path(File).string();
  const std::string Load = "InitialUnitSystem, factory file", Save = "SaveConfigFile, to memory";
  AddRepeated(Load, "ours", [] {
    InitialUnitSystem(File, CYStandMetric, false);
    TSystemUnitDataManager::SetCurConfig(CYStandMetric);
    return 0;
  });
  AddRepeated(Load, "limit", [] {
    pugi::xml_document Document;
    return Document.load_file(Path.c_str()).status;
  });
  AddRepeated(Save, "ours", [] { return TSystemUnitDataManager::SaveConfigToMemory(); });
  AddRepeated(Save, "limit", [] {
    static const auto Document = [] {
      auto Result = std::make_unique<pugi::xml_document>();
      Result->load_file(Path.c_str());
      return Result;
    }();
    TStringWriter Writer;
    Document->save(Writer, "  ");
    return std::move(Writer.Text);
  });
}

} // namespace unitlib::bench

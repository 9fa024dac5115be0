/// Loading, saving and freeing of settings, the folders they lie in, and the texts of the dialogs.
#include "unitlib/capi/ModelPlace.h"
#include "unitlib/capi/Texts.h"
#include "unitlib/model/ZELUnitConfigFileGenerator.h"
#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/rtl/FileFolders.h"
#include "unitlib/rtl/UserTexts.h"

namespace unitlib::capi {
namespace {

template <class C> ul_status Load(TIn<C> File, int32_t ConfigType, int32_t Save) {
  return Call([&] { InitialUnitSystem(Read(File), RequireConfigType(ConfigType), Save != 0); });
}

template <class C> ul_status LoadReport(TIn<C> File) {
  return Call([&] { TSystemUnitDataManager::InitSystemUnit(Read(File)); });
}

template <class C> ul_status GenerateDefault(TIn<C> File) {
  return Call([&] {
    const std::u16string Name = Read(File);
    if (Name.empty())
      GenerateUnitDefaultConfigFile();
    else
      GenerateUnitDefaultConfigFile(Name);
  });
}

template <class C> ul_status SaveFile(TIn<C> File) {
  return Call([&] { TSystemUnitDataManager::SaveConfigFile(Read(File)); });
}

template <class C> ul_status Tell(std::u16string (*Source)(), TOut<C> Out) {
  return Give(Out, [&] { return Source(); });
}

template <class C> ul_status SetFolder(void (*Target)(std::u16string_view), TIn<C> Path) {
  return Call([&] { Target(Read(Path)); });
}

template <class C> ul_status LoadTexts(TIn<C> File) {
  return Call([&] { LoadTextTable(Read(File)); });
}

template <class C> ul_status SetText(TIn<C> Key, TIn<C> Text) {
  return Call([&] {
    const std::u16string Name = Read(Key);
    if (Name.empty()) FailArgument(u"The key of a text is empty");
    SetUserText(Name, Read(Text));
  });
}

} // namespace
} // namespace unitlib::capi

using namespace unitlib::capi;
using TManager = unitlib::TSystemUnitDataManager;

ul_status UL_CALL ul_initial_unit_system(const ul_char16* file, int32_t length, int32_t config_type,
                                         int32_t save) {
  return Load(TIn{file, length}, config_type, save);
}
ul_status UL_CALL ul_initial_unit_system_u8(const char* file, int32_t length, int32_t config_type,
                                            int32_t save) {
  return Load(TIn{file, length}, config_type, save);
}

ul_status UL_CALL ul_init_system_unit(const ul_char16* file, int32_t length) {
  return LoadReport(TIn{file, length});
}
ul_status UL_CALL ul_init_system_unit_u8(const char* file, int32_t length) {
  return LoadReport(TIn{file, length});
}

ul_status UL_CALL ul_free_unit_system(void) {
  return Call([] { unitlib::FreeUnitSystem(); });
}
ul_status UL_CALL ul_is_loaded(int32_t* loaded) {
  return Answer(loaded, [&] { return TManager::FCurUseUnitConfigContainer ? 1 : 0; });
}

ul_status UL_CALL ul_generate_default_config_file(const ul_char16* file, int32_t length) {
  return GenerateDefault(TIn{file, length});
}
ul_status UL_CALL ul_generate_default_config_file_u8(const char* file, int32_t length) {
  return GenerateDefault(TIn{file, length});
}

ul_status UL_CALL ul_save_config_file(const ul_char16* file, int32_t length) {
  return SaveFile(TIn{file, length});
}
ul_status UL_CALL ul_save_config_file_u8(const char* file, int32_t length) {
  return SaveFile(TIn{file, length});
}

ul_status UL_CALL ul_save_to_model(void) {
  return Call([] { TManager::SavetoModel(unitlib::CYAmInch); }); // which type is handed in does not matter
}

ul_status UL_CALL ul_get_unit_config_file_name(ul_char16* buffer, int32_t capacity, int32_t* needed) {
  return Tell(TManager::GetUnitConfigFileName, TOut(buffer, capacity, needed));
}
ul_status UL_CALL ul_get_unit_config_file_name_u8(char* buffer, int32_t capacity, int32_t* needed) {
  return Tell(TManager::GetUnitConfigFileName, TOut(buffer, capacity, needed));
}

ul_status UL_CALL ul_get_temp_path_for_unit(ul_char16* buffer, int32_t capacity, int32_t* needed) {
  return Tell(unitlib::GetTempPathForUnit, TOut(buffer, capacity, needed));
}
ul_status UL_CALL ul_get_temp_path_for_unit_u8(char* buffer, int32_t capacity, int32_t* needed) {
  return Tell(unitlib::GetTempPathForUnit, TOut(buffer, capacity, needed));
}

ul_status UL_CALL ul_get_exe_path(ul_char16* buffer, int32_t capacity, int32_t* needed) {
  return Tell(unitlib::GetExePath, TOut(buffer, capacity, needed));
}
ul_status UL_CALL ul_get_exe_path_u8(char* buffer, int32_t capacity, int32_t* needed) {
  return Tell(unitlib::GetExePath, TOut(buffer, capacity, needed));
}
ul_status UL_CALL ul_set_exe_path(const ul_char16* path, int32_t length) {
  return SetFolder(unitlib::SetExePath, TIn{path, length});
}
ul_status UL_CALL ul_set_exe_path_u8(const char* path, int32_t length) {
  return SetFolder(unitlib::SetExePath, TIn{path, length});
}

ul_status UL_CALL ul_get_common_documents_path(ul_char16* buffer, int32_t capacity, int32_t* needed) {
  return Tell(unitlib::GetCommonDocumentsPath, TOut(buffer, capacity, needed));
}
ul_status UL_CALL ul_get_common_documents_path_u8(char* buffer, int32_t capacity, int32_t* needed) {
  return Tell(unitlib::GetCommonDocumentsPath, TOut(buffer, capacity, needed));
}
ul_status UL_CALL ul_set_common_documents_path(const ul_char16* path, int32_t length) {
  return SetFolder(unitlib::SetCommonDocumentsPath, TIn{path, length});
}
ul_status UL_CALL ul_set_common_documents_path_u8(const char* path, int32_t length) {
  return SetFolder(unitlib::SetCommonDocumentsPath, TIn{path, length});
}

ul_status UL_CALL ul_load_texts(const ul_char16* file, int32_t length) {
  return LoadTexts(TIn{file, length});
}
ul_status UL_CALL ul_load_texts_u8(const char* file, int32_t length) {
  return LoadTexts(TIn{file, length});
}
ul_status UL_CALL ul_set_text(const ul_char16* key, int32_t key_length, const ul_char16* text,
                              int32_t length) {
  return SetText(TIn{key, key_length}, TIn{text, length});
}
ul_status UL_CALL ul_set_text_u8(const char* key, int32_t key_length, const char* text, int32_t length) {
  return SetText(TIn{key, key_length}, TIn{text, length});
}

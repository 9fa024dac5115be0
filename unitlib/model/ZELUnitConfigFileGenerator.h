/// Writers of the settings file: the factory defaults from constant tables, and the live model.
#pragma once

#include "unitlib/model/UnitModel.h"
#include "unitlib/rtl/Xml.h"

#include <memory>
#include <string_view>

namespace unitlib {

/// Writes the factory-default settings as "UnitConfig.xml" into GetExePath(), replacing any file there.
/// errors      EFileError the file cannot be written
void GenerateUnitDefaultConfigFile();
/// The same under a name of the caller's choice.
void GenerateUnitDefaultConfigFile(std::u16string_view FileName);
/// The factory-default settings as a document.
std::unique_ptr<TXMLDocument> BuildUnitDefaultConfig();

// Writers of the constant family: each adds one element under Parent.
void GenerateOneConfig(TXMLNode Parent, std::u16string_view Description, int OrderIndex);
void GenerateOneMeasure(TXMLNode Parent, int ConfigIndex, std::u16string_view Description, int MeasureIndex);
void GenerateOneUnit(TXMLNode Parent, int ConfigIndex, int MeasureIndex, std::u16string_view Description,
                     int OrderIndex, std::u16string_view DefUnitSymbolWhenNone,
                     std::u16string_view UnitParserClassName, int UnitIdentifyCode);
void GenerateOneFormatState(TXMLNode Parent, std::u16string_view Name, bool Enable, bool Checked);

// Writers of the model family.
void GenerateOneConfig(TXMLNode Parent, std::u16string_view Description, int OrderIndex,
                       const TConfig& Config);
void GenerateOneMeasure(TXMLNode Parent, int ConfigIndex, std::u16string_view Description, int MeasureIndex,
                        const TMeasure& Measure);
void GenerateOneUnit(TXMLNode Parent, int ConfigIndex, int MeasureIndex, std::u16string_view Description,
                     int OrderIndex, std::u16string_view DefUnitSymbolWhenNone,
                     std::u16string_view UnitParserClassName, int UnitIdentifyCode, const TUnit& Unit);
void GenerateOneFormatState(TXMLNode Parent, std::u16string_view Name, bool DefEnable, bool Enable,
                            bool DefChecked, bool Checked);

// Writers that both families share.
void GenerateOneRound(TXMLNode Parent, std::u16string_view Description, std::u16string_view Increment,
                      bool IncrementCanEdit, bool IncrementCanVisible, int OrderIndex);
void GenerateOneUnitSymbol(TXMLNode Parent, std::u16string_view Description, int OrderIndex);
void GenerateOneGroup(TXMLNode Parent, std::u16string_view Description, int OrderIndex,
                      std::u16string_view DigitGroupParserClassName);

} // namespace unitlib

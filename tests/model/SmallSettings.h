/// A small settings file with one of everything, in the form that the library writes but for the positions.
#pragma once

#include <string_view>

namespace unitlib::test {

inline constexpr std::string_view SmallSettings = R"(<?xml version="1.0" encoding="UTF-8"?>
<Unit>
  <TemplateConfig CurConfigIndex="0">
    <Config Description="C" OrderIndex="5">
      <Measurement ExampleValue="1.5" ClassifyCode="6" Description="M" OrderIndex="3" DefUnitIndex="0" CurUnitIndex="0">
        <Unit UnitIdentifyCode="500" Description="U" OrderIndex="4" DefUnitSymbolWhenNone="kg" UnitParserClassName="TKilogramsParser" DefRoundIndex="0" CurRoundIndex="0" DefUnitSymbolIndex="0" CurUnitSymbolIndex="-1">
          <Rounds>
            <Round Description="To 6&quot;" Increment="0.5" IncrementCanEdit="true" IncrementCanVisible="false" OrderIndex="7" />
          </Rounds>
          <UnitSymbols>
            <UnitSymbol Description="None" OrderIndex="8" />
          </UnitSymbols>
          <Format>
            <UseProjectSetting DefEnable="false" Enable="false" DefChecked="false" Checked="false" />
            <SuppressTrail0 DefEnable="true" Enable="false" DefChecked="true" Checked="false" />
            <Suppress0Feet DefEnable="false" Enable="true" DefChecked="false" Checked="true" />
            <ShowPlusSymbolForPosValue DefEnable="false" Enable="false" DefChecked="false" Checked="true" />
            <UseDigitGroup DefEnable="false" Enable="false" DefChecked="false" Checked="false" />
            <SuppressSpace DefEnable="false" Enable="false" DefChecked="false" Checked="false" />
          </Format>
        </Unit>
      </Measurement>
    </Config>
  </TemplateConfig>
  <DigitGroup CurDigitGroupIndex="0">
    <CGroup Description="G" OrderIndex="9" DigitGroupParserClassName="TDigitGroup3CommaParser" />
  </DigitGroup>
</Unit>
)";

} // namespace unitlib::test

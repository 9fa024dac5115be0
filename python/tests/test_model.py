"""The settings as objects, loading and saving."""

import pytest

from unitlib import Code, ConfigType, Switch, errors


def test_walk(units):
    assert [config.description for config in units.configs()] == [
        "US Imperial System", "UK Imperial System", "Standard Metric System", "Taiwan Metric System"]
    config = units.current_config()
    assert config.index == 0
    assert len(config.measures) == 9
    area = config.measure(Code.AREA)
    assert area.description == "Area"
    assert area.code == 1
    assert area.example_value == "1234567890.12345"
    assert [unit.description for unit in area.units] == [
        "Square feet", "Square inches", "Square meters", "Square centimeters", "Square millimeters"]
    assert area.unit.parser_class_name == "TSquareFootParser"
    assert area.unit.identify_code == 100
    assert area.unit.symbols == ["None", "SF", "ft2"]
    assert area.unit.symbol == "None"
    assert area.unit.round.description == "3 decimal places"
    assert [choice.increment for choice in area.unit.rounds] == ["1000", "100", "10", "1", "0.1", "0.01", "0.001", ""]
    assert area.unit.rounds[7].can_edit
    assert config.measures[8].unit is None


def test_edit(units):
    area = units.measure(Code.AREA)
    area.unit = "Square meters"
    area.unit.round = "1 decimal place"
    area.unit.symbol = "m2"
    assert units.format_value(Code.AREA, 1.5e6) == "1.5 m2"
    area.unit.round = area.unit.rounds[7]
    area.unit.round.increment = "0.25"
    assert units.format_value(Code.AREA, 1.3e6) == "1.25 m2"
    area.unit.set_switch(Switch.SHOW_PLUS_FOR_POS_VALUE, True)
    state = area.unit.switch(Switch.SHOW_PLUS_FOR_POS_VALUE)
    assert (state.enable, state.checked, state.def_enable, state.def_checked) == (True, True, True, False)
    assert units.format_value(Code.AREA, 1.3e6) == "+1.25 m2"
    area.restore_default()
    assert area.unit.description == "Square feet"


def test_choices_of_another_owner_are_refused(units):
    area, length = units.measure(Code.AREA), units.measure(Code.LENGTH)
    with pytest.raises(ValueError):
        area.unit = length.units[0]
    with pytest.raises(ValueError):
        area.unit.round = length.unit.rounds[0]
    with pytest.raises(errors.NotFoundError):
        area.unit = "square meters"


def test_configurations(units):
    assert units.use_config("Taiwan Metric System").index == 3
    assert units.current_config().description == "Taiwan Metric System"
    assert units.use_config(2).description == "Standard Metric System"
    with pytest.raises(LookupError):
        units.use_config("Imperial")
    with pytest.raises(IndexError):
        units.use_config(4)


def test_digit_groups(units):
    assert units.digit_groups() == ["123,456,789.00", "1,2345,6789.00"]
    units.use_digit_group("1,2345,6789.00")
    assert units.digit_group() == "1,2345,6789.00"
    assert units.format_value(Code.AREA, 1234567 * 92903.04) == "123,4567.000"


def test_examples(units):
    area = units.measure(Code.AREA)
    area.unit = "Square millimeters"
    units.update_display_values()
    assert area.example_display_value == "1234567890.123"


def test_save_and_load(units, tmp_path):
    units.measure(Code.LENGTH).unit = "Meters"
    units.use_config(0)
    target = tmp_path / "Projekt Ä.xml"
    units.save(target)
    assert units.settings_file() == str(tmp_path / "UnitConfig.xml")
    units.free()
    assert not units.is_loaded()
    units.load(target, ConfigType.STANDARD_METRIC)
    assert units.is_loaded()
    assert units.settings_file() == str(target)
    assert units.current_config().index == 0
    assert units.format_value(Code.LENGTH, 2000) == "2.000"


def test_report(units, tmp_path):
    units.generate_default(tmp_path / "report.xml")
    units.load_report(tmp_path / "report.xml")
    with pytest.raises(errors.PositionError):
        units.current_config()
    units.use_config(2)
    assert units.format_value(Code.LENGTH, 2000) == "2000"


def test_a_unit_of_the_script(units, tmp_path):
    units.register_unit_parser("TRodParser", 5029.2)  # 16.5 international feet
    content = (tmp_path / "UnitConfig.xml").read_text(encoding="utf-8")
    (tmp_path / "own.xml").write_text(content.replace("TDecimalFeetParser", "TRodParser"), encoding="utf-8")
    units.load(tmp_path / "own.xml")
    assert units.format_value(Code.RESULT_LENGTH, 50292) == "10.000"
    with pytest.raises(errors.ArgumentError):
        units.register_unit_parser("trodparser", 1)

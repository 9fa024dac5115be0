"""The loaded settings as objects: configurations, measures, units, rounds, symbols, switches, digit groups.

Objects are places in the settings, not copies: every attribute is asked for afresh, setting one takes effect at the
next conversion, and after another load an object names whatever lies at its place then.
"""

from __future__ import annotations

import enum
from collections.abc import Iterator
from ctypes import Structure, byref
from dataclasses import dataclass
from typing import TypeVar

from ._library import CURRENT, CConfig, CMeasure, CRound, CSwitch, CUnit, call, encode, int_of, text_of


class Code(enum.IntEnum):
    """Classify codes of the measures in the factory settings: what every conversion names a measure by."""

    LENGTH = 0
    AREA = 1
    VOLUME = 2
    ELEVATION = 3
    DENSITY = 4
    VOLUME_PER_LENGTH = 5
    MASS = 6
    RESULT_LENGTH = 7


class Switch(enum.IntEnum):
    """The six format switches of a unit."""

    USE_PROJECT_SETTING = 0
    SUPPRESS_TRAIL_0 = 1
    SUPPRESS_0_FEET = 2
    SHOW_PLUS_FOR_POS_VALUE = 3
    USE_DIGIT_GROUP = 4
    SUPPRESS_SPACE = 5


@dataclass(frozen=True)
class SwitchState:
    """Whether a switch may be ticked, whether it is, and the defaults of both."""

    enable: bool
    checked: bool
    def_enable: bool
    def_checked: bool


_Info = TypeVar("_Info", bound=Structure)


def _info(name: str, kind: type[_Info], *place: int) -> _Info:
    info = kind()
    call(name, *place, byref(info))
    return info


class _Placed:
    """An item of the settings: nothing but its positions, from the configuration down."""

    __slots__ = ("place",)

    def __init__(self, place: tuple[int, ...]) -> None:
        self.place = place

    def __eq__(self, other: object) -> bool:
        return type(other) is type(self) and other.place == self.place  # type: ignore[attr-defined]

    def __hash__(self) -> int:
        return hash((type(self), self.place))

    def __repr__(self) -> str:
        return f"{type(self).__name__}({self.place})"


class Round(_Placed):
    """One rounding choice of a unit."""

    __slots__ = ()

    @property
    def description(self) -> str:
        return text_of("ul_get_round_text_u8", *self.place, 0)

    @property
    def increment(self) -> str:
        """The rounding step as text: "0.01", "1/16"."""
        return text_of("ul_get_round_text_u8", *self.place, 1)

    @increment.setter
    def increment(self, text: str) -> None:
        data = encode(text)
        call("ul_set_increment_u8", *self.place, data, len(data))

    @property
    def can_edit(self) -> bool:
        return bool(_info("ul_get_round", CRound, *self.place).increment_can_edit)


class Unit(_Placed):
    """One unit of a measure."""

    __slots__ = ()

    def _info(self) -> CUnit:
        return _info("ul_get_unit", CUnit, *self.place)

    @property
    def description(self) -> str:
        return text_of("ul_get_unit_text_u8", *self.place, 0)

    @property
    def identify_code(self) -> int:
        return int(self._info().identify_code)

    @property
    def parser_class_name(self) -> str:
        return text_of("ul_get_unit_text_u8", *self.place, 2)

    @property
    def rounds(self) -> list[Round]:
        return [Round((*self.place, index)) for index in range(self._info().round_count)]

    @property
    def symbols(self) -> list[str]:
        return [text_of("ul_get_symbol_description_u8", *self.place, index)
                for index in range(self._info().symbol_count)]

    @property
    def round(self) -> Round:
        """The current round; assign a round or a description to change it."""
        return Round((*self.place, int(self._info().cur_round_index)))

    @round.setter
    def round(self, choice: Round | str) -> None:
        if isinstance(choice, Round):
            if choice.place[:3] != self.place:
                raise ValueError("the round belongs to another unit")
            call("ul_set_cur_round_index", *choice.place)
        else:
            data = encode(choice)
            call("ul_set_cur_round_u8", *self.place, data, len(data))

    @property
    def symbol(self) -> str:
        """The current symbol ("None" for none); assign one of the symbols to change it."""
        return text_of("ul_get_unit_text_u8", *self.place, 3)

    @symbol.setter
    def symbol(self, description: str) -> None:
        data = encode(description)
        call("ul_set_cur_symbol_u8", *self.place, data, len(data))

    def switch(self, which: Switch) -> SwitchState:
        state = _info("ul_get_switch", CSwitch, *self.place, which)
        return SwitchState(bool(state.enable), bool(state.checked), bool(state.def_enable), bool(state.def_checked))

    def set_switch(self, which: Switch, checked: bool, enable: bool = True) -> None:
        call("ul_set_switch", *self.place, which, enable, checked)


class Measure(_Placed):
    """One kind of quantity within a configuration."""

    __slots__ = ()

    def _info(self) -> CMeasure:
        return _info("ul_get_measure", CMeasure, *self.place)

    @property
    def description(self) -> str:
        return text_of("ul_get_measure_text_u8", *self.place, 0)

    @property
    def code(self) -> int:
        """The classify code that conversions take."""
        return int(self._info().classify_code)

    @property
    def example_value(self) -> str:
        return text_of("ul_get_measure_text_u8", *self.place, 1)

    @property
    def example_display_value(self) -> str:
        """The example as shown, as of the last update_display_values()."""
        return text_of("ul_get_measure_text_u8", *self.place, 2)

    @property
    def units(self) -> list[Unit]:
        return [Unit((*self.place, index)) for index in range(self._info().unit_count)]

    @property
    def unit(self) -> Unit | None:
        """The current unit, None where there is none; assign a unit or a description to change it."""
        index = int(self._info().cur_unit_index)
        return Unit((*self.place, index)) if index >= 0 else None

    @unit.setter
    def unit(self, choice: Unit | str) -> None:
        if isinstance(choice, Unit):
            if choice.place[:2] != self.place:
                raise ValueError("the unit belongs to another measure")
            call("ul_set_cur_unit_index", *choice.place)
        else:
            data = encode(choice)
            call("ul_set_cur_unit_u8", *self.place, data, len(data))

    def restore_default(self) -> None:
        call("ul_restore_default_measure", *self.place)


class Config(_Placed):
    """One unit system."""

    __slots__ = ()

    @property
    def index(self) -> int:
        return self.place[0]

    @property
    def description(self) -> str:
        return text_of("ul_get_config_description_u8", self.index)

    @property
    def measures(self) -> list[Measure]:
        count = _info("ul_get_config", CConfig, self.index).measure_count
        return [Measure((self.index, index)) for index in range(count)]

    def measure(self, code: int) -> Measure:
        """The first measure with this classify code."""
        return Measure((self.index, int_of("ul_find_measure", self.index, code)))

    def restore_default(self) -> None:
        call("ul_restore_default_config", self.index)

    def __iter__(self) -> Iterator[Measure]:
        return iter(self.measures)


def configs() -> list[Config]:
    """All unit systems of the loaded settings."""
    return [Config((index,)) for index in range(int_of("ul_get_config_count"))]


def current_config() -> Config:
    """The unit system in use."""
    _info("ul_get_config", CConfig, CURRENT)  # raises where none is chosen
    return Config((int_of("ul_get_cur_config_index"),))


def use_config(choice: Config | int | str) -> Config:
    """Makes a unit system current, by object, position or description."""
    if isinstance(choice, str):
        described = [config for config in configs() if config.description == choice]
        if not described:
            raise LookupError(f"there is no unit system {choice!r}")
        choice = described[0]
    index = choice.index if isinstance(choice, Config) else choice
    call("ul_set_cur_config_index", index)
    return Config((index,))


def measure(code: int) -> Measure:
    """The measure with this classify code in the unit system in use."""
    return current_config().measure(code)


def digit_groups() -> list[str]:
    """Descriptions of the ways of grouping digits."""
    return [text_of("ul_get_digit_group_text_u8", index, 0) for index in range(int_of("ul_get_digit_group_count"))]


def digit_group() -> str:
    """The way of grouping digits in use."""
    return text_of("ul_get_digit_group_text_u8", CURRENT, 0)


def use_digit_group(description: str) -> None:
    """Makes a way of grouping digits current."""
    data = encode(description)
    call("ul_set_cur_digit_group_u8", data, len(data))


def update_display_values() -> None:
    """Recomputes the example display value of every measure of the unit system in use."""
    call("ul_update_display_values")

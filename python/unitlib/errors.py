"""The errors of the module: one per status of the C interface, each with what the library tells about it."""

from __future__ import annotations


class UnitError(Exception):
    """Base of all errors that the library reports; str() is the message.

    status     the number that the C interface gave
    path       of the file it is about, or ""
    line       of the settings file, from 1; 0 where it is not about a line
    position   of the fault in an arithmetic text, as an index into it; -1 where it is not known
    item       first failed item of a column; -1 where it is not about a column
    text       the offending text, or ""
    """

    def __init__(self, status: int, message: str, *, path: str = "", line: int = 0, position: int = -1,
                 item: int = -1, text: str = "") -> None:
        super().__init__(message)
        self.status = status
        self.path = path
        self.line = line
        self.position = position
        self.item = item
        self.text = text


class NotFoundError(UnitError, LookupError):
    """No item with this description; nothing was changed."""


class ArgumentError(UnitError, ValueError):
    """A wrong argument."""


class NotLoadedError(UnitError, RuntimeError):
    """No settings are loaded."""


class PositionError(UnitError, IndexError):
    """A position outside its list, or a measure that does not exist."""


class ConvertError(UnitError, ValueError):
    """A text that cannot be read as a value, or a unit without a parser."""


class NumberRangeError(UnitError, OverflowError):
    """A number that is not finite, or too large for its text."""


class SettingsFileError(UnitError, OSError):
    """A file that cannot be read, written or replaced."""


class SettingsContentError(UnitError, ValueError):
    """A settings file whose content is wrong."""


class ExpressionError(UnitError, ValueError):
    """An arithmetic text that is wrong, or has a variable in it."""


class NotAvailableError(UnitError, RuntimeError):
    """A library without dialogs, or no window system."""


_BY_STATUS: dict[int, type[UnitError]] = {
    3: NotFoundError,
    4: ArgumentError,
    5: ArgumentError,
    6: NotLoadedError,
    7: PositionError,
    8: ConvertError,
    9: NumberRangeError,
    10: SettingsFileError,
    11: SettingsContentError,
    12: ExpressionError,
    13: NotAvailableError,
}


def error_of(status: int) -> type[UnitError]:
    """The class for a status."""
    return _BY_STATUS.get(status, UnitError)

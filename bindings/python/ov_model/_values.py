"""Values between Python and the library.

| Python                               | the library                                                |
|--------------------------------------|------------------------------------------------------------|
| None                                 | Nothing; also what Empty comes out as                      |
| Empty, Null, Missing                 | the same                                                   |
| bool, int, float, str                | Boolean, Long (a Decimal beyond 32 bits), Double, String;  |
|                                      | numbers of all widths come out as int and float            |
| decimal.Decimal, Currency            | Decimal, Currency                                          |
| datetime.datetime, datetime.date     | Date                                                       |
| ErrorCode                            | Error                                                      |
| bytes, bytearray                     | an array of Byte from index 0; comes out as bytearray      |
| list, tuple                          | an array from index 0; several dimensions come out as      |
|                                      | nested lists                                               |
| an object of the library             | itself                                                     |
| any other object with public methods | a listener                                                 |
"""

from __future__ import annotations

import ctypes
import datetime
import decimal
from typing import Any, Callable

from . import _library as c


class _Singleton:
    def __init__(self, name: str):
        self._name = name

    def __repr__(self) -> str:
        return self._name

    def __bool__(self) -> bool:
        return False

    def __reduce__(self) -> str:
        return self._name


Empty = _Singleton("Empty")
Null = _Singleton("Null")
Missing = _Singleton("Missing")


class ErrorCode(int):
    """An error code as a value."""


class Currency(decimal.Decimal):
    """An amount with four decimal places."""


class ByRef:
    """An argument that the callee may write: `text = ByRef("0000")`, and `text.value` behind the call."""

    def __init__(self, value: Any = Empty):
        self.value = value

    def __repr__(self) -> str:
        return f"ByRef({self.value!r})"


_EPOCH = datetime.datetime(1899, 12, 30)
_DAY = datetime.timedelta(days=1)
_MOST = 2**96 - 1
_SINGLETONS = {id(Empty): c.EMPTY, id(Null): c.NULL, id(Missing): c.MISSING}


def _date_days(value: datetime.date) -> float:
    if not isinstance(value, datetime.datetime):
        value = datetime.datetime(value.year, value.month, value.day)
    if value.tzinfo is not None:
        raise ValueError("a Date of the library has no time zone")
    since = value - _EPOCH
    fraction = (since - since.days * _DAY) / _DAY
    return since.days - fraction if since.days < 0 else since.days + fraction


def _date(days: float) -> datetime.datetime:
    whole = int(days)
    # To the millisecond, which a day count of today holds, so that a full second comes out as one.
    milliseconds = round(abs(days - whole) * 86_400_000)
    return _EPOCH + datetime.timedelta(days=whole, milliseconds=milliseconds)


def _half_even(number: int, divisor: int) -> int:
    whole, rest = divmod(number, divisor)
    return whole + (2 * rest > divisor or (2 * rest == divisor and whole % 2 == 1))


def _decimal_parts(value: decimal.Decimal) -> c.DecimalParts:
    if not value.is_finite():
        raise ValueError(f"{value} is no Decimal of the library")
    negative, digits, exponent = value.as_tuple()
    number, scale = int("".join(map(str, digits))), -int(exponent)
    if scale < 0:
        number, scale = number * 10**-scale, 0
    dropped = max(0, scale - 28)
    while _half_even(number, 10**dropped) > _MOST and dropped < scale:
        dropped += 1
    number, scale = _half_even(number, 10**dropped), scale - dropped
    if number > _MOST:
        raise OverflowError(f"{value} does not fit into 96 bits")
    return c.DecimalParts(number & (2**64 - 1), number >> 64, scale, negative)


def _decimal(parts: c.DecimalParts) -> decimal.Decimal:
    digits = tuple(map(int, str(parts.high << 64 | parts.low)))
    return decimal.Decimal((parts.negative, digits, -parts.scale))


def _currency(value: decimal.Decimal) -> int:
    scaled = int((value * 10000).to_integral_value(decimal.ROUND_HALF_EVEN))
    if not -2**63 <= scaled < 2**63:
        raise OverflowError(f"{value} is no Currency of the library")
    return scaled


def text_of(text: c.Text) -> str:
    return ctypes.string_at(text.bytes, text.length).decode() if text.length else ""


def _from_array(array: c.ArrayParts, wrap: Callable[[int], Any]) -> Any:
    if array.element == c.BYTE:
        flat: Any = bytearray(ctypes.string_at(array.bytes, array.count)) if array.count else bytearray()
    else:
        flat = [from_c(array.elements[i], wrap) for i in range(array.count)]
    if array.rank < 2:
        return flat

    def nested(dimension: int, offset: int, stride: int) -> list:
        count = array.bounds[dimension].count  # the first index moves fastest
        if dimension == array.rank - 1:
            return [flat[offset + i * stride] for i in range(count)]
        return [nested(dimension + 1, offset + i * stride, stride * count) for i in range(count)]

    return nested(0, 0, 1)


_READERS: dict[int, Callable[[c.Value], Any]] = {
    c.EMPTY: lambda value: None,
    c.NULL: lambda value: Null,
    c.MISSING: lambda value: Missing,
    c.INTEGER: lambda value: value.integer,
    c.LONG: lambda value: value.long_integer,
    c.BYTE: lambda value: value.byte,
    c.SINGLE: lambda value: value.single_real,
    c.DOUBLE: lambda value: value.double_real,
    c.BOOLEAN: lambda value: value.long_integer != 0,
    c.ERROR: lambda value: ErrorCode(value.long_integer),
    c.STRING: lambda value: text_of(value.text),
    c.DATE: lambda value: _date(value.double_real),
    c.DECIMAL: lambda value: _decimal(value.decimal),
    c.CURRENCY: lambda value: Currency((value.currency < 0, tuple(map(int, str(abs(value.currency)))), -4)),
}


def from_c(value: c.Value, wrap: Callable[[int], Any]) -> Any:
    """The value in Python; @wrap makes an object of a handle that stays the value's."""
    if value.type == c.OBJECT:
        return wrap(value.object) if value.object else None
    if value.type == c.ARRAY:
        return _from_array(value.array.contents, wrap)
    return _READERS[value.type](value)


def to_c(value: Any, target: c.Value, keep: list, handle_of: Callable[[Any, list], int]) -> None:
    """Writes a Python value into @target. What it points to is put into @keep; @handle_of answers objects' handles."""
    if value is None:
        target.type = c.OBJECT
    elif id(value) in _SINGLETONS:
        target.type = _SINGLETONS[id(value)]
    elif isinstance(value, bool):
        target.type, target.long_integer = c.BOOLEAN, value
    elif isinstance(value, ErrorCode):
        target.type, target.long_integer = c.ERROR, value
    elif isinstance(value, int):
        if -2**31 <= value < 2**31:
            target.type, target.long_integer = c.LONG, value
        else:
            target.type, target.decimal = c.DECIMAL, _decimal_parts(decimal.Decimal(value))
    elif isinstance(value, float):
        target.type, target.double_real = c.DOUBLE, value
    elif isinstance(value, str):
        encoded = value.encode("utf-8", "surrogatepass")
        buffer = ctypes.create_string_buffer(encoded, len(encoded) + 1)
        keep.append(buffer)
        target.type, target.text = c.STRING, c.Text(ctypes.addressof(buffer), len(encoded))
    elif isinstance(value, Currency):
        target.type, target.currency = c.CURRENCY, _currency(value)
    elif isinstance(value, decimal.Decimal):
        target.type, target.decimal = c.DECIMAL, _decimal_parts(value)
    elif isinstance(value, datetime.date):
        target.type, target.double_real = c.DATE, _date_days(value)
    elif isinstance(value, ByRef):
        to_c(value.value, target, keep, handle_of)
    elif isinstance(value, (bytes, bytearray, list, tuple)):
        _to_array(value, target, keep, handle_of)
    else:
        target.object = handle_of(value, keep)
        target.type = c.OBJECT


def _to_array(value: Any, target: c.Value, keep: list, handle_of: Callable[[Any, list], int]) -> None:
    bound = c.Bound(0, len(value))
    parts = c.ArrayParts(rank=1, bounds=ctypes.pointer(bound), count=len(value))
    if isinstance(value, (bytes, bytearray)):
        parts.element = c.BYTE
        parts.bytes = (ctypes.c_uint8 * len(value)).from_buffer_copy(value)
    else:
        elements = (c.Value * len(value))()
        for element, item in zip(elements, value):
            to_c(item, element, keep, handle_of)
        parts.elements = elements
    keep.append(parts)
    target.type, target.array = c.ARRAY, ctypes.pointer(parts)


def write_back(argument: Any, written: Any) -> None:
    """Puts what the callee wrote into the argument, if that is one that can take it."""
    if isinstance(argument, ByRef):
        argument.value = written
    elif isinstance(argument, bytearray) and isinstance(written, bytearray):
        argument[:] = written
    elif isinstance(argument, list) and isinstance(written, (list, bytearray)):
        argument[:] = written

"""The C library: where it is, what its functions take, how its errors become exceptions.

The layouts are those of ov_model.h.
"""

from __future__ import annotations

import builtins
import collections
import ctypes
import os
import pathlib
import sys
import sysconfig
import threading
from ctypes import POINTER, c_char_p, c_double, c_float, c_int16, c_int32, c_int64, c_size_t, c_uint8, c_uint16, \
    c_uint32, c_uint64, c_void_p

_FILE = "libov_model.so.3"

EMPTY, NULL, INTEGER, LONG, SINGLE, DOUBLE, CURRENCY, DATE, STRING, OBJECT, ERROR, BOOLEAN = range(12)
DECIMAL, BYTE, MISSING, ARRAY = 14, 17, 0x1000, 0x2000
METHOD, GET, CALL, LET, SET = 1, 2, 3, 4, 8


class RuntimeError(builtins.RuntimeError):
    """A run-time error that an operation raised, with its number, its source and its description."""

    __module__ = "ov_model"

    def __init__(self, number: int, description: str = "", source: str = ""):
        super().__init__(number, description, source)
        self.number = number
        self.description = description
        self.source = source

    def __str__(self) -> str:
        return f"{self.description} (error {self.number})" if self.description else f"error {self.number}"


class Text(ctypes.Structure):
    _fields_ = [("bytes", c_void_p), ("length", c_size_t)]


class DecimalParts(ctypes.Structure):
    _fields_ = [("low", c_uint64), ("high", c_uint32), ("scale", c_uint8), ("negative", c_uint8)]


class Bound(ctypes.Structure):
    _fields_ = [("lower", c_int32), ("count", c_int32)]


class ArrayParts(ctypes.Structure):
    pass


class _Content(ctypes.Union):
    _fields_ = [("byte", c_uint8), ("integer", c_int16), ("long_integer", c_int32), ("single_real", c_float),
                ("double_real", c_double), ("currency", c_int64), ("text", Text), ("decimal", DecimalParts),
                ("array", POINTER(ArrayParts)), ("object", c_void_p)]


class Value(ctypes.Structure):
    _anonymous_ = ("content",)
    _fields_ = [("type", c_uint16), ("owned", c_uint8), ("written", c_uint8), ("content", _Content)]


ArrayParts._fields_ = [("element", c_uint16), ("rank", c_uint16), ("bounds", POINTER(Bound)), ("count", c_size_t),
                       ("bytes", POINTER(c_uint8)), ("elements", POINTER(Value))]


class Error(ctypes.Structure):
    _fields_ = [("number", c_int32), ("source", c_char_p), ("description", c_char_p)]


class MemberInfo(ctypes.Structure):
    _fields_ = [("name", c_char_p), ("kind", c_int32), ("required", c_int32), ("total", c_int32),
                ("is_default", c_int32)]


Operation = ctypes.CFUNCTYPE(c_int32, c_void_p, POINTER(Value), c_size_t, POINTER(Value))
Release = ctypes.CFUNCTYPE(None, c_void_p)


class ListenerEntry(ctypes.Structure):
    _fields_ = [("name", c_char_p), ("call", Operation)]


def _places():
    """Where the library may be: the one asked for, beside the package, in the build of a checkout, in the system."""
    asked = os.environ.get("OV_MODEL_LIBRARY")
    if asked:
        yield asked
        return
    package = pathlib.Path(__file__).resolve().parent
    yield str(package / _FILE)
    for folder in list(package.parents)[1:4]:  # an installed package lies in PREFIX/lib/python3/dist-packages
        yield str(folder / _FILE)
        yield str(folder / (sysconfig.get_config_var("MULTIARCH") or "") / _FILE)
        yield str(folder / "build" / "release" / _FILE)
    yield _FILE


def _load() -> ctypes.CDLL:
    reason = ""
    for place in _places():
        if os.sep in place and not os.path.exists(place):
            reason = reason or f"{place} does not exist"
            continue
        try:
            return ctypes.CDLL(place)
        except OSError as error:
            reason = str(error)
    raise ImportError(f"cannot load the OV_Model library: {reason}. OV_MODEL_LIBRARY may name the file {_FILE}.")


def _declare(library: ctypes.CDLL) -> None:
    values, handle, handles = POINTER(Value), c_void_p, POINTER(c_void_p)
    library.ov_version.restype = c_char_p
    library.ov_version.argtypes = []
    library.ov_clear.restype = library.ov_last_error.restype = None
    library.ov_clear.argtypes = [values]
    library.ov_last_error.argtypes = [POINTER(Error)]
    for name, arguments in {
            "set_locale": [c_char_p],
            "create": [c_char_p, handles],
            "call": [handle, c_char_p, c_int32, values, c_size_t, values],
            "facet": [handle, c_char_p, handles],
            "identity": [handle, handles],
            "class_name": [handle, values],
            "interface_name": [handle, POINTER(c_char_p)],
            "member": [handle, c_size_t, POINTER(MemberInfo)],
            "enumerate": [handle, handles],
            "next": [handle, values, POINTER(c_int32)],
            "make_listener": [POINTER(ListenerEntry), c_size_t, c_void_p, Release, handles],
            "raise": [c_int32, c_char_p, c_char_p],
            "retain": [handle],
            "release": [handle],
            "copy": [values, values],
    }.items():
        function = getattr(library, "ov_" + name)
        function.restype = c_int32
        function.argtypes = arguments


LIBRARY = _load()
_declare(LIBRARY)

_thread: int | None = None  # that of the first call; the library has one
_ended: collections.deque[int] = collections.deque()  # handles whose Python objects ended on another thread
_raised: list[BaseException] = []  # what listeners raised during the call that runs


def call(name: str, *arguments) -> None:
    """Calls a function of the library. Raises RuntimeError if it fails or another thread than the first calls."""
    global _thread
    thread = threading.get_ident()
    if _thread is None:
        _thread = thread
    if thread != _thread:
        raise builtins.RuntimeError("the OV_Model library is used by one thread, that of its first call")
    while _ended:
        LIBRARY.ov_release(_ended.popleft())
    before = len(_raised)
    status = getattr(LIBRARY, "ov_" + name)(*arguments)
    cause = _raised[before] if len(_raised) > before else None
    del _raised[before:]
    if cause is not None and not isinstance(cause, Exception):
        raise cause  # an interrupt, whatever the library made of it
    if status != 0:
        error = Error()
        LIBRARY.ov_last_error(error)
        raise RuntimeError(status, error.description.decode(), error.source.decode()) from cause
    if cause is not None:  # the library keeps what listeners raise here from its caller, and only logs it
        sys.excepthook(type(cause), cause, cause.__traceback__)


def release(handle: int) -> None:
    """Ends a handle, from whatever thread Python ends its object."""
    if threading.get_ident() == _thread:
        LIBRARY.ov_release(handle)
    else:
        _ended.append(handle)


def fail(error: BaseException) -> int:
    """Keeps what a listener raised for the call that caused it, and answers the number that the listener returns."""
    _raised.append(error)
    if isinstance(error, RuntimeError):
        return LIBRARY.ov_raise(error.number, error.source.encode(), error.description.encode())
    return LIBRARY.ov_raise(51, type(error).__name__.encode(), f"{type(error).__name__}: {error}".encode())

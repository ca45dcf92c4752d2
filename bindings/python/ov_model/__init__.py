"""The parameter model of field-device drivers, from Python.

    import ov_model

    with ov_model.create("CBase_Module") as module:
        module.SetSourcePath("/opt/tt200/tt200.db")
        module.SetLanguage(9)
        if not module.Load("TT200 HART"):
            raise SystemExit("cannot load the device")
        for channel in module.Gui().channels():
            print(channel.name())

What the objects can do stands in `ov_model.contract`, and `dir(object)` tells it of a living one: operations are
called, properties are attributes. A run-time error of an operation is an ov_model.RuntimeError. Python objects are
listeners as they are, if they have a method of a listener's name:

    class Listener:
        def OnParameterValueChanged(self, p):
            print(p.name(), "=", p.value)

    module.Gui().RegisterCallback(Listener())

What a listener raises goes to whoever caused the event; where the library keeps it from the caller, sys.excepthook
tells it.

The library has one thread, that of its first call. A module that was loaded needs its Unload, which the end of a
`with` does: its tree is a ring of references that Python's collector does not see. OV_MODEL_LIBRARY names the file of
the library if it lies neither beside the package nor where the system looks.
"""

from __future__ import annotations

import ctypes as _ctypes
from typing import Any, Literal, overload

from . import _library
from ._library import RuntimeError
from ._objects import Collection, Method, Object, Property, by_reference, wrap as _wrap
from ._values import ByRef, Currency, Empty, ErrorCode, Missing, Null
from .contract import *  # the enumerations' constants, and the interfaces for annotations
from .contract import CBase_Environment, CBase_Module, CBase_Station


@overload
def create(class_name: Literal["CBase_Module"]) -> CBase_Module: ...
@overload
def create(class_name: Literal["CBase_Station"]) -> CBase_Station: ...
@overload
def create(class_name: Literal["CBase_Environment"]) -> CBase_Environment: ...
@overload
def create(class_name: str) -> Any: ...
def create(class_name: str) -> Any:
    """A new object of a creatable class, such as "CBase_Module"; error 429 if there is no such class."""
    handle = _ctypes.c_void_p()
    _library.call("create", class_name.encode(), handle)
    return _wrap(handle.value)


def facet(of: Any, interface: str | type) -> Any:
    """The object seen through another of its interfaces, by name or as a class of `ov_model.contract`; error 430 if it
    does not have that."""
    if not isinstance(of, Object):
        raise TypeError(f"{of!r} is no object of the library")
    name = interface if isinstance(interface, str) else interface.__name__
    handle = _ctypes.c_void_p()
    _library.call("facet", of._handle, name.encode(), handle)
    return _wrap(handle.value)


def set_locale(name: str) -> None:
    """Sets the process's locale of numbers and dates, such as "de-DE"; error 5 if there is no such locale."""
    _library.call("set_locale", name.encode())


__version__ = _library.LIBRARY.ov_version().decode()

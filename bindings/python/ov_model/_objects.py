"""Objects of the library as Python objects, and Python objects as listeners."""

from __future__ import annotations

import ctypes
import inspect
from typing import Any, Callable, Iterator

from . import _library as c
from ._values import ByRef, from_c, text_of, to_c, write_back


class Member:
    """One member of an interface: its name as it is written there, and its forms."""

    __slots__ = ("name", "kinds", "total")

    def __init__(self, name: str):
        self.name = name
        self.kinds = 0
        self.total = 0  # arguments of its reading form

    @property
    def is_property(self) -> bool:
        return not self.kinds & c.METHOD


class Interface:
    """The members through which an object is seen; one for each interface."""

    def __init__(self, name: str, handle: int):
        self.name = name
        self.members: dict[str, Member] = {}  # by lower case
        info = c.MemberInfo()
        for index in range(2**16):
            if c.LIBRARY.ov_member(handle, index, info) != 0:
                break
            member = self.members.setdefault(info.name.decode().lower(), Member(info.name.decode()))
            member.kinds |= info.kind
            if info.kind & c.CALL:
                member.total = info.total
            elif not member.kinds & c.CALL:
                member.total = info.total - 1

    def find(self, name: str) -> Member | None:
        return self.members.get(name.lower())


_interfaces: dict[int, Interface] = {}  # by the address of the name, which the library keeps for ever


class Object:
    """An object of the library, seen through one of its interfaces.

    Operations are called as methods, properties read and written as attributes; a property that takes arguments is
    read with brackets of either kind and written with square ones: `env.Variable["USER"] = "me"`. Names are those of
    the interface, in any case. Two of these are equal if they are one object, whatever their interfaces. As a context
    manager an object is unloaded at the end.
    """

    __slots__ = ("_handle", "_interface", "__weakref__")

    _handle: int
    _interface: Interface | None

    def __init__(self) -> None:
        raise TypeError("objects of the library are made by ov_model.create")

    def __del__(self) -> None:
        handle = getattr(self, "_handle", None)
        if handle and c is not None:  # None while the interpreter ends
            c.release(handle)

    def __getattr__(self, name: str) -> Any:
        if name.startswith("_"):
            raise AttributeError(name)
        if self._interface is None:
            return Method(self, name)
        member = self._interface.find(name)
        if member is None:
            raise AttributeError(f"{self!r} has no member '{name}'")
        if not member.is_property:
            return Method(self, member.name)
        if member.total != 0 or not member.kinds & c.GET:
            return Property(self, member.name)
        return invoke(self, member.name, c.GET, ())

    def __setattr__(self, name: str, value: Any) -> None:
        if self._interface is not None:
            member = self._interface.find(name)
            if member is None or not member.kinds & (c.LET | c.SET):
                raise AttributeError(f"{self!r} has no property '{name}' that can be written")
        put(self, name, (), value)

    def __dir__(self) -> list[str]:
        own = [member.name for member in self._interface.members.values()] if self._interface else []
        return [*own, *object.__dir__(self)]

    def __call__(self, *arguments: Any) -> Any:
        """The default member."""
        return invoke(self, None, c.CALL, arguments)

    def __eq__(self, other: object) -> bool:
        return isinstance(other, Object) and _identity(self) == _identity(other)

    def __hash__(self) -> int:
        return hash(_identity(self))

    def __repr__(self) -> str:
        name = c.Value()
        c.call("class_name", self._handle, name)
        own = text_of(name.text)
        c.LIBRARY.ov_clear(name)
        seen = self._interface.name.lstrip("_") if self._interface else own
        return f"<{own}>" if seen == own else f"<{own} as {seen}>"

    def __enter__(self) -> Object:
        return self

    def __exit__(self, *_: object) -> None:
        invoke(self, "Unload", c.METHOD, ())


class Collection(Object):
    """An object whose items can be walked. `collection[key]` is its default member: of the children of the tree the
    key is the id; of rows and lists it is the name or a position from 1 on. A missing key is a KeyError."""

    __slots__ = ()

    def __len__(self) -> int:
        return invoke(self, "Count", c.CALL, ())

    def __iter__(self) -> Iterator[Any]:
        walk = ctypes.c_void_p()
        c.call("enumerate", self._handle, walk)
        enumerator = wrap(walk.value)
        while True:
            item, found = c.Value(), ctypes.c_int32()
            c.call("next", enumerator._handle, item, found)
            if not found.value:
                return
            yield _taken(item)

    def __getitem__(self, key: Any) -> Any:
        try:
            item = invoke(self, None, c.CALL, (key,))
        except c.RuntimeError as error:
            if error.number not in (5, 9):  # no such key, no such position
                raise
            raise KeyError(key) from error
        if item is None and key not in self:
            raise KeyError(key)
        return item

    def __setitem__(self, key: Any, value: Any) -> None:
        put(self, None, (key,), value)

    def __delitem__(self, key: Any) -> None:
        invoke(self, "Remove", c.METHOD, (key,))

    def __contains__(self, key: Any) -> bool:
        assert self._interface is not None
        for test in ("Inside", "Exists"):
            if self._interface.find(test):
                return invoke(self, test, c.CALL, (key,))
        try:
            invoke(self, None, c.CALL, (key,))
        except c.RuntimeError as error:
            if error.number not in (5, 9):
                raise
            return False
        return True


class Method:
    """An operation of an object."""

    __slots__ = ("_object", "_name")

    def __init__(self, of: Object, name: str):
        self._object = of
        self._name = name

    def __call__(self, *arguments: Any) -> Any:
        return invoke(self._object, self._name, c.CALL, arguments)

    def __repr__(self) -> str:
        return f"<{self._name} of {self._object!r}>"


class Property:
    """A property that takes arguments."""

    __slots__ = ("_object", "_name")

    def __init__(self, of: Object, name: str):
        self._object = of
        self._name = name

    def __call__(self, *arguments: Any) -> Any:
        return invoke(self._object, self._name, c.GET, arguments)

    def __getitem__(self, key: Any) -> Any:
        return self(*(key if isinstance(key, tuple) else (key,)))

    def __setitem__(self, key: Any, value: Any) -> None:
        put(self._object, self._name, key if isinstance(key, tuple) else (key,), value)

    def __repr__(self) -> str:
        return f"<{self._name} of {self._object!r}>"


def _seen(handle: int, interface: Interface | None) -> Any:
    made = object.__new__(Collection if interface and interface.find("NewEnum") else Object)
    object.__setattr__(made, "_handle", handle)
    object.__setattr__(made, "_interface", interface)
    return made


def wrap(handle: int | None) -> Any:
    """A Python object that owns a handle; None for Nothing, the Python object itself for a listener made of one."""
    if not handle:
        return None
    name = ctypes.c_char_p()
    c.LIBRARY.ov_interface_name(handle, name)
    address = ctypes.cast(name, ctypes.c_void_p).value
    if not address or name.value is None:
        made = _seen(handle, None)
        listener = _living.get(_contexts.get(_identity(made), 0))
        return listener.target if listener else made
    interface = _interfaces.get(address)
    if interface is None:
        interface = _interfaces[address] = Interface(name.value.decode(), handle)
    return _seen(handle, interface)


def _borrowed(handle: int) -> Any:
    c.LIBRARY.ov_retain(handle)
    return wrap(handle)


def _taken(value: c.Value) -> Any:
    """The value in Python; what the library owns of it ends."""
    result = from_c(value, _borrowed)
    c.LIBRARY.ov_clear(value)
    return result


def _identity(of: Object) -> int | None:
    identity = ctypes.c_void_p()
    c.call("identity", of._handle, identity)
    return identity.value


def _handle_of(value: Any, keep: list) -> int:
    """The handle of an object of the library, or of a listener made of any other one."""
    made = value if isinstance(value, Object) else make_listener(value)
    keep.append(made)
    return made._handle


def invoke(of: Object, name: str | None, kind: int, arguments: tuple) -> Any:
    """Calls a member; the default one for None. Arguments that the callee wrote are changed where they can be."""
    keep: list = [of]
    values = (c.Value * len(arguments))()
    for value, argument in zip(values, arguments):
        to_c(argument, value, keep, _handle_of)
    result = c.Value()
    try:
        c.call("call", of._handle, name.encode() if name is not None else None, kind, values, len(values), result)
        for value, argument in zip(values, arguments):
            if value.written:
                write_back(argument, from_c(value, _borrowed))
    finally:
        for value in values:
            c.LIBRARY.ov_clear(value)
    return _taken(result)


def put(of: Object, name: str | None, arguments: tuple, value: Any) -> None:
    """Writes a property; an object by its Set."""
    probe = c.Value()
    keep: list = []
    to_c(value, probe, keep, _handle_of)
    invoke(of, name, c.SET if probe.type == c.OBJECT else c.LET, (*arguments, value))


class _Listener:
    """A Python object while the library holds it: its public methods as functions that the library calls."""

    def __init__(self, target: Any, names: list[str]):
        self.target = target
        self.thunks = [c.Operation(_operation(target, name)) for name in names]
        self.entries = (c.ListenerEntry * len(names))(
            *(c.ListenerEntry(name.encode(), thunk) for name, thunk in zip(names, self.thunks)))
        self.identity: int | None = None


_living: dict[int, _Listener] = {}  # by context: a number from 1 on
_contexts: dict[int | None, int] = {}  # by id of the Python object, and by identity of the library's
_last_context = 0


def by_reference(method: Callable) -> Callable:
    """Marks an operation of a listener that writes its arguments: it gets each as a ByRef."""
    method.by_reference = True  # type: ignore[attr-defined]
    return method


def _put_copy(value: Any, target: c.Value) -> None:
    keep: list = []
    made = c.Value()
    to_c(value, made, keep, _handle_of)
    c.call("copy", made, target)


def _operation(target: Any, name: str) -> Callable[..., int]:
    def run(_context: int, arguments: Any, count: int, result: Any) -> int:
        try:
            method = getattr(target, name)
            given = [from_c(arguments[i], _borrowed) for i in range(count)]
            if not getattr(method, "by_reference", False):
                answer = method(*given)
            else:
                references = [ByRef(value) for value in given]
                answer = method(*references)
                for i, reference in enumerate(references):
                    if not isinstance(reference.value, Object):
                        _put_copy(reference.value, arguments[i])
                        arguments[i].written = 1
            if answer is not None:
                _put_copy(answer, result.contents)
        except BaseException as error:  # nothing may pass through the library's frames
            return c.fail(error)
        return 0

    return run


@c.Release
def _released(context: int) -> None:
    listener = _living.pop(context)
    _contexts.pop(id(listener.target), None)
    _contexts.pop(listener.identity, None)


def _public_methods(target: Any) -> list[str]:
    if type(target).__module__ == "builtins":
        return []
    return [name for name in dir(target)
            if not name.startswith("_") and callable(inspect.getattr_static(target, name, None))]


def make_listener(target: Any) -> Object:
    """The library's object for a Python object; the same one as long as the library holds it."""
    global _last_context
    context = _contexts.get(id(target), 0)
    if not context:
        names = _public_methods(target)
        if not names:
            raise TypeError(f"the library has no value for {target!r}")
        _last_context = context = _last_context + 1
        _living[context] = _Listener(target, names)
        _contexts[id(target)] = context
    listener = _living[context]
    handle = ctypes.c_void_p()
    c.call("make_listener", listener.entries, len(listener.entries), context, _released, handle)
    assert handle.value
    made = _seen(handle.value, None)
    listener.identity = _identity(made)
    _contexts[listener.identity] = context
    return made

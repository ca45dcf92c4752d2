#!/usr/bin/env python3
"""Writes ov_model/contract.py from the headers and member tables of the library's contract.

The member tables say which members an interface has, by what name and in what form; the headers say what they take,
what they answer and what they mean.

    generate_contract.py [--check]     --check only says whether the file is up to date
"""

import pathlib
import re
import sys
import textwrap

HERE = pathlib.Path(__file__).resolve().parent
SOURCE = HERE.parent.parent / "src"
TARGET = HERE / "ov_model" / "contract.py"
HEADERS = ["module", "station", "channel", "block", "group", "parameter", "internal", "callbacks", "environment",
           "scripting", "explain"]
FILES = [SOURCE / "contract" / f"{name}.h" for name in HEADERS] + [SOURCE / "platform/automation/collection.h"]
WIDTH = 120

PLAIN = {"void": "None", "bool": "bool", "Text": "str", "Variant": "Any", "IDispatch": "Any", "IUnknown": "Any",
         "std::int32_t": "int", "std::int16_t": "int", "Database": "Any", "Recordset": "Any", "IEnumVariant": "Any",
         "ByteArray": "bytearray | list[int]"}
LISTENERS = {"IBase_CallbackParameter", "IBase_CallbackModule", "IBase_CallbackStation", "ISpec_ImExport"}
PROLOGUE = '''\
"""The interfaces of the contract for annotations, and the constants of its enumerations.

Made by generate_contract.py from the library's headers; not to be edited. Nothing is an instance of these classes: the
objects of the library have their members by name. Where an argument is left out, it is optional.
"""

# pylint: skip-file
from __future__ import annotations

import enum
from typing import Any, Generic, Iterator, Protocol, TypeVar

from ._objects import Property
from ._values import ByRef

'''


def python_type(cpp: str, enumerations: set) -> str:
    cpp = cpp.strip()
    for pattern in (r"const (.+)&", r"std::optional<(.+)>", r"Ref<(.+)>", r"(.+)\*"):
        if match := re.fullmatch(pattern, cpp):
            return python_type(match[1], enumerations)
    if match := re.fullmatch(r"std::vector<(.+)>", cpp):
        return f"list[{python_type(match[1], enumerations)}]"
    if match := re.fullmatch(r"(.+)&", cpp):
        inner = python_type(match[1], enumerations)
        return inner if match[1] == "ByteArray" else "Any" if inner == "Any" else f"ByRef | {inner}"
    return "int" if cpp in enumerations else PLAIN.get(cpp, cpp)


def split_arguments(text: str) -> list:
    """The arguments of a declaration; commas inside < > part nothing."""
    parts, depth = [""], 0
    for character in text:
        depth += {"<": 1, ">": -1}.get(character, 0)
        if character == "," and depth == 0:
            parts.append("")
        else:
            parts[-1] += character
    return [" ".join(part.split()) for part in parts if part.strip()]


def arguments_of(text: str, enumerations: set) -> list:
    result = []
    for argument in split_arguments(text):
        declared, _, default = argument.partition(" = ")
        cpp, name = re.fullmatch(r"(.+?[ *&])(\w+)", declared).groups()
        if cpp.strip() == "std::span<const Variant>":
            result.append(f"*{name}: Any")
            continue
        base = cpp.strip().rstrip("*").strip()
        kind = "Any" if base in LISTENERS else python_type(cpp, enumerations)
        if cpp.strip() == "Text*":
            kind = "ByRef | str"
        result.append(f"{name}: {kind}" + (" = ..." if default else ""))
    return result


def prose(lines: list) -> str:
    text = " ".join(line.strip() for line in lines)
    text = re.sub(r"@returns?\s+", "Answers ", text)
    text = re.sub(r"@throws\s+", "Raises ", text)
    text = re.sub(r"@[pe]\s+|@param\s+|@see\s+", "", text)
    return " ".join(text.replace("\\", "\\\\").split())


def docstring(text: str, indent: str) -> list:
    if not text:
        return []
    text = text[0].upper() + text[1:] + ("" if text[-1] in ".:;!?" else ".")
    lines = textwrap.wrap('"""' + text + '"""', WIDTH - len(indent), break_long_words=False, break_on_hyphens=False)
    return [indent + line for line in lines]


class Interface:
    def __init__(self, name: str, comment: list):
        self.name, self.comment = name, comment
        self.functions: dict = {}  # C++ name to (result, arguments, comment)


def read_interfaces(path: pathlib.Path) -> list:
    found, comment, current = [], [], None
    declaration = ""
    for line in path.read_text(encoding="utf-8").splitlines():
        stripped = line.strip()
        if declaration or stripped.startswith("virtual "):
            code, _, trailing = stripped.partition("///<")
            declaration += " " + code.strip()
            if trailing:
                comment.append(trailing)
            if ";" in code:
                match = re.fullmatch(r"\s*virtual (.+?) ?(\w+)\((.*)\) = 0;\s*", declaration)
                if match and current:
                    current.functions[match[2]] = (match[1], match[3], comment)
                declaration, comment = "", []
        elif stripped.startswith("///"):
            comment.append(stripped[3:])
        elif match := re.match(r"class (\w+) : public IDispatch \{", stripped):
            current = Interface(match[1], comment)
            found.append(current)
            comment = []
        else:
            comment = [] if not stripped.startswith("template <class Element>") else comment
    return found


def read_tables(paths: list) -> dict:
    """C++ class to its members: (form, C++ function, name, whether it is the default)."""
    tables: dict = {}
    for path in paths:
        for form, owner, function, name, default in re.findall(
                r'(\w*member)<&(\w+)::(\w+)>\("(\w+)"\)(\.AsDefault)?', path.read_text(encoding="utf-8")):
            tables.setdefault(owner, []).append((form, function, name, bool(default)))
    return tables


def write_members(interface: Interface, table: list, enumerations: set) -> list:
    lines, done = [], set()
    for form, function, name, default in table:
        if name in done or name == "NewEnum":
            continue
        done.add(name)
        forms = {other[0] for other in table if other[2] == name}
        result, text, comment = interface.functions[function]
        arguments = arguments_of(text, enumerations)
        kind = python_type(result, enumerations)
        doc = prose(comment)
        reads = "get_member" in forms
        own = len(arguments) - (form in ("let_member", "set_member"))
        if form == "member" or (reads and own and (default or len(forms) == 1)):
            signature = ", ".join(["self", *arguments])
            slash = ", /" if arguments and not arguments[-1].startswith("*") else ""
            lines += wrapped(f"    def {name}({signature}{slash}) -> {kind}:")
            lines += docstring(doc, " " * 8) or ["        ..."]
        elif own:
            lines += [f"    {name}: Property", *docstring(doc, " " * 4)]
        else:
            if not reads:
                kind = arguments[-1].split(": ", 1)[1]
            lines += ["    @property", f"    def {name}(self) -> {kind}:",
                      *(docstring(doc, " " * 8) or ["        ..."])]
            if len(forms) > 1 or not reads:
                lines += [f"    @{name}.setter", f"    def {name}(self, value: {kind}, /) -> None: ..."]
        lines.append("")
    return lines or ["    ...", ""]


def wrapped(line: str) -> list:
    if len(line) <= WIDTH:
        return [line]
    return textwrap.wrap(line.strip(), WIDTH, initial_indent=" " * 4, subsequent_indent=" " * 12)


def read_enumerations() -> list:
    text = (SOURCE / "contract/enumerations.h").read_text(encoding="utf-8")
    found = []
    for comment, name, body in re.findall(r"((?:/// [^\n]*\n)+)enum class (e\w+) : std::int32_t \{\n(.*?)\};", text,
                                          re.S):
        values = [(key, int(value), prose([note or ""]))
                  for key, value, note in re.findall(r"(\w+) = (\d+),(?:\s*///< ([^\n]*))?", body)]
        found.append((name, prose([line[3:] for line in comment.splitlines()]), values))
    return found


def write_enumerations(enumerations: list) -> list:
    lines = []
    for name, comment, values in enumerations:
        base = "enum.IntFlag" if name == "eParameterKind" else "enum.IntEnum"
        lines += [f"class {name}({base}):", *docstring(comment, " " * 4), ""]
        lines += [f"    {key} = {value}" + (f"  # {note}" if note else "") for key, value, note in values]
        lines += ["", ""]
    for name, _, values in enumerations:
        lines += [f"{key} = {name}.{key}" for key, _, _ in values]
    return [*lines, "eParamKindAllKinds = eParameterKind(2047)", "", ""]


def write_records(enumerations: set) -> list:
    text = (SOURCE / "contract/records.h").read_text(encoding="utf-8")
    lines = []
    for comment, name, body in re.findall(r"((?:/// [^\n]*\n)+)struct (t\w+) \{\n(.*?)\n\};", text, re.S):
        lines += [f"class {name}(Protocol):", *docstring(prose([c[3:] for c in comment.splitlines()]), " " * 4), ""]
        for cpp, field, note in re.findall(r"^    (?!static)([\w:<>]+) (\w+)(?: = [^;]+)?;(?:\s*///< (.*))?$", body,
                                           re.M):
            lines += ["    @property", f"    def {field}(self) -> {python_type(cpp, enumerations)}:",
                      *(docstring(prose([note]), " " * 8) or ["        ..."]), ""]
        lines.append("")
    return lines


def write_collections(tables: dict, enumerations: set) -> list:
    text = (SOURCE / "contract/collections.h").read_text(encoding="utf-8")
    body = text[text.index("/// A typed collection."):text.index("template <>")]
    body = body.replace("template <class Element>\nclass TypedCollection", "class TypedCollection")
    temporary = Interface("TypedCollection", [])
    comment: list = []
    for line in body.splitlines():
        stripped = line.strip()
        if match := re.match(r"virtual (.+?) ?(\w+)\((.*)\) = 0;(?:\s*///< (.*))?", stripped):
            temporary.functions[match[2]] = (match[1], match[3], comment + ([match[4]] if match[4] else []))
            comment = []
        elif stripped.startswith("///"):
            comment.append(stripped[3:])
        elif stripped.startswith("class "):
            temporary.comment, comment = comment, []
    lines = ['Element = TypeVar("Element")', "", "", "class TypedCollection(Protocol, Generic[Element]):",
             *docstring(prose(temporary.comment), " " * 4), ""]
    lines += write_members(temporary, tables["TypedCollection"], enumerations)
    lines += ["    def __len__(self) -> int: ...", "    def __iter__(self) -> Iterator[Element]: ...",
              "    def __getitem__(self, key: Any, /) -> Element: ...",
              "    def __contains__(self, key: Any, /) -> bool: ...", "", ""]
    for name, element in re.findall(r"using (CBase_\w+) = TypedCollection<(\w+)>;", text):
        lines.append(f'{name} = TypedCollection["{element}"]')
    return [*lines, "", ""]


def generate() -> str:
    enumerations = read_enumerations()
    names = {name for name, _, _ in enumerations}
    tables = read_tables([*sorted((SOURCE / "contract").glob("*.cpp")), SOURCE / "platform/automation/collection.cpp"])
    lines = write_enumerations(enumerations) + write_records(names) + write_collections(tables, names)
    for path in FILES:
        for interface in read_interfaces(path):
            if interface.name not in tables:
                continue
            lines += [f"class {interface.name}(Protocol):", *docstring(prose(interface.comment), " " * 4), ""]
            lines += write_members(interface, tables[interface.name], names)
            if "Unload" in interface.functions:
                lines += [f"    def __enter__(self) -> {interface.name}: ...",
                          "    def __exit__(self, *exception: object) -> None: ...", ""]
            if interface.name == "ICollection":
                lines += ["    def __len__(self) -> int: ...", "    def __iter__(self) -> Iterator[Any]: ...",
                          "    def __getitem__(self, key: Any, /) -> Any: ...",
                          "    def __contains__(self, key: Any, /) -> bool: ...", ""]
            lines.append("")
    public = [match[1] for line in lines if (match := re.match(r"(?:class )?([a-zA-Z]\w*)(?:\(| = )", line))]
    exported = textwrap.wrap(", ".join(f'"{name}"' for name in public if name != "Element"), WIDTH - 11,
                             subsequent_indent=" " * 11)
    return PROLOGUE + "__all__ = [" + "\n".join(exported) + "]\n\n\n" + "\n".join(lines).rstrip() + "\n"


def main() -> int:
    text = generate()
    if sys.argv[1:] == ["--check"]:
        current = TARGET.read_text(encoding="utf-8") if TARGET.exists() else ""
        print("up to date" if current == text else f"{TARGET.name} is not what the headers say; run {__file__}")
        return int(current != text)
    TARGET.write_text(text, encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main())

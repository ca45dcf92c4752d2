#!/usr/bin/env python3
"""Checks that every folder includes only from the floors below it, and that no two folders include each other."""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
# Folder to the folders that it may include, besides itself.
PLATFORM = ["locale", "automation", "conversion", "system", "format", "functions", "store", "script"]  # lower ones first
FLOORS = {f"platform/{name}": [f"platform/{below}" for below in PLATFORM[:i]] for i, name in enumerate(PLATFORM)}
ALL_PLATFORM = list(FLOORS)
FLOORS["support"] = ALL_PLATFORM
FLOORS["contract"] = ALL_PLATFORM
FLOORS["record"] = ALL_PLATFORM + ["support"]
FLOORS["descriptor"] = FLOORS["contract"] + ["support", "contract", "record"]
FLOORS["parameters"] = FLOORS["descriptor"] + ["descriptor"]
FLOORS["scripting"] = FLOORS["descriptor"] + ["descriptor"]
FLOORS["tree"] = FLOORS["parameters"] + ["parameters", "scripting"]
FLOORS["module"] = FLOORS["tree"] + ["tree"]
# The tool stands on the module; values and names it has from the headers that hosts have too, files it reads and writes
# as the library does.
TOOL = ["ovmodel", "module", "contract", "platform/script", "platform/automation", "platform/locale", "platform/system"]

INCLUDE = re.compile(r'^#include "([^"]+)"', re.MULTILINE)


def folder_of(path: str) -> str:
    parts = path.split("/")
    return "/".join(parts[:2]) if parts[0] == "platform" else parts[0]


def main() -> int:
    faults = []
    edges = set()
    for source in sorted([*(ROOT / "src").rglob("*.[hc]*"), *(ROOT / "tools").rglob("*.[hc]*")]):
        top = source.relative_to(ROOT / ("src" if (ROOT / "src") in source.parents else "tools")).as_posix()
        own = folder_of(top)
        allowed = TOOL if own == "ovmodel" else FLOORS.get(own)
        if allowed is None:
            faults.append(f"{source.relative_to(ROOT)}: folder {own} stands on no floor")
            continue
        for target in INCLUDE.findall(source.read_text(encoding="utf-8")):
            other = folder_of(target)
            if other != own:
                edges.add((own, other))
            if other != own and other not in allowed:
                faults.append(f"{source.relative_to(ROOT)}: {own} may not include {other} ({target})")
    faults += [f"{a} and {b} include each other" for a, b in edges if a < b and (b, a) in edges]
    print("\n".join(faults) if faults else f"floors: {len(edges)} connections, all downwards")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())

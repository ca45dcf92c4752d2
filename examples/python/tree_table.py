#!/usr/bin/env python3
"""Tabulates the parameters of a device: one line each with path, name, value, unit, limits.

    tree_table.py DB TYPE [--language N] [--group CH/G] [--csv]
"""

import argparse
import csv
import os
import sys

import ov_model

HEAD = ["path", "name", "value", "unit", "min", "max", "kind"]


def rows(module, wanted):
    for channel in module.Spec().channels():
        for group in channel.groups():
            path = f"{channel.id()}/{group.id()}"
            if wanted not in (None, path):
                continue
            for parameter in group.parameters():
                gui = parameter.Gui()
                if gui.configState() == ov_model.eParameterInvalid:
                    continue  # not there at present
                yield [f"{path}/{parameter.id()}", gui.name(), gui.value, gui.unit(), *limits(gui),
                       (ov_model.eParameterKind(parameter.kind()).name or "").removeprefix("eParamKind")]


def limits(gui):
    return ["" if limit in (None, ov_model.Null) else str(limit) for limit in (gui.Min(), gui.Max())]


def main():
    parser = argparse.ArgumentParser(description="Tabulates the parameters of a device.")
    parser.add_argument("database", metavar="DB")
    parser.add_argument("type", metavar="TYPE")
    parser.add_argument("--language", type=int, default=9, metavar="N")
    parser.add_argument("--group", metavar="CH/G")
    parser.add_argument("--csv", action="store_true", help="comma-separated values")
    options = parser.parse_args()

    with ov_model.create("CBase_Module") as module:
        module.SetSourcePath(os.path.abspath(options.database))
        module.SetLanguage(options.language)
        if not module.Load(options.type):
            sys.exit(f"tree_table: cannot load '{options.type}' from {options.database}")
        table = [HEAD, *rows(module, options.group)]
    if len(table) == 1:
        sys.exit(f"tree_table: no group {options.group}")
    if options.csv:
        csv.writer(sys.stdout).writerows(table)
        return
    widths = [max(map(len, column)) for column in zip(*table)]
    for row in table:
        print("  ".join(cell.ljust(width) for cell, width in zip(row, widths)).rstrip())


if __name__ == "__main__":
    main()

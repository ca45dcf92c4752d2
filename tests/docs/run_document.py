#!/usr/bin/env python3
"""Does what a document tells its reader to do, and compares what comes out with what the document shows.

A block "```LANGUAGE FILE" is written to FILE in a scratch folder, which begins with a copy of examples/; further blocks
of that name go on with it. A block "```console" holds commands behind "$ " and below each what it prints; a line "..." stands for any lines. Commands run in
order, with the installed build in their paths, and must succeed. Of a command ./dev only the name is checked, since
it builds the whole project. "```text" is a picture, not run. Other blocks are an error: nothing shown goes untried.
"""

import argparse
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile


class Block:
    def __init__(self, words, line):
        self.language = words[0] if words else ""
        self.file = words[1] if len(words) > 1 else None
        self.line = line
        self.text = ""


def blocks_of(document):
    blocks = []
    inside = None
    for number, line in enumerate(document.read_text(encoding="utf-8").splitlines(), 1):
        if inside is None and line.startswith("```"):
            inside = Block(line[3:].split(), number)
        elif inside is not None and line == "```":
            blocks.append(inside)
            inside = None
        elif inside is not None:
            inside.text += line + "\n"
    if inside is not None:
        raise SystemExit(f"{document}:{inside.line}: a block without an end")
    return blocks


def commands_of(block):
    """Pairs of a command and the lines that it prints; a line that ends with a backslash goes on in the next one."""
    commands = []
    for line in block.text.splitlines():
        if line.startswith("$ "):
            commands.append([line[2:], []])
        elif commands and commands[-1][0].endswith("\\") and not commands[-1][1]:
            commands[-1][0] = commands[-1][0][:-1] + line.strip()
        elif commands:
            commands[-1][1].append(line.rstrip())
    return commands


def matches(expected, lines):
    pattern = "".join(r"(?:.*\n)*" if line == "..." else re.escape(line) + r"\n" for line in expected)
    return re.fullmatch(pattern, "".join(line.rstrip() + "\n" for line in lines)) is not None


class Reader:
    """Somebody who follows a document in a scratch folder."""

    def __init__(self, source, build, scratch):
        self.folder = scratch / "work"
        self.source = source
        self.written = set()
        prefix = scratch / "prefix"
        subprocess.run(["cmake", "--install", build, "--prefix", prefix], check=True, stdout=subprocess.DEVNULL)
        shutil.copytree(source / "examples", self.folder / "examples", ignore=shutil.ignore_patterns("*.db", "build"))
        libraries = [path.parent for path in prefix.rglob("libov_model.so")]
        self.environment = dict(
            os.environ,
            PATH=f"{prefix / 'bin'}:{os.environ['PATH']}",
            CMAKE_PREFIX_PATH=str(prefix),
            LD_LIBRARY_PATH=":".join(map(str, libraries)),
            PKG_CONFIG_PATH=":".join(str(path.parent) for path in prefix.rglob("*.pc")),
            PYTHONPATH=":".join(str(path.parent.parent) for path in prefix.rglob("ov_model/__init__.py")),
            LC_ALL="C.UTF-8",
            OV_MODEL_REGISTRY=str(scratch / "registry.ini"),
        )

    def write(self, block):
        path = self.folder / block.file
        path.parent.mkdir(parents=True, exist_ok=True)
        with path.open("a" if block.file in self.written else "w", encoding="utf-8") as file:
            file.write(block.text)
        self.written.add(block.file)

    def run(self, command):
        done = subprocess.run(
            ["bash", "-c", command], cwd=self.folder, env=self.environment, stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=250)
        return done.returncode, done.stdout.decode("utf-8", "replace").splitlines()

    def complaint(self, command, expected):
        """What is wrong with a command, or nothing."""
        if command.startswith("./dev "):
            told = subprocess.run([self.source / "dev", "help"], capture_output=True, text=True, check=True).stdout
            known = re.search(rf"^  {re.escape(command.split()[1])}\b", told, re.MULTILINE)
            return None if known else "./dev has no such command"
        status, lines = self.run(command)
        printed = "\n".join(lines)
        if status != 0:
            return f"status {status}:\n{printed}"
        if not matches(expected, lines):
            return "it prints\n" + printed
        return None


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--source", type=pathlib.Path, required=True)
    parser.add_argument("--build", type=pathlib.Path, required=True)
    parser.add_argument("document", type=pathlib.Path)
    options = parser.parse_args()
    failures = 0
    with tempfile.TemporaryDirectory() as scratch:
        reader = Reader(options.source.resolve(), options.build.resolve(), pathlib.Path(scratch))
        for block in blocks_of(options.document):
            if block.language == "console":
                for command, expected in commands_of(block):
                    complaint = reader.complaint(command, expected)
                    if complaint:
                        failures += 1
                        print(f"{options.document}:{block.line}: $ {command}\n{complaint}", file=sys.stderr)
            elif block.file:
                reader.write(block)
            elif block.language != "text":
                failures += 1
                print(f"{options.document}:{block.line}: a block that nothing tries", file=sys.stderr)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())

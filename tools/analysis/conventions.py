#!/usr/bin/env python3
"""Checks the project's coding conventions. Fails with one line for each breach."""

import pathlib
import posixpath
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
FOLDERS = ("src", "tests", "benchmarks", "scripts", "cmake", "packaging", ".ci")
SOURCES = {".cpp", ".h", ".mm", ".m", ".qml", ".js", ".py", ".sh", ".cmake", ".txt", ".in", ".qrc", ""}
LONGEST = 400
LONGEST_LINE = 132  # as .editorconfig says

HEX_COLOUR = re.compile(r"#(?:[0-9a-fA-F]{8}|[0-9a-fA-F]{6}|[0-9a-fA-F]{3,4})\b")
SYSTEM_SWITCH = re.compile(r"^\s*#\s*(?:if|ifdef|ifndef|elif)\b.*\b(?:Q_OS_\w+|__APPLE__|__linux__|_WIN32)\b")
INCLUDE = re.compile(r'^\s*#\s*(?:include|import)\s*["<](?:.*/)?([^/">]+)[">]')
IMPORTED = re.compile(r'^\.?import "([^"]+)"')
FRAMEWORK = re.compile(r"^\s*#\s*(?:include|import)\s*<(?:AppKit|Cocoa|Foundation|Sparkle)/")
MEMBER_MADE = re.compile(r"^\s+(\w+) = new .*;$")
# The brackets keep these patterns from matching this file.
LEFT_OPEN = re.compile(r"\b(?:Q[S]KIP|TO[D]O|FIX[M]E)\b")
TEST_LEFT_OUT = re.compile(r"\b(?:s[k]ip(?:Test|If|Unless)?|expectedFailure)\s*\(|\bQEXPECT[_]FAIL\b")

# Allowed dependencies. The link lines enforce them for includes by name; this check also finds an include by path.
KNOWS = {
    "program": {"copies", "guard", "platform", "service", "view"},
    "service": {"platform", "view"},
    "restore program": {"platform", "restore"},
    "restore": {"copies"},
    "copies": set(),
    "guard": set(),
    "platform": set(),
    "view": set(),
}
# The documents that all windows share know none of them, and the folder of a window knows no other window's.
SHARED_DOCUMENTS = {"style": set(), "base": {"src/qml/style"}}
VIEW = ("draggablequickview", "dragplace", "focuser", "focuser_linux", "focuser_mac", "screenunit", "screenunit_linux",
        "screenunit_mac")
PROGRAMS = {"src/app/main.cpp": "program", "src/restore/main.cpp": "restore program"}


def sources():
    """Every hand-written file with its lines."""
    for folder in FOLDERS:
        for path in sorted((ROOT / folder).rglob("*")):
            if path.is_file() and path.suffix in SOURCES and "corpus" not in path.parts:
                yield path.relative_to(ROOT), path.read_text(encoding="utf-8").splitlines()


def may_ask_for_the_system(path):
    return path.parts[:2] == ("src", "platform") or path.stem.endswith("_unix")


def may_call_frameworks(path):
    return path.parts[:2] == ("src", "platform") or path.stem == "focuser_mac"


def part_of(path):
    """The part in KNOWS that a source belongs to; None for files that are not native code."""
    folder = path.parts[1]
    if path.parts[0] != "src" or len(path.parts) < 3:
        return None
    if folder == "app":
        folder = "view" if path.stem in VIEW else "guard"
    return PROGRAMS.get(path.as_posix(), folder if folder in KNOWS else None)


def breaches_of_plan(files):
    parts = {path: part_of(path) for path, _ in files if part_of(path)}
    headers = {path.name: part for path, part in parts.items() if path.suffix == ".h"}
    if set(parts.values()) != set(KNOWS):
        yield f"src: its parts are {sorted(set(parts.values()))}"
    for path, lines in files:
        for number, line in enumerate(lines, 1):
            included = INCLUDE.match(line)
            known = headers.get(included.group(1)) if included else None
            if path in parts and known not in {None, parts[path], *KNOWS[parts[path]]}:
                yield f"{path}:{number}: {parts[path]} may not know {known}"


def breach_of_document(path, line):
    """A document below src/qml that imports what its folder may not know."""
    imported = IMPORTED.match(line)
    if path.parts[:2] != ("src", "qml") or len(path.parts) < 4 or not imported:
        return None
    folder, target = path.parts[2], posixpath.normpath(f"{path.parent.as_posix()}/{imported.group(1)}")
    if folder in SHARED_DOCUMENTS:
        return None if target in SHARED_DOCUMENTS[folder] else f"{folder} may not know {target}"
    windows = {each.name for each in (ROOT / "src" / "qml").iterdir() if each.is_dir()} - {folder, *SHARED_DOCUMENTS}
    return f"{folder} may not know {target}" if target in {f"src/qml/{window}" for window in windows} else None


def breaches_of_line(path, line):
    name = path.as_posix()
    if name.startswith("src/qml/") and name != "src/qml/style/Palette.qml" and HEX_COLOUR.search(line):
        yield "a colour outside the palette"
    if SYSTEM_SWITCH.search(line) and not may_ask_for_the_system(path):
        yield "an #ifdef for a platform outside src/platform"
    if name.startswith("src/") and FRAMEWORK.search(line) and not may_call_frameworks(path):
        yield "a framework of macOS outside src/platform and the focuser"
    if line != line.rstrip() or "\t" in line:
        yield "a tab, or trailing blanks"
    if len(line) > LONGEST_LINE and path.suffix != ".txt":
        yield f"{len(line)} characters, more than {LONGEST_LINE}"
    if LEFT_OPEN.search(line):
        yield "a to-do, or a test that is skipped"
    if name.startswith("tests/") and path.suffix in (".cpp", ".h", ".qml", ".py") and TEST_LEFT_OUT.search(line):
        yield "a test that is skipped"
    if breach_of_document(path, line):
        yield breach_of_document(path, line)


def breaches_of_file(path, lines):
    if len(lines) > LONGEST:
        yield f"{len(lines)} lines, more than {LONGEST}"
    if path.suffix == ".h" and "#pragma once" not in lines:
        yield "a header without #pragma once"
    if path.as_posix().startswith("src/"):
        for line, next_line in zip(lines, lines[1:]):
            made = MEMBER_MADE.match(line)
            if made and not re.search(rf"Q_ASSERT(_X)?\({made.group(1)}\b", next_line):
                yield f"{made.group(1)} is not checked right after its creation"


def main():
    files = list(sources())
    breaches = list(breaches_of_plan(files))
    for path, lines in files:
        breaches += [f"{path}: {text}" for text in breaches_of_file(path, lines)]
        breaches += [f"{path}:{number}: {text}" for number, line in enumerate(lines, 1)
                     for text in breaches_of_line(path, line)]
    print("\n".join(breaches))
    print(f"{len(files)} files, {len(breaches)} breaches")
    sys.exit(1 if breaches or not files else 0)


main()

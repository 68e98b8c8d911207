#!/usr/bin/env python3
"""Parses every #include and fails on one that leads out of its layer: scripts/check-includes.py [ROOT]

A source of the library includes its own folder and those below it. The folders around the library do not reach into each
other either, and a folder that is not in these tables is refused, so that whoever adds one decides where it belongs.
"""

import pathlib
import re
import sys

LIBRARY = "KivoFunctionPlotter"

# The layers of KivoFunctionPlotter/src, each with those that it may include.
LAYERS = {
    "plotter": {"parts", "drawing", "computing", "window_system"},
    "parts": {"drawing", "computing", "window_system"},
    "drawing": {"computing", "window_system"},
    "computing": set(),
    "window_system": set(),
}

# The installed headers that describe no more than platform and records serve the lower layers, too.
HEADERS_FOR = {
    "plotter": None,  # all
    "parts": {"KivoTypes.h", "KivoPlatform.h"},
    "drawing": {"KivoTypes.h", "KivoPlatform.h", "KivoHost.h"},
    "computing": {"KivoTypes.h"},
    "window_system": {"KivoPlatform.h", "KivoWindow.h", "KivoHost.h"},
}

# What sources without a platform may take from outside: headers of the C++ library have no dot and no folder.
PURE = {"computing"}

# Other folders: from where their quoted includes may come, besides their own folder.
SURROUNDINGS = {
    f"{LIBRARY}/include": [],
    f"{LIBRARY}/samples": [],
    f"{LIBRARY}/tests": [f"{LIBRARY}/tests", f"{LIBRARY}/samples", f"{LIBRARY}/src", f"{LIBRARY}/include"],
    f"{LIBRARY}/benchmarks": [
        f"{LIBRARY}/benchmarks", f"{LIBRARY}/samples", f"{LIBRARY}/tests", f"{LIBRARY}/src", f"{LIBRARY}/include"],
    "controls/core/shared": [],
    "controls/core/src": [f"{LIBRARY}/include"],
    "controls/core/tests": [f"{LIBRARY}/tests", f"{LIBRARY}/src", f"{LIBRARY}/include"],
    "controls/win32/src": [f"{LIBRARY}/include"],
    "controls/win32/tests": [f"{LIBRARY}/tests", f"{LIBRARY}/src", f"{LIBRARY}/include"],
    "controls/qt/include": [f"{LIBRARY}/include"],
    "controls/qt/src": ["controls/qt/include", f"{LIBRARY}/include"],
    "controls/qt/designer": ["controls/qt/include"],
    "controls/qt/quick": ["controls/qt/include"],
    "controls/qt/tests": [
        "controls/qt/include", "controls/qt/src", f"{LIBRARY}/samples", f"{LIBRARY}/tests", f"{LIBRARY}/include"],
    "controls/gtk/include": [f"{LIBRARY}/include"],
    "controls/gtk/src": ["controls/gtk/include", "controls/core/shared", f"{LIBRARY}/include"],
    "controls/gtk/tests": [
        "controls/gtk/include", "controls/gtk/src", f"{LIBRARY}/samples", f"{LIBRARY}/tests", f"{LIBRARY}/include"],
    "controls/wx/include": [f"{LIBRARY}/include"],
    "controls/wx/src": ["controls/wx/include", "controls/core/shared", f"{LIBRARY}/include"],
    "controls/wx/tests": [
        "controls/wx/include", "controls/wx/src", f"{LIBRARY}/samples", f"{LIBRARY}/tests", f"{LIBRARY}/include"],
    "viewer/src": [f"{LIBRARY}/include"],
    "python/src": [f"{LIBRARY}/include"],
    "viewer/tests": ["viewer/src", f"{LIBRARY}/tests", f"{LIBRARY}/tests/fuzz", f"{LIBRARY}/src", f"{LIBRARY}/include"],
    "examples/tests": ["examples", f"{LIBRARY}/tests", f"{LIBRARY}/samples", f"{LIBRARY}/include"],
    "examples": [f"{LIBRARY}/samples", f"{LIBRARY}/include"],
    "docs/picture_makers": [
        "viewer/src", "viewer/tests", f"{LIBRARY}/samples", f"{LIBRARY}/tests", f"{LIBRARY}/include"],
}

# Tests of one layer know no more than that layer.
ROOMS = {"computing": PURE | {"parts"}}

INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>|(\S.*))', re.MULTILINE)


def includes(path):
    """Yields (quoted, angled) of every include, one of them empty; a computed include is refused by its text."""
    for match in INCLUDE.finditer(path.read_text(encoding="utf-8")):
        yield match.group(1) or "", match.group(2) or "", match.group(3) or ""


class Checker:
    def __init__(self, root):
        self.root = root
        self.complaints = []

    def complain(self, path, text):
        self.complaints.append(f"{path.relative_to(self.root)}: {text}")

    def sources(self, folder):
        return sorted(p for p in (self.root / folder).rglob("*") if p.suffix in {".h", ".cpp", ".in"} and p.is_file())

    def check_layers(self):
        src = self.root / LIBRARY / "src"
        for entry in sorted(src.iterdir()):
            if not entry.is_dir():
                self.complain(entry, "a source in no layer's folder")
            elif entry.name not in LAYERS:
                self.complain(entry, "a folder that is no layer; scripts/check-includes.py lists them")
            else:
                for source in self.sources(entry):
                    self.check_source(source, entry.name)

    def check_source(self, source, layer):
        src, headers = self.root / LIBRARY / "src", self.root / LIBRARY / "include"
        for quoted, angled, computed in includes(source):
            if computed:
                self.complain(source, f"includes {computed}, which only the preprocessor knows")
            elif angled:
                if layer in PURE and re.search(r"[./]", angled):
                    self.complain(source, f"is pure, but includes <{angled}>")
                if angled.startswith("Kivo"):
                    self.complain(source, f"includes <{angled}>; the library's own headers are quoted")
            elif (source.parent / quoted).resolve().is_file():
                target = (source.parent / quoted).resolve().relative_to(src)
                if target.parts[0] != layer:
                    self.complain(source, f"includes {quoted} by a path; write it from src/")
            elif (src / quoted).is_file():
                target = pathlib.PurePath(quoted).parts[0]
                if target != layer and target not in LAYERS[layer]:
                    self.complain(source, f"includes {quoted}, which is not below {layer}/")
            elif (headers / quoted).is_file() or (headers / f"{quoted}.in").is_file():
                allowed = HEADERS_FOR[layer]
                if allowed is not None and quoted not in allowed:
                    self.complain(source, f"includes {quoted}, which is above {layer}/")
            else:
                self.complain(source, f"includes {quoted}, which is nowhere")

    def check_surroundings(self):
        for folder, places in SURROUNDINGS.items():
            for source in self.sources(folder):
                # The longest name that fits is the folder's.
                relative = source.relative_to(self.root).as_posix()
                if max((f for f in SURROUNDINGS if relative.startswith(f + "/")), key=len) != folder:
                    continue
                for quoted, _, computed in includes(source):
                    if computed:
                        self.complain(source, f"includes {computed}, which only the preprocessor knows")
                    elif quoted:
                        self.check_place(source, quoted, folder, places)

    def check_place(self, source, quoted, folder, places):
        for name in (quoted, f"{quoted}.in"):
            own = (source.parent / name).resolve()
            if own.is_file() and own.is_relative_to(self.root / folder):
                return
        for place in places:
            if (self.root / place / quoted).is_file() or (self.root / place / f"{quoted}.in").is_file():
                return
        self.complain(source, f"includes {quoted}, which is in none of {', '.join([folder, *places])}")

    def check_rooms(self):
        for room, allowed in ROOMS.items():
            for source in self.sources(f"{LIBRARY}/tests/{room}"):
                for quoted, _, _ in includes(source):
                    first = pathlib.PurePath(quoted).parts[:1]
                    if first and first[0] in LAYERS and first[0] not in allowed:
                        self.complain(source, f"includes {quoted}, but tests of {room}/ know no more than that")

    def check_folders(self):
        known = [*SURROUNDINGS, f"{LIBRARY}/src"]
        ignored = {".git"}
        for source in self.root.rglob("*.cpp"):
            relative = source.relative_to(self.root).as_posix()
            if relative.split("/")[0] in ignored or relative.startswith("build"):
                continue
            if not any(relative.startswith(folder + "/") for folder in known):
                self.complain(source, "in a folder that scripts/check-includes.py does not know")


def main():
    root = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).parent.parent).resolve()
    checker = Checker(root)
    checker.check_layers()
    checker.check_surroundings()
    checker.check_rooms()
    checker.check_folders()
    print("\n".join(checker.complaints))
    return 1 if checker.complaints else 0


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/env python3
"""Fails on an #include that points against the layers of the house.

usage: check_layers.py [ROOT]     ROOT: the repository, by default the one this file stands in
"""

import re
import sys
from pathlib import Path

# The layers from the bottom up. A folder may use itself and all that stands below its row.
ROWS = [
    ["model/oxutil", "model/oxnumeric"],
    ["model/oxnumeric/section"],
    ["model/oxdata"],
    ["model/vldata"],
    ["model/vlsol"],
    ["results"],
    ["reports/case_json", "reports/clipboard", "legacy", "materials"],
    ["app"],
    ["reports/csv", "bridge"],
    ["plot"],
    ["reports/html"],
    ["cli"],
    ["bench", "fuzz", "examples/embed"],
]

# Arrows within a row, and those of folders beside the stack. A target with a suffix is one file.
ARROWS = {
    "legacy": ["materials"],
    "dxf_import": ["model/oxutil", "model/oxnumeric/Vec.h"],
    "bridge": ["dxf_import"],
    "cli": ["dxf_import"],
    "bench": ["dxf_import"],
    "fuzz": ["dxf_import"],
}

# Plain numbers: no streams, files or JSON. Their tests may read files.
NUMERIC = ["model/oxnumeric", "model/oxnumeric/section", "model/oxdata/materials",
           "model/oxdata/codes"]
STREAMS = {"iostream", "fstream", "sstream", "filesystem"}
JSON = re.compile(r"rapidjson/|model/oxutil/(json|JSON)")

# Third-party headers that only some folders may name; "test" stands for every test folder.
THIRD_PARTY = {
    "CLI/": ["cli"],
    "cairo": ["plot"],
    "geos_c.h": ["model/oxnumeric"],
    "gtest/": ["test"],
    "gmock/": ["test"],
    "benchmark/": ["bench"],
    "dxflib/": ["bench"],
}
ONE_FILE_ONLY = "geos_c.h"

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')
FOLDERS = [folder for row in ROWS for folder in row] + ["dxf_import"]


def deepest(path, folders):
    """The longest of the folders that holds the path, or None."""
    return max((f for f in folders if path.startswith(f + "/")), key=len, default=None)


def allowed(folder):
    below = next((i for i, row in enumerate(ROWS) if folder in row), 0)
    return [folder] + [f for row in ROWS[:below] for f in row] + ARROWS.get(folder, [])


def wrong_quoted(folder, header):
    target = deepest(header, FOLDERS)
    if target is None:
        return "names no folder of the house; write the path from the repository root"
    if target in allowed(folder) or header in allowed(folder):
        return None
    return f"there is no arrow {folder} -> {target}"


def wrong_third_party(folder, is_test, header):
    for prefix, homes in THIRD_PARTY.items():
        if header.startswith(prefix) and folder not in homes and not (is_test and "test" in homes):
            return f"only {', '.join(homes)} may name {prefix}"
    return None


def wrong(path, quoted, header):
    """What is wrong with an include, or None."""
    folder = deepest(path, FOLDERS)
    is_test = "/test/" in path
    numeric = deepest(path, NUMERIC)
    if numeric and (JSON.match(header) or (header in STREAMS and not is_test)):
        return f"{numeric} knows numbers only: no streams, files or JSON"
    if header == "iostream" and path.endswith(".h"):
        return "headers name no <iostream>; <iosfwd> will do"
    if quoted:
        return wrong_quoted(folder, header)
    return wrong_third_party(folder, is_test, header)


def sources(root):
    for path in sorted(root.rglob("*")):
        parts = path.relative_to(root).parts
        if path.suffix in (".h", ".cpp") and parts[0] != "build" and not parts[0].startswith("."):
            yield path


def check(root):
    """The list of violations, one line each."""
    found = []
    one_file = set()
    for source in sources(root):
        path = source.relative_to(root).as_posix()
        if deepest(path, FOLDERS) is None:
            found.append(f"{path}:1: its folder is not in the table of tools/check_layers.py")
            continue
        for number, line in enumerate(source.read_text("utf-8", "replace").splitlines(), 1):
            match = INCLUDE.match(line)
            if not match:
                continue
            what = wrong(path, match[1] == '"', match[2])
            if what is None and match[2] == ONE_FILE_ONLY:
                one_file.add(path)
                if len(one_file) > 1:
                    what = f"{sorted(one_file - {path})[0]} is the one file that may name it"
            if what:
                found.append(f"{path}:{number}: includes {match[2]}: {what}")
    return found


def main():
    root = Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).resolve().parent.parent
    found = check(root)
    for line in found:
        print(line)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())

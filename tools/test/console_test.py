#!/usr/bin/env python3
"""Runs the console blocks of Markdown pages and compares what they show with what is printed.

usage: console_test.py [--update] VELMO PAGE...

Each page works in a scratch folder that has the examples. In a block marked `console` a line "$ command" is run; the
lines up to the next are what it prints, of which a line "..." stands for any. A block under a line that ends in
"`name`:" becomes a file of that name. With --update the pages get what is printed now, where there is no "...".
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
FILE_NAME = re.compile(r"`([\w.-]+)`:$")


def printed_by(command, folder, velmo):
    done = subprocess.run(["bash", "-c", command], cwd=folder, capture_output=True, text=True, timeout=300,
                          env={**os.environ, "PATH": f"{velmo.parent}:{os.environ['PATH']}"})
    return [line.rstrip() for line in (done.stdout + done.stderr).splitlines()]


def agree(shown, printed):
    pattern = "".join(r"(?:.*\n)*" if line == "..." else re.escape(line) + r"\n" for line in shown)
    return re.fullmatch(pattern, "".join(line + "\n" for line in printed)) is not None


def commands(block):
    """[command, lines shown] of a console block; a command goes on after a backslash at its end."""
    found = []
    for line in block:
        if found and found[-1][0].endswith("\\"):
            found[-1][0] += "\n" + line
        elif line.startswith("$ "):
            found.append([line[2:], []])
        else:
            found[-1][1].append(line.rstrip())
    return found


class Page:
    def __init__(self, path, velmo):
        self.path, self.velmo = path, velmo
        self.count, self.wrong, self.lines = 0, [], []

    def try_console(self, block, folder):
        """The block with what its commands print now."""
        now = []
        for command, shown in commands(block):
            self.count += 1
            printed = printed_by(command, folder, self.velmo)
            gap = [""] if shown and not shown[-1] else []
            shown = shown[: len(shown) - len(gap)]
            if not agree(shown, printed):
                self.wrong.append((command, shown, printed))
            now += ["$ " + command, *(shown if "..." in shown else printed), *gap]
        return now

    def run(self):
        block, marker, before = None, "", ""
        with tempfile.TemporaryDirectory() as scratch:
            folder = Path(scratch)
            shutil.copytree(ROOT / "examples", folder / "examples")
            for line in self.path.read_text().splitlines():
                if line.startswith("```") and block is None:
                    block, marker = [], line[3:]
                elif line.startswith("```"):
                    name = FILE_NAME.search(before)
                    if name:
                        (folder / name[1]).write_text("".join(text + "\n" for text in block))
                    self.lines += self.try_console(block, folder) if marker == "console" else block
                    block, before = None, ""
                elif block is not None:
                    block.append(line)
                    continue
                elif line.strip():
                    before = line.strip()
                self.lines.append(line)


def main(arguments):
    update = arguments[:1] == ["--update"]
    velmo, *paths = arguments[update:]
    failed = False
    for path in paths:
        page = Page(Path(path), Path(velmo).resolve())
        page.run()
        if update:
            page.path.write_text("\n".join(page.lines) + "\n")
        for command, shown, printed in page.wrong:
            print(f"{path}: $ {command}", "--- shown", *shown, "--- printed", *printed, sep="\n")
        print(f"{path}: {page.count} commands, {len(page.wrong)} print something else")
        failed |= page.count == 0 or (bool(page.wrong) and not update)
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))

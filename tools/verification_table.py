#!/usr/bin/env python3
"""Writes the table of published examples in docs/verification.md.

Runs the solver's tests, which append every comparison of an example to a file when asked to, and
puts the rows between the two marks of the document:

    tools/verification_table.py build/dev/model/vlsol/vlsol_test
"""

import argparse
import os
import pathlib
import subprocess
import tempfile

DOCUMENT = pathlib.Path(__file__).resolve().parent.parent / "docs" / "verification.md"
BEGIN = "<!-- table of examples: begin -->\n"
END = "<!-- table of examples: end -->\n"
VARIABLE = "VLSOL_VERIFICATION_TABLE"
HEADINGS = {
    "derived": "Closed forms",
    "uls": "Bending strength",
    "nm": "Axial force and bending",
    "biaxial": "Biaxial bending",
    "circular": "Circular sections",
    "plane": "Imposed planes",
    "prestress": "Prestress",
    "sls": "Serviceability",
    "composite": "Composite sections",
    "phi": "Strength reduction",
    "crack": "Crack widths",
}


def comparisons(test):
    """The rows that the test binary reports: group, case, source, quantity and four numbers."""
    with tempfile.TemporaryDirectory() as folder:
        path = pathlib.Path(folder) / "rows"
        environment = dict(os.environ, **{VARIABLE: str(path)})
        subprocess.run([test, "--gtest_filter=*WorkedExamples*", "--gtest_brief=1"],
                       env=environment, check=True, stdout=subprocess.DEVNULL)
        return [line.split("\t") for line in path.read_text(encoding="utf-8").splitlines()]


def markdown(rows):
    lines = []
    group = case = None
    for row_group, name, source, *numbers in rows:
        if row_group != group:
            lines += ["", f"### {HEADINGS[row_group]}", "",
                      "| case | quantity | published | here | deviation | allowed | source |",
                      "|---|---|---|---|---|---|---|"]
        first = name != case
        group, case = row_group, name
        cells = [name if first else "", *numbers, source if first else ""]
        lines.append("| " + " | ".join(cells) + " |")
    return "\n".join(lines[1:]) + "\n"


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("test", help="the built vlsol_test")
    arguments = parser.parse_args()
    text = DOCUMENT.read_text(encoding="utf-8")
    before, rest = text.split(BEGIN)
    after = rest.split(END)[1]
    updated = before + BEGIN + "\n" + markdown(comparisons(arguments.test)) + "\n" + END + after
    DOCUMENT.write_text(updated, encoding="utf-8")


if __name__ == "__main__":
    main()

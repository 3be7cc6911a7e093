#!/usr/bin/env python3
"""Writes the tables of published examples in docs/verification.md, and docs/verification-inputs.md.

Runs the solver's tests, which append every comparison of an example to a file when asked to, and
puts the rows between the two marks of the document:

    tools/verification_table.py build/dev/model/vlsol/vlsol_test
"""

import argparse
import json
import os
import pathlib
import subprocess
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
DOCUMENT = ROOT / "docs" / "verification.md"
INPUTS = ROOT / "docs" / "verification-inputs.md"
DATA = ROOT / "model" / "vlsol" / "test" / "data" / "worked_examples.json"
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
    "memory": "Quoted from memory",
}
# The program's codes, the codes that examples name for them, and those of codes with the same rules.
CODES = [
    ("EN 1992-1-1:2004", ["EN 1992-1-1:2004"], ["EN 1994-1-1", "NTC 2008 (EC2 block)", "EHE-08"]),
    ("BS 8110-1:1997, BS 8110-2", ["BS 8110-1:1997", "BS 8110-2", "BS 8110-2 3.8 / BS 8007"],
     ["SS CP 65:1999"]),
    ("HK CoP 2013", [], []),
    ("IS 456:2000", ["IS 456"], []),
    ("ACI 318-19", ["ACI 318-19"], ["ACI 318"]),
    ("ACI 318-14", ["ACI 318-14"], ["ACI 318"]),
    ("CSA A23.3-14", [], []),
    ("AS 3600:2018", [], ["AS 3600"]),
]
ENOUGH = 3


def comparisons(test):
    """The rows that the test binary reports: group, case, code, source, quantity, four numbers."""
    with tempfile.TemporaryDirectory() as folder:
        path = pathlib.Path(folder) / "rows"
        environment = dict(os.environ, **{VARIABLE: str(path)})
        subprocess.run([test, "--gtest_filter=*WorkedExamples*", "--gtest_brief=1"],
                       env=environment, check=True, stdout=subprocess.DEVNULL)
        return [line.split("\t") for line in path.read_text(encoding="utf-8").splitlines()]


def by_code(rows):
    cases = {row[1]: (row[0], row[2]) for row in rows if row[0] != "derived"}
    lines = ["### By code", "",
             "| code | its own examples | of these from memory | with the same rules under another code or edition |",
             "|---|---|---|---|"]
    short = []
    for name, own, related in CODES:
        mine = [case for case, (_, code) in cases.items() if code in own]
        memory = [case for case in mine if cases[case][0] == "memory"]
        others = [case for case, (_, code) in cases.items() if code in related]
        if len(mine) < ENOUGH:
            short.append(f"{name} ({len(mine) or 'none'})")
        lines.append(f"| {name} | {len(mine)}: {', '.join(mine) or 'none'} | {len(memory)} | "
                     f"{', '.join(others) or 'none'} |")
    if short:
        lines += ["", f"**Fewer than {ENOUGH} examples of their own edition: " + ", ".join(short) +
                  ".** Besides what the last column lists, the comparison with closed forms has to do."]
    return lines


def by_group(rows):
    lines = []
    group = case = None
    for row_group, name, _, source, *numbers in rows:
        if row_group != group:
            lines += ["", f"### {HEADINGS[row_group]}", "",
                      "| case | quantity | published | here | deviation | allowed | source |",
                      "|---|---|---|---|---|---|---|"]
        first = name != case
        group, case = row_group, name
        cells = [name if first else "", *numbers, source if first else ""]
        lines.append("| " + " | ".join(cells) + " |")
    return lines


def number(value):
    return format(value, ".8g") if isinstance(value, float) else str(value)


def words(value):
    if isinstance(value, dict):
        return ", ".join(f"{k} {words(v)}" for k, v in value.items())
    if isinstance(value, list):
        return " ".join(words(v) for v in value)
    return number(value) if isinstance(value, (int, float)) else str(value)


def outline(part):
    text = f"`{part['mat']}`: "
    if "circle" in part:
        x, y, radius = part["circle"]
        text += f"circle about ({number(x)}, {number(y)}), radius {number(radius)}"
    else:
        text += "polygon " + " ".join(f"({number(x)}, {number(y)})" for x, y in part["polygon"])
    for hole in part.get("holes", []):
        text += "; hole " + words(hole)
    return text


def bars(case):
    rows = {}
    for bar in case.get("bars", []):
        key = (bar["y"], bar["area"], bar["mat"], bar.get("prestrain", 0))
        rows.setdefault(key, []).append(bar["x"])
    for (y, area, material, prestrain), places in rows.items():
        text = f"{len(places)} x {number(area)} of `{material}` at y {number(y)}, x {words(places)}"
        yield text + (f", prestrain {number(prestrain)}" if prestrain else "")


def inputs(cases):
    lines = ["# Inputs of the published examples", "",
             "All inputs of the examples in [verification](verification.md), as they stand in",
             "`model/vlsol/test/data/worked_examples.json`; written by `tools/verification_table.py`. x to the right, y up;",
             "compression positive. Lengths, areas and curvatures in mm or in; with mm forces in kN, moments in kNm, stresses in MPa, with in",
             "kip, kip-ft, ksi. Those quoted from memory have their inputs beside their source."]
    for case in cases:
        lines += ["", f"## {case['id']}", f"{case['code']}; {case['length']}; {case['source']}", ""]
        geometry = case.get("geometry", {})
        lines += ["- " + outline(part) for part in geometry.get("concrete", [])]
        if "ref" in geometry:
            lines.append("- reference point " + words(geometry["ref"]))
        lines += ["- " + row for row in bars(case)]
        lines += [f"- `{name}`: {words(material)}"
                  for name, material in case.get("materials", {}).items()]
        lines.append("- load: " + words(case["load"]))
        if "deductDisplacedConcrete" in case:
            kept = "" if case["deductDisplacedConcrete"] else "not "
            lines.append(f"- concrete displaced by bars: {kept}deducted")
        lines += [f"- {case['note']}"] if "note" in case else []
    return "\n".join(lines) + "\n"


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("test", help="the built vlsol_test")
    arguments = parser.parse_args()
    rows = comparisons(arguments.test)
    text = DOCUMENT.read_text(encoding="utf-8")
    before, rest = text.split(BEGIN)
    after = rest.split(END)[1]
    table = "\n".join(by_code(rows) + by_group(rows))
    DOCUMENT.write_text(before + BEGIN + "\n" + table + "\n\n" + END + after, encoding="utf-8")
    cases = json.loads(DATA.read_text(encoding="utf-8"))["cases"]
    INPUTS.write_text(inputs(cases), encoding="utf-8")


if __name__ == "__main__":
    main()

"""Runs velmo dxf on drawings.

usage: velmo_dxf_test.py PATH_OF_VELMO FOLDER

FOLDER holds drawings of other programs, NAME.dxf, each with NAME.expected.json.
"""

import json
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

FOLDER = pathlib.Path(sys.argv.pop(2))
VELMO = os.path.abspath(sys.argv.pop(1))

OUTLINE = "0 LWPOLYLINE 8 {layer} 70 1 10 0 20 0 10 300 20 0 10 300 20 500 10 0 20 500 "
BARS = "0 CIRCLE 8 REBAR 10 50 20 50 40 10 0 CIRCLE 8 REBAR 10 250 20 50 40 nan "
NOTHING = {"outer": {"vertices": [], "layer": "", "closed": False},
           "holes": [], "circularHoles": [], "rebars": []}


def drawing(entities):
    words = "0 SECTION 2 HEADER 9 $INSUNITS 70 4 0 ENDSEC 0 SECTION 2 ENTITIES " + entities
    return "\n".join((words + " 0 ENDSEC 0 EOF").split()).encode("latin-1")


class VelmoDxf(unittest.TestCase):
    def run_on(self, content, *options, exit_code):
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "a.dxf")
            if content is not None:
                pathlib.Path(path).write_bytes(content)
            done = subprocess.run([VELMO, "dxf", path, *options], capture_output=True, timeout=60)
        self.assertEqual(done.returncode, exit_code, done)
        return done.stdout.decode(), done.stderr.decode()

    def record_of(self, content, exit_code):
        out, err = self.run_on(content, "--json", exit_code=exit_code)
        self.assertEqual(err, "")
        return json.loads(out)

    def test_records_of_drawings_of_other_programs(self):
        drawings = sorted(FOLDER.glob("*.dxf"))
        self.assertGreaterEqual(len(drawings), 7)
        for path in drawings:
            with self.subTest(path.name):
                want = json.loads(path.with_suffix(".expected.json").read_text("utf-8"))
                got = self.record_of(path.read_bytes(), exit_code=0 if want["success"] else 1)
                self.assertEqual(got, want)

    def test_json_has_no_bytes_or_numbers_that_json_has_not(self):
        # a lone byte, a cut-off character, a valid one; a radius that is no number
        record = self.record_of(drawing(OUTLINE.format(layer="0") + BARS) +
                                b"\n", exit_code=0)
        self.assertEqual([c["radius"] for c in record["geometry"]["rebars"]], [10, None])
        record = self.record_of(drawing("0 \xff\xe2\x82\xc3\xa9\x01\"").replace(b"\n8\n", b"\n"), 1)
        self.assertEqual(record["diagnostics"][0]["entityType"], "\ufffd\ufffd\u00e9\x01\"")
        self.assertEqual(record["geometry"], NOTHING)

    def test_a_file_that_is_not_there_is_a_record_with_one_error(self):
        record = self.record_of(None, exit_code=2)
        self.assertEqual(record["sourceUnit"], -1)
        self.assertEqual([(d["severity"], d["message"][:16]) for d in record["diagnostics"]],
                         [(2, "File not found: ")])
        out, err = self.run_on(None, exit_code=2)
        self.assertEqual(out, "")
        self.assertIn("File not found: ", err)

    def test_people_are_told_what_was_found_and_what_to_change(self):
        out, err = self.run_on(drawing(OUTLINE.format(layer="OUTER") + BARS.replace("nan", "10") +
                                       "0 LINE 8 \x1b "), exit_code=0)
        self.assertEqual([line.split(None, 1)[1] for line in out.splitlines()[1:]],
                         ["4 vertices, 300 x 500 mm", "0 polygons, 0 circles", "2: 2 of 20 mm"])
        self.assertEqual(err, "warning: line 57: LINE on layer  : Unsupported entity type 'LINE' "
                              "ignored. Consider using only supported entity types.\n")
        out, err = self.run_on(drawing("0 LINE " * 100), exit_code=1)
        self.assertEqual(out, "")
        lines = err.splitlines()
        self.assertTrue(lines[0].startswith("error: layer OUTER: No OUTER"), lines[0])
        self.assertEqual(lines[-1], "and 61 more; --all shows them")
        self.assertEqual(len(self.run_on(drawing("0 LINE " * 100), "--all", exit_code=1)[1]
                             .splitlines()), 101)

    def test_a_section_goes_into_a_document_or_the_document_stays(self):
        outline = OUTLINE.format(layer="0")
        crossing = outline.replace("300 20 500 10 0", "0 20 500 10 300")
        bars = BARS.replace("nan", "10") + "0 CIRCLE 8 REBAR 10 150 20 495 40 8 "
        with tempfile.TemporaryDirectory() as folder:
            document = pathlib.Path(folder, "d.json")
            path = pathlib.Path(folder, "pier.dxf")

            def velmo(*words):
                done = subprocess.run([VELMO, *map(str, words)], capture_output=True, timeout=60)
                return done.returncode, done.stdout.decode(), done.stderr.decode()

            path.write_bytes(drawing(outline + bars))
            code, out, err = velmo("dxf", path, "--into", document)
            self.assertEqual((code, err),
                             (0, "warning: Component 1, bar 3 reaches out of the section.\n"))
            self.assertIn('section 1 "pier" added', out)
            path.write_bytes(drawing(outline + bars.replace("495", "450")))
            self.assertEqual(velmo("dxf", path, "--into", document, "--name", "b")[::2], (0, ""))
            velmo("task", "replace", document, "--section", 2, "--task", 1, "--case", "-1e6,1e4,0")
            self.assertEqual(velmo("solve", document, "--section", 2, "--strict")[0], 0)

            saved = document.read_bytes()
            for entities, options, want in (
                    (bars, (), (1, "No OUTER boundary")),
                    (crossing, (), (1, "make no section")),
                    (outline, ("--grade", "C1/2"), (2, "is not known")),
                    (outline, ("--code", "ACI 318-19"), (2, "its code is"))):
                with self.subTest(want=want):
                    path.write_bytes(drawing(entities))
                    code, _, err = velmo("dxf", path, "--into", document, *options)
                    self.assertEqual(code, want[0])
                    self.assertIn(want[1], err)
                    self.assertEqual(document.read_bytes(), saved)


if __name__ == "__main__":
    unittest.main()

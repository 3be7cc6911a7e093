#!/usr/bin/env python3
"""Lists design codes with velmo and solves a column under each.

usage: velmo_codes_test.py VELMO
"""

import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

VELMO = os.path.abspath(sys.argv.pop(1))


class Codes(unittest.TestCase):
    def run_velmo(self, *arguments, status=0):
        result = subprocess.run([VELMO, *arguments], capture_output=True, text=True, timeout=60)
        self.assertEqual(result.returncode, status, result.stdout + result.stderr)
        return result

    def codes(self):
        return json.loads(self.run_velmo("codes", "--json").stdout)["codes"]

    def test_every_code_shows_itself_and_makes_a_column_that_is_solved(self):
        self.assertGreater(len(self.codes()), 8)
        for code in self.codes():
            name = code["concrete"]
            chosen = ["--annex", code["annex"]] if "annex" in code else []
            with self.subTest(code=name, annex=chosen), tempfile.TemporaryDirectory() as folder:
                shown = json.loads(self.run_velmo("codes", name, *chosen, "--json").stdout)
                self.assertEqual(len(shown["constants"]), code["constants"])
                for source in ("compared", "doubtful"):
                    counted = [c for c in shown["constants"] if c["source"] == source]
                    self.assertEqual(len(counted), code[source])
                self.assertIn(name, self.run_velmo("codes").stdout)
                document = os.path.join(folder, "column.json")
                self.run_velmo("new", document, "--template", "rectangle", "--code", name, *chosen)
                self.run_velmo("validate", document)
                self.run_velmo("solve", document)

    def test_curves_turn_where_the_design_values_say(self):
        shown = json.loads(self.run_velmo("codes", "EN 1992-1-1:2004", "--grade", "C30/37",
                                          "--json").stdout)
        uls = shown["curves"][0]["uls"]
        self.assertEqual(uls[-1], [0.0035, 20e6])
        self.assertIn([0.002, 20e6], uls)
        self.assertEqual(uls, sorted(uls))
        text = self.run_velmo("codes", "ACI 318-19", "--grade", "Grade 60").stdout
        self.assertIn("Grade 60 at ULS", text)

    def test_an_annex_file_is_printed_and_goes_into_documents_with_its_grades(self):
        page = pathlib.Path(__file__).resolve().parents[2] / "docs" / "national-annex.md"
        text = page.read_text(encoding="utf-8").split("```json")[1].split("```")[0]
        with tempfile.TemporaryDirectory() as folder:
            file, made, changed = (os.path.join(folder, n) for n in ("a.json", "b.json", "c.json"))
            pathlib.Path(file).write_text(text, encoding="utf-8")
            shown = self.run_velmo("codes", "EN 1992-1-1:2004", "--annex", file).stdout
            self.assertIn("Office manual, 4.2", shown)
            self.run_velmo("new", made, "--template", "rectangle", "--annex", file)
            self.run_velmo("new", changed, "--template", "rectangle")
            said = self.run_velmo("set", changed, "--annex", file).stdout
            self.assertIn("concrete, takes the new code's values: C12/15, ", said)
            self.assertNotIn("reinforcement", said)  # gamma_s is what it was
            os.remove(file)
            documents = [json.loads(pathlib.Path(d).read_text(encoding="utf-8"))
                         for d in (made, changed)]
            for part in ("codes", "materials", "sections"):
                self.assertEqual(documents[0][part], documents[1][part])
            self.run_velmo("validate", made)
            said = self.run_velmo("set", made, "--code", "BS 8110-1:1997").stdout
            self.assertRegex(said, r"does not know it; .*: C30/37 \(alpha \S+, gamma \S+\)")

    def test_grades_that_stay_are_named_with_their_factors_wherever_they_count(self):
        examples = pathlib.Path(__file__).parents[2] / "examples"
        with tempfile.TemporaryDirectory() as folder:
            document = os.path.join(folder, "pier.json")
            shutil.copy(examples / "circular-pier.json", document)
            foreign = 'reinforcement "Grade 60": alpha 1, gamma 1; the grades of EN 1992-1-1:2004'
            for command in ("solve", "check"):
                self.assertNotIn("actors not of the code", self.run_velmo(command, document).stdout)
            self.run_velmo("set", document, "--code", "EN 1992-1-1:2004")
            for command in ("solve", "check"):  # ACI's nominal strengths under partial factors
                self.assertIn(foreign, self.run_velmo(command, document).stdout)

    def test_what_is_not_known_is_said_with_what_is(self):
        self.assertIn("ACI 318-19", self.run_velmo("codes", "ACI", status=2).stderr)
        self.assertIn("C30/37", self.run_velmo("codes", "EN 1992-1-1:2004", "--grade", "C31",
                                               status=2).stderr)
        self.run_velmo("codes", "--grade", "C30/37", status=2)


if __name__ == "__main__":
    unittest.main()

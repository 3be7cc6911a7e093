#!/usr/bin/env python3
"""Runs the commands of velmo that edit a document.

usage: velmo_edit_test.py VELMO
"""

import json
import os
import subprocess
import sys
import tempfile
import unittest

VELMO = os.path.abspath(sys.argv.pop(1))


class Editing(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.run_velmo("new", "column.json", "--template", "rectangle")

    def run_velmo(self, *arguments, status=0, text=None):
        result = subprocess.run([VELMO, *arguments], cwd=self.folder, capture_output=True,
                                input=text, text=True, timeout=60)
        self.assertEqual(result.returncode, status, result.stdout + result.stderr)
        return result

    def document(self):
        with open(os.path.join(self.folder, "column.json"), encoding="utf-8") as file:
            return json.load(file)

    def test_the_examples_of_the_help_work(self):
        for command in ["set", "section", "task"]:
            shown = self.run_velmo(command, "--help").stdout.replace("\\\n", " ")
            examples = [line for line in shown.splitlines()
                        if line.startswith("  ") and " column.json" in line]
            self.assertGreater(len(examples), 2)
            for example in examples:
                with self.subTest(example=example):
                    line = example.replace("velmo ", f"'{VELMO}' ", 1)
                    subprocess.run(line, shell=True, cwd=self.folder, check=True, timeout=60,
                                   capture_output=True)
                    self.run_velmo("validate", "column.json")  # by the schema, too

    def test_what_is_not_understood_changes_nothing(self):
        before = self.document()
        cases = [
            (["set", "--grade", "-"], {"type": "concrete", "name": "C30/37", "gama": 1}, "gama"),
            (["section", "add", "-"], {"components": [{"material": "wood"}]}, "components[1].material"),
            (["section", "replace", "-", "--section", "1"], {"tasks": 3}, "section.tasks"),
            (["task", "add", "-", "--section", "1"], {"cases": [{"N": "much"}]}, "task.cases[1].N"),
            (["task", "replace", "-", "--section", "1", "--task", "1"], [], "found an array"),
        ]
        for arguments, value, message in cases:
            with self.subTest(arguments=arguments):
                at = 1 if arguments[0] == "set" else 2
                line = arguments[:at] + ["column.json"] + arguments[at:]
                result = self.run_velmo(*line, status=2, text=json.dumps(value))
                self.assertIn(message, result.stderr)
        self.run_velmo("task", "delete", "column.json", "--section", "1", "--task", "9", status=2)
        self.run_velmo("set", "column.json", status=2)
        self.assertEqual(self.document(), before)

    def test_writing_loses_nothing(self):
        path = os.path.join(self.folder, "column.json")
        broken = self.document()
        broken["sections"][0]["tasks"][0]["cases"][0]["N"] = "much"
        older = os.path.join(os.path.dirname(__file__), "../../examples/deck-strip.velmo")
        with open(older, encoding="utf-8") as file:
            contents = [(json.dumps(broken), "not understood"), (file.read(), "velmo convert")]
        for content, message in contents:
            with open(path, "w", encoding="utf-8") as file:
                file.write(content)
            for line in [["set", "column.json", "--title", "x"],
                         ["section", "delete", "column.json", "--section", "1"],
                         ["task", "add", "column.json", "--section", "1"]]:
                with self.subTest(line=line, message=message):
                    self.assertIn(message, self.run_velmo(*line, status=2).stderr)
                    with open(path, encoding="utf-8") as file:
                        self.assertEqual(file.read(), content)
        with open(path, "w", encoding="utf-8") as file:
            json.dump(broken, file)
        self.run_velmo("check", "column.json", status=1)

    def test_another_unit_moves_no_bar(self):
        document = self.document()
        document["sections"][0]["components"][0]["barDescriptions"] = [
            {"text": "4B20 bottom cover 40", "grade": "B500B"},
            {"text": "2B16 line (-100, 190) (100, 190)", "grade": "B500B"}]
        with open(os.path.join(self.folder, "column.json"), "w", encoding="utf-8") as file:
            json.dump(document, file)
        before = self.run_velmo("solve", "column.json", "--json").stdout
        self.run_velmo("set", "column.json", "--units", "sectionDims=in")
        self.assertEqual(self.run_velmo("solve", "column.json", "--json").stdout, before)

    def test_references_follow_their_task(self):
        for options in [[], [], ["--preload", "2,1"]]:
            self.run_velmo("task", "add", "column.json", "--section", "1", "--name", "t",
                           "--case", "q=-100kN,20 kNm,0", *options)
        self.assertEqual(self.document()["sections"][0]["tasks"][-1]["cases"],
                         [{"name": "q", "N": -1e5, "Myy": 2e4, "Mzz": 0.0}])
        delete = ["task", "delete", "column.json", "--section", "1", "--task"]
        self.run_velmo(*delete, "1")
        self.assertEqual(self.document()["sections"][0]["tasks"][2]["preload"]["task"], 1)
        self.assertIn("task 0", self.run_velmo(*delete, "1").stderr)
        self.assertIn("Task 0 is not a valid task",
                      self.run_velmo("check", "column.json", status=1).stdout)
        self.run_velmo("task", "replace", "column.json", "--section", "1", "--task", "2",
                       "--preload", "none", "--name", "")
        compare = ["task", "compare", "column.json", "--section", "1", "--task", "1", "--with", "2"]
        self.run_velmo(*compare)
        self.assertIn("name", self.run_velmo(*compare, "--names", status=1).stdout)

    def test_show_prints_properties_by_hand(self):
        section = {"components": [{"material": "concrete", "grade": "C30/37", "geometry":
                   {"shape": "rectangle", "width": 0.2, "depth": 0.6}}],
                   "tasks": [{"creep": 1}]}
        self.run_velmo("section", "replace", "column.json", "-", "--section", "1",
                       text=json.dumps(section))
        shown = self.run_velmo("show", "column.json").stdout
        self.assertRegex(shown, r"gross +120000 +0 +0 +3.6e\+?09 +4e\+?08 ")
        self.assertRegex(shown, r"1 +long +16418.3 +120000 +0 +0 ")  # half of E, C30/37


if __name__ == "__main__":
    unittest.main()

"""Runs `velmo curve` and `velmo clipboard` as their users do.

usage: velmo_exchange_test.py PATH_OF_VELMO
"""

import csv
import io
import json
import os
import re
import shlex
import shutil
import subprocess
import sys
import tempfile
import unittest

VELMO = os.path.abspath(sys.argv.pop(1))
TABLE = ["clipboard", "column.json", "--section", "1", "--task", "1"]
CONCRETE = ["--type", "concrete", "--grade", "C30/37", "--state", "uls", "--sign", "compression"]


def missing(*programs):
    return [p for p in programs if shutil.which(p) is None]


class Exchange(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.environment = {"PATH": os.environ["PATH"]}
        self.run_velmo("new", "column.json", "--template", "rectangle")

    def run_velmo(self, *arguments, exit_code=0, text=None):
        done = subprocess.run([VELMO, *arguments], cwd=self.folder, capture_output=True, text=True,
                              env=self.environment, input=text, timeout=60)
        self.assertEqual(done.returncode, exit_code, done.stdout + done.stderr)
        return done

    def path(self, name):
        return os.path.join(self.folder, name)

    def test_a_curve_by_points_solves_as_its_closed_form(self):
        with open(self.path("column.json")) as file:
            document = json.load(file)
        grade = next(m for m in document["materials"]["concrete"] if m["name"] == "C30/37")
        grade["uls"]["compression"] = {"curve": "bilinear", "eps_peak": 0.00175, "eps_limit": 0.0035}
        with open(self.path("closed.json"), "w") as file:
            json.dump(document, file)
        want = self.run_velmo("solve", "closed.json").stdout
        points = "strain;stress\n0;0\n1.75;20\n3.5;20\n"
        with open(self.path("curve.txt"), "w") as file:
            file.write(points.replace("\n", "\r\n"))
        for arguments, text in ([["curve.txt"], None], [["-"], points], [[], points]):
            self.run_velmo("new", "column.json", "--template", "rectangle", "--force")
            self.assertNotEqual(self.run_velmo("solve", "column.json").stdout, want)
            self.run_velmo("curve", "column.json", *arguments, *CONCRETE, text=text)
            self.assertEqual(self.run_velmo("solve", "column.json").stdout, want)

    def test_the_examples_of_the_help_work(self):
        for command in ("curve", "clipboard"):
            text = self.run_velmo(command, "--help").stdout.replace("\\\n", "")
            examples = re.findall(r"(?m)^  (?:printf .* \| )?velmo \w+ column.*$", text)
            self.assertEqual(len(examples), 2)
            for example in examples:
                done = subprocess.run(["bash", "-c", f"velmo() {{ {shlex.quote(VELMO)} \"$@\"; }}; {example}"],
                                      cwd=self.folder, env=self.environment, capture_output=True)
                self.assertEqual(done.returncode, 0, done.stderr)

    def test_without_a_clipboard_the_text_is_printed(self):
        want = self.run_velmo(*TABLE, "--print").stdout
        self.environment["PATH"] = self.folder
        done = self.run_velmo(*TABLE)
        self.assertEqual(done.stdout, want)
        self.assertIn("printed instead", done.stderr)

    @unittest.skipIf(missing("Xvfb", "xclip"), "needs Xvfb and xclip")
    def test_the_desktops_clipboard_has_the_table(self):
        reading, writing = os.pipe()
        server = subprocess.Popen(["Xvfb", "-displayfd", str(writing)], pass_fds=[writing],
                                  stderr=subprocess.DEVNULL)
        self.addCleanup(lambda: (server.terminate(), server.wait()))
        os.close(writing)
        with os.fdopen(reading) as file:
            self.environment["DISPLAY"] = ":" + file.readline().strip()
        os.symlink(shutil.which("xclip"), self.path("xclip"))
        want = self.run_velmo(*TABLE, "--print").stdout
        path, self.environment["PATH"] = self.environment["PATH"], self.folder
        self.assertEqual(self.run_velmo(*TABLE).stdout, "")
        self.environment["PATH"] = path
        pasted = subprocess.run(["xclip", "-out", "-selection", "clipboard"], env=self.environment,
                                capture_output=True, timeout=60).stdout.decode()
        self.assertEqual(pasted, want)
        rows = list(csv.DictReader(io.StringIO(pasted), delimiter="\t"))
        self.assertEqual((rows[0]["N"], rows[1]["N"], rows[1]["ULS status"]), ("kN", "-1500", "carried"))


if __name__ == "__main__":
    unittest.main()

"""Pictures of the program: formats by ending, errors that leave no file. usage: velmo_plot_test.py VELMO"""

import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

VELMO = sys.argv.pop(1)
EXAMPLES = Path(__file__).resolve().parents[2] / "examples"
MAGIC = {".svg": b"<?xml", ".pdf": b"%PDF-", ".PNG": b"\x89PNG"}


def velmo(*arguments):
    return subprocess.run([VELMO, *map(str, arguments)], capture_output=True, text=True, check=False)


class Plot(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.out = Path(self.folder.name)

    def test_every_ending_gives_its_format(self):
        beam = EXAMPLES / "beam.json"
        for command in (["plot", beam, "--section", 1], ["diagram", "nm", beam, "--section", 1],
                        ["plot", beam, "--section", 1, "--task", 1, "--case", 7, "--state", "failure"]):
            if command[0] == "diagram":
                command += ["--task", 1]
            for ending, magic in MAGIC.items():
                path = self.out / f"picture{ending}"
                done = velmo(*command, "-o", path, "--width", 500)
                self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))
                self.assertTrue(path.read_bytes().startswith(magic))

    def test_errors_say_what_to_do_and_leave_nothing(self):
        case = ["plot", EXAMPLES / "beam.json", "--section", 1, "--task", 1, "--case", 3]
        for arguments, text in (
                ([*case, "-o", self.out / "a.bmp"], "known are .svg, .pdf, .png"),
                ([*case, "-o", self.out / "none" / "a.svg"], "none"),
                ([*case, "-o", self.out / "a.svg", "--state", "cracked"], "serviceability"),
                ([*case, "-o", self.out / "a.png", "--width", 100000], "8000"),
                ([*case[:-1], 99, "-o", self.out / "a.svg"], "case"),
                (["diagram", "mm", *case[1:-2], "-o", self.out / "a.bmp"], ".csv, .json, .svg, .pdf, .png"),
        ):
            done = velmo(*arguments)
            self.assertEqual(done.returncode, 2, arguments)
            self.assertIn(text, done.stderr)
            self.assertEqual(os.listdir(self.out), [])


if __name__ == "__main__":
    unittest.main()

"""Runs `velmo report` as its users do, and opens its file in LibreOffice where that is installed.

usage: velmo_report_test.py PATH_OF_VELMO
"""

import csv
import json
import os
import pathlib
import resource
import shutil
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree
import zipfile

VELMO = os.path.abspath(sys.argv.pop(1))
SHEET = "{http://schemas.openxmlformats.org/spreadsheetml/2006/main}"


class Report(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.run_velmo("new", "a.json", "--template", "rectangle")
        document = json.loads(self.read("a.json"))
        document["sections"][0]["tasks"][0].update(sls=True)
        pathlib.Path(self.path("a.json")).write_text(json.dumps(document))

    def path(self, name):
        return os.path.join(self.folder, name)

    def read(self, name):
        return pathlib.Path(self.path(name)).read_text(encoding="utf-8")

    def run_velmo(self, *arguments, exit_code=0, **options):
        done = subprocess.run([VELMO, *arguments], cwd=self.folder, capture_output=True,
                              encoding="utf-8", timeout=60, **options)
        self.assertEqual(done.returncode, exit_code, done.stdout + done.stderr)
        return done

    def test_file_and_standard_output_are_alike(self):
        self.run_velmo("report", "a.json", "--cases", "2,1", "-o", "r.csv",
                       env={**os.environ, "LC_ALL": "C"})
        text = self.read("r.csv")
        self.assertIn("Area,m²\n", text)
        self.assertLess(text.index("\n1,1,2,"), text.index("\n1,1,1,"))
        self.assertEqual(text, self.run_velmo("report", "a.json", "--cases", "2,1").stdout)
        self.assertNotIn("Applied Deformations", text)
        two = self.run_velmo("report", "a.json", "--outputs", "sls.stiffness,uls.failureLoad")
        self.assertEqual([line[:8] for line in two.stdout.splitlines() if "LS - " in line],
                         ["ULS - Lo", "SLS - St"])

    def test_what_cannot_be_reported(self):
        for arguments, text in [
                (["--outputs", "star"], "star"),
                (["--outputs", "uls.responseLoad"], "the task's cases are loads"),
                (["--task", "1-2"], "task 2"),
                (["--cases", "9"], "1 to 4"),
                (["-o", "r.pdf"], ".html, .htm, .csv"),
                (["-o", "report"], ".html, .htm, .csv"),
                (["-o", "a.json"], "document itself"),
                (["-o", "no/r.csv"], "no/r.csv"),
                (["-o", "/dev/full"], "disk full")]:
            with self.subTest(arguments):
                done = self.run_velmo("report", "a.json", *arguments, exit_code=2)
                self.assertIn(text, done.stderr)
        self.assertEqual(os.listdir(self.folder), ["a.json"])

    def test_full_disk_leaves_the_old_file(self):
        pathlib.Path(self.path("r.csv")).write_text("old")
        done = self.run_velmo(
            "report", "a.json", "-o", "r.csv", exit_code=2, restore_signals=False,
            preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (2000, 2000)))
        self.assertIn("disk full", done.stderr)
        self.assertEqual(self.read("r.csv"), "old")
        self.assertEqual(sorted(os.listdir(self.folder)), ["a.json", "r.csv"])

    @unittest.skipUnless(shutil.which("soffice"), "soffice is not installed")
    def test_spreadsheet_has_the_rows_and_columns_of_the_report(self):
        self.run_velmo("report", "a.json", "-o", "r.csv")
        rows = list(csv.reader(self.read("r.csv").splitlines()))
        self.assertGreater(len(rows), 100)
        for kind in ["xlsx", "csv"]:  # 44, 34, 76: comma, quote, UTF-8
            subprocess.run(["soffice", "-env:UserInstallation=file://" + self.path("profile"),
                            "--headless", "--infilter=CSV:44,34,76,1", "--convert-to", kind,
                            "--outdir", self.path("out"), "r.csv"],
                           cwd=self.folder, check=True, capture_output=True, timeout=300)
        with zipfile.ZipFile(self.path("out/r.xlsx")) as book:
            sheet = xml.etree.ElementTree.fromstring(book.read("xl/worksheets/sheet1.xml"))
        found = [row.findall(SHEET + "c") for row in sheet.iter(SHEET + "row")]
        self.assertEqual([len(cells) for cells in found], [len(row) for row in rows])
        for row, cells in zip(rows, found):
            for text, cell in zip(row, cells):
                is_number = text.lstrip("-")[:1].isdigit()
                self.assertEqual(cell.get("t") != "s", is_number, text)
                if is_number:
                    self.assertEqual(float(cell.find(SHEET + "v").text), float(text))
        sizes = [len(row) for row in csv.reader(self.read("out/r.csv").splitlines())]
        self.assertEqual(sizes, [max(map(len, rows))] * len(rows))  # rows as wide as the sheet


if __name__ == "__main__":
    unittest.main()

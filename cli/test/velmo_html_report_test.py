#!/usr/bin/env python3
"""Makes pages by `velmo report -o x.html`, reads them, and opens them in Chromium where it is there.

usage: velmo_html_report_test.py VELMO EXAMPLES
"""

import html.parser
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

VELMO = os.path.abspath(sys.argv.pop(1))
EXAMPLES = pathlib.Path(sys.argv.pop(1)).resolve()
BROWSER = next((path for name in ["chromium", "chromium-browser", "google-chrome"]
                if (path := shutil.which(name))), None)
VOID = {"meta", "br", "link", "img", "hr", "input"}


class Page(html.parser.HTMLParser):
    """Text, tables and ids of a page; fails on tags that are not closed as they were opened."""

    def __init__(self, source):
        super().__init__()
        self.open, self.text, self.ids, self.references, self.tags = [], "", [], [], set()
        self.rows = []
        self.feed(source)
        self.close()
        assert not self.open, self.open

    def handle_starttag(self, tag, attributes):
        self.tags.add(tag)
        for name, value in attributes:
            if name == "id":
                self.ids.append(value)
            if name in ("href", "xlink:href", "src"):
                self.references.append(value)
        if tag not in VOID:
            self.open.append(tag)
        if tag == "tr":
            self.rows.append([])
        if tag in ("td", "th") and self.rows:
            self.rows[-1].append("")

    def handle_startendtag(self, tag, attributes):
        self.handle_starttag(tag, attributes)
        if tag not in VOID:
            self.open.pop()

    def handle_endtag(self, tag):
        assert self.open.pop() == tag, tag

    def handle_data(self, data):
        self.text += data
        if self.open and self.open[-1] in ("td", "th", "span") and self.rows and self.rows[-1]:
            self.rows[-1][-1] += data


class HtmlReport(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def run_velmo(self, *arguments, status=0):
        done = subprocess.run([VELMO, *map(str, arguments)], cwd=self.folder, capture_output=True,
                              text=True, timeout=120)
        self.assertEqual(done.returncode, status, done.stdout + done.stderr)
        return done

    def page(self, document, *arguments):
        path = self.folder / "r.html"
        self.run_velmo("report", document, *arguments, "-o", path)
        return Page(path.read_text(encoding="utf-8"))

    def changed(self, example, change):
        document = json.loads((EXAMPLES / example).read_text(encoding="utf-8"))
        change(document)
        path = self.folder / "changed.json"
        path.write_text(json.dumps(document))
        return path

    def test_every_task_of_the_examples_has_a_page_that_stands_alone(self):
        for example in sorted(EXAMPLES.glob("*.json")):
            sections = json.loads(example.read_text(encoding="utf-8"))["sections"]
            for i, section in enumerate(sections, 1):
                for j, task in enumerate(section["tasks"], 1):
                    with self.subTest(example=example.name, section=i, task=j):
                        page = self.page(example, "--section", i, "--task", j)
                        self.assertNotIn("script", page.tags)
                        self.assertEqual([r for r in page.references if not r.startswith("#")], [])
                        self.assertEqual(len(page.ids), len(set(page.ids)))
                        self.assertLessEqual({r[1:] for r in page.references}, set(page.ids))
                        for part in ["Checks before the solution", "Governing cases", "Inputs",
                                     "How to read the numbers", "Tension"]:
                            self.assertIn(part.lower(), page.text.lower())
                        for case in task["cases"]:
                            self.assertIn(case.get("name", ""), page.text)

    def test_numbers_are_those_of_the_solution(self):
        column = EXAMPLES / "column.json"
        solved = json.loads(self.run_velmo("solve", column, "--section", 1, "--task", 1,
                                           "--json").stdout)
        page = self.page(column, "--task", "1")
        utilisations = [case["utilisation"] for case in solved["results"]]
        start = page.rows.index(next(r for r in page.rows if "Utilisation" in r and
                                     not any("failure" in cell for cell in r)))
        at = page.rows[start].index("Utilisation")
        for row, utilisation in zip(page.rows[start + 1:], utilisations):
            self.assertAlmostEqual(float(row[at]), utilisation, delta=5.1e-4)

    def test_texts_of_the_user_are_texts(self):
        evil = "<script>alert('x')</script> & \"quotes\" \u202e \x07"

        def change(document):
            document["titles"] = {"project": evil, "part": evil}
            document["materials"]["concrete"][0]["name"] = evil
            section = document["sections"][0]
            section["name"] = section["tasks"][0]["name"] = evil
            section["tasks"][0]["cases"][0]["name"] = evil
            component = section["components"][0]
            component["name"] = component["geometry"]["description"] = evil
            component["grade"] = evil
        page = self.page(self.changed("column.json", change), "--task", "1")
        self.assertNotIn("script", page.tags)
        self.assertGreaterEqual(page.text.count("<script>alert('x')</script> & \"quotes\""), 6)

    def test_many_cases_the_worst_are_listed_and_the_page_says_so(self):
        def change(document):
            task = document["sections"][0]["tasks"][0]
            task["cases"] = [{"N": -1000.0 * i} for i in range(300)]
        page = self.page(self.changed("column.json", change), "--task", "1", "--rows", "20")
        self.assertIn("the worst 20 of 300 cases", page.text)
        self.assertLess(len(page.rows), 200)

    def test_what_cannot_be_reported(self):
        broken = self.changed("column.json",
                              lambda d: d["sections"][0]["components"][0].pop("grade"))
        self.run_velmo("report", broken, "--task", "1", "-o", "r.html", status=1)
        self.assertFalse((self.folder / "r.html").exists())
        for arguments in [["--cases", "1", "-o", "r.html"], ["--rows", "3", "-o", "r.csv"]]:
            self.run_velmo("report", EXAMPLES / "column.json", "--task", "1", *arguments, status=2)

    def test_a_browser_shows_and_prints_it(self):
        if BROWSER is None:
            self.skipTest("no Chromium here")
        path = self.folder / "r.html"
        self.run_velmo("report", EXAMPLES / "beam.json", "--section", 1, "--task", 1, "-o", path)
        browse = [BROWSER, "--headless", "--no-sandbox", "--disable-gpu", "--virtual-time-budget=2000",
                  f"--user-data-dir={self.folder / 'profile'}"]
        done = subprocess.run([*browse, "--dump-dom", path.as_uri()], capture_output=True, text=True,
                              timeout=120)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertIn("How to read the numbers", done.stdout)
        subprocess.run([*browse, "--no-pdf-header-footer", f"--print-to-pdf={path}.pdf",
                        path.as_uri()], capture_output=True, check=True, timeout=120)
        printed = pathlib.Path(f"{path}.pdf").read_bytes()
        self.assertTrue(printed.startswith(b"%PDF"))
        # A4: text upright, drawings lying.
        self.assertTrue(any(size in printed for size in [b"[0 0 594.95996 841.91998]",
                                                         b"[0 0 595 842]", b"[0 0 594.96"]))


if __name__ == "__main__":
    unittest.main()

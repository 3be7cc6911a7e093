"""Runs the program velmo as its users do.

usage: velmo_program_test.py PATH_OF_VELMO
"""

import json
import os
import shlex
import signal
import subprocess
import sys
import tempfile
import unittest

VELMO = os.path.abspath(sys.argv.pop(1))


class Velmo(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name

    def run_velmo(self, *arguments, exit_code=0):
        done = subprocess.run([VELMO, *arguments], cwd=self.folder, capture_output=True, text=True,
                              timeout=60)
        self.assertEqual(done.returncode, exit_code, done.stdout + done.stderr)
        if exit_code == 2:
            self.assertEqual(done.stdout, "")
            self.assertNotEqual(done.stderr, "")
        self.assertNotIn("nan", (done.stdout + done.stderr).lower())
        return done

    def write(self, name, content):
        with open(os.path.join(self.folder, name), "wb") as file:
            file.write(content)

    def new(self, template, *options):
        self.run_velmo("new", "a.json", "--template", template, *options)

    def change(self, edit):
        with open(os.path.join(self.folder, "a.json")) as file:
            document = json.load(file)
        edit(document)
        self.write("a.json", json.dumps(document).encode())

    def change_task(self, **members):
        self.change(lambda d: d["sections"][0]["tasks"][0].update(members))

    def test_examples_of_the_help_work(self):
        examples = 0
        for command in [[], ["new"], ["show"], ["validate"], ["check"], ["solve"], ["report"]]:
            for line in self.run_velmo(*command, "--help").stdout.splitlines():
                words = shlex.split(line) if line.startswith("  velmo ") else []
                if not words:
                    continue
                if words[1] == "new":
                    words.append("--force")
                self.run_velmo(*words[1:])
                examples += 1
        self.assertGreaterEqual(examples, 9)
        with open(os.path.join(self.folder, "results.json")) as file:
            self.assertEqual([r["iCase"] for r in json.load(file)["results"]], [0, 1, 3])

    def test_every_template_is_carried_and_reads_back_clean(self):
        for name in ["rectangle", "circle", "box", "beam"]:
            self.run_velmo("new", name + ".json", "--template", name)
            self.run_velmo("validate", name + ".json")
            self.run_velmo("solve", name + ".json", "--strict")

    def test_new_keeps_what_is_there(self):
        self.write("a.json", b"mine")
        self.assertIn("--force", self.run_velmo("new", "a.json", exit_code=2).stderr)
        with open(os.path.join(self.folder, "a.json"), "rb") as file:
            self.assertEqual(file.read(), b"mine")
        self.run_velmo("new", "a.json", "--force")
        self.run_velmo("validate", "a.json")
        self.assertEqual(os.listdir(self.folder), ["a.json"])

    def test_bad_usage(self):
        self.new("rectangle")
        for arguments, text in [
                ([], "subcommand"),
                (["solve"], "DOC"),
                (["new", "b.json", "--template", "star"], "star"),
                (["new", "b.json", "--code", "XY"], "EN 1992-1-1:2004"),
                (["new", "b.json", "--units", "force=stone"], "stone"),
                (["new", "b.json", "--units", "kN"], "force=kN"),
                (["new", "b.json", "--template", "box", "--concrete", "C1"], "C30/37"),
                (["new", "no/b.json"], "no/b.json"),
                (["solve", "a.json", "--cases", "1-9"], "1 to 4"),
                (["solve", "a.json", "--cases", "1,x"], "1-20,25"),
                (["solve", "a.json", "--section", "2"], "section 2"),
                (["solve", "a.json", "--task", "0"], "task 0"),
                (["solve", "a.json", "--section", "-1"], "section -1"),
                *[(["solve", "a.json", option, ""], option + ": the value is empty")
                  for option in ["--section", "--task", "--cases", "--case", "--output"]],
                *[([command, ""], "empty") for command in ["new", "show", "validate", "solve"]],
                (["new", "b.json", "--code", ""], "empty"),
                (["solve", "a.json", "--json", "--details"], "--json"),
                (["solve", "a.json", "-o", "."], "directory"),
                (["solve", "a.json", "-o", "./a.json"], "document itself"),
                (["solve", "a.json", "-o", "no/out.txt"], "no/out.txt")]:
            with self.subTest(arguments):
                self.assertIn(text, self.run_velmo(*arguments, exit_code=2).stderr)
        self.assertEqual(os.listdir(self.folder), ["a.json"])

    def test_checks_solve_the_earlier_stages_first(self):
        repository = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
        with open(os.path.join(repository, "examples", "staged-composite-beam.json"), "rb") as file:
            self.write("a.json", file.read())
        self.assertIn("1 section, 4 tasks", self.run_velmo("check", "a.json").stdout)
        self.run_velmo("check", "a.json", "--task", "2")
        alone = self.run_velmo("solve", "a.json", "--task", "2").stdout
        self.assertIn(alone, self.run_velmo("solve", "a.json").stdout)

        def spoil(document):
            tasks = document["sections"][0]["tasks"]
            tasks[0]["components"] = []
            tasks[3]["preload"]["case"] = 9
        self.change(spoil)
        empty = "Error from task 1: There are no active components to solve\n"
        later = ("Error from task 4: Case 9 is not available from the given task for component "
                 "preload\n")
        self.assertEqual(
            self.run_velmo("check", "a.json", exit_code=1).stdout,
            empty + "Error from task 2: Task 2 is not a valid because it doesn't share active "
            "components with the reference task 1 for component preload\n" + later)
        self.assertEqual(self.run_velmo("check", "a.json", "--task", "4", exit_code=1).stdout, later)
        refused = self.run_velmo("solve", "a.json", "--task", "2", exit_code=1)
        self.assertIn("section 1, task 2: " + empty, refused.stderr)
        self.assertEqual(refused.stdout, "")

    def test_output_keeps_what_the_target_is(self):
        self.new("rectangle")
        self.write("out.txt", b"old")
        os.chmod(os.path.join(self.folder, "out.txt"), 0o640)
        os.symlink("out.txt", os.path.join(self.folder, "link.txt"))
        os.symlink("/dev/null", os.path.join(self.folder, "null.txt"))
        for name in ["link.txt", "null.txt"]:
            self.run_velmo("solve", "a.json", "-o", name)
            self.assertTrue(os.path.islink(os.path.join(self.folder, name)))
        written = os.stat(os.path.join(self.folder, "out.txt"))
        self.assertEqual(written.st_mode & 0o777, 0o640)
        self.assertGreater(written.st_size, 100)
        self.assertEqual(sorted(os.listdir(self.folder)),
                         ["a.json", "link.txt", "null.txt", "out.txt"])

    def test_files_that_are_no_documents(self):
        self.write("empty.json", b"")
        self.write("garbage.json", bytes(range(256)) * 40)
        self.write("list.json", b"[1]")
        self.write("broken.json", b'{\n  "format": "velmo document",\n  "sections": [}\n')
        for name, text in [("missing.json", "No such file"), ("empty.json", "empty"),
                           (".", "directory"), ("garbage.json", "no JSON document"),
                           ("list.json", "no JSON document"), ("broken.json", "line 3, column 16")]:
            for command in ["show", "validate", "solve"]:
                with self.subTest(name + " " + command):
                    self.assertIn(text, self.run_velmo(command, name, exit_code=2).stderr)

    def test_names_of_files_may_be_any_bytes(self):
        name = os.fsdecode(b"a\xff.json")
        missing = subprocess.run([VELMO, "show", name], cwd=self.folder, capture_output=True)
        self.assertEqual(missing.returncode, 2)
        self.assertIn(b"No such file", missing.stderr)
        for command in [["new", name], ["validate", name]]:
            done = subprocess.run([VELMO, *command], cwd=self.folder, capture_output=True)
            self.assertEqual(done.returncode, 0, done.stderr)

    def test_problems_of_a_document_are_listed(self):
        self.new("rectangle")
        self.change(lambda d: d["sections"][0]["components"][0].update(grade="C1"))
        lines = self.run_velmo("validate", "a.json", exit_code=1).stdout.splitlines()
        self.assertEqual(len(lines), 1)
        self.assertIn("sections[1].components[1].grade", lines[0])
        self.assertIn("C1", lines[0])
        self.assertIn(lines[0], self.run_velmo("show", "a.json").stderr)
        self.change(lambda d: d["sections"][0]["tasks"][0].update(cases=[{"N": "x"}] * 7))
        told = self.run_velmo("show", "a.json").stderr.splitlines()
        self.assertEqual(len(told), 1 + 5 + 1)
        self.assertIn("and 3 more", told[-1])
        done = self.run_velmo("solve", "a.json", "-o", "out.txt", exit_code=1)
        self.assertIn("Component 1 does not have a valid material grade.", done.stderr)
        self.assertFalse(os.path.exists(os.path.join(self.folder, "out.txt")))
        self.assertEqual(self.run_velmo("solve", "a.json", "--json", exit_code=1).stdout, "[]\n")

    def test_json_is_an_object_for_one_task_and_an_array_for_all(self):
        self.new("rectangle")
        self.change(lambda d: d["sections"].append(d["sections"][0]))
        everything = json.loads(self.run_velmo("solve", "a.json", "--json").stdout)
        self.assertEqual([o["iSec"] for o in everything], [0, 1])
        one = ["solve", "a.json", "--json", "--section", "2", "--task", "1"]
        self.assertEqual(json.loads(self.run_velmo(*one).stdout), everything[1])
        cases = json.loads(self.run_velmo(*one, "--cases", "4,2").stdout)["results"]
        self.assertEqual(cases, [everything[1]["results"][3], everything[1]["results"][1]])

    def test_blocks_of_cases_make_one_object(self):
        self.new("rectangle")
        self.change_task(cases=[{"N": -1000.0 * (i + 1)} for i in range(5000)])
        results = json.loads(self.run_velmo("solve", "a.json", "--json").stdout)[0]["results"]
        self.assertEqual([r["iCase"] for r in results], list(range(5000)))
        lines = self.run_velmo("solve", "a.json").stdout.splitlines()
        first = [line.split()[0] for line in lines if line[:6].strip().isdigit()][:40]
        self.assertEqual(first, [str(5000 - i) for i in range(40)])  # the largest load is the worst
        self.assertIn("40 shown", "\n".join(lines))
        everything = self.run_velmo("solve", "a.json", "--all").stdout.splitlines()
        self.assertGreater(len(everything), 5000)

    def test_cases_come_from_a_table(self):
        self.new("rectangle", "--units", "force=MN")
        read = ["cases", "a.json", "--section", "1", "--task", "1", "--from"]
        self.write("a.csv", b"Mzz,N,Myy\n0.01,-1,0.02\n0,-2,0\n")
        self.assertIn("2 cases read in MN, MNm, MNm; in place of 4",
                      self.run_velmo(*read, "a.csv").stdout)
        self.assertIn("added to 2", self.run_velmo(*read, "a.csv", "--append").stdout)
        results = json.loads(self.run_velmo("solve", "a.json", "--json").stdout)[0]["results"]
        self.assertEqual([r["load"] for r in results],
                         [{"N": -1e6, "Myy": 2e4, "Mzz": 1e4}, {"N": -2e6, "Myy": 0, "Mzz": 0}] * 2)
        with open(os.path.join(self.folder, "a.json"), "rb") as file:
            before = file.read()
        self.write("bad.csv", b"N,Myy,Mzz\n1,2,3\n1,2,x\n")
        for name, text in [("bad.csv", 'bad.csv, line 3, column 3 (Mzz): found "x", expected a number'),
                           ("no.csv", "No such file"), (".", "directory")]:
            self.assertIn(text, self.run_velmo(*read, name, exit_code=2).stderr)
        with open(os.path.join(self.folder, "a.json"), "rb") as file:
            self.assertEqual(file.read(), before)
        done = subprocess.run([VELMO, *read, "-"], cwd=self.folder, capture_output=True,
                              input=b"N,Myy,Mzz\n-3,0,0\n")
        self.assertEqual(done.returncode, 0, done.stderr)

    def test_threads_change_no_byte(self):
        self.new("beam")
        self.change_task(sls=True, cases=[{"Myy": -1000.0 * i, "Mzz": 31.0 * i} for i in range(300)])
        texts = []
        for threads in ["1", "2", "3"]:
            done = subprocess.run([VELMO, "solve", "a.json", "--json"], cwd=self.folder,
                                  capture_output=True, env={**os.environ, "OMP_NUM_THREADS": threads})
            texts.append(done.stdout)
        self.assertEqual(texts[0], texts[1])
        self.assertEqual(texts[0], texts[2])

    def test_ctrl_c_stops_and_leaves_what_was_there(self):
        self.new("box")
        self.change_task(sls=True, cases=[{"N": -1000.0 * i, "Myy": 1e5} for i in range(60000)])
        self.write("out.json", b"old")
        running = subprocess.Popen([VELMO, "solve", "a.json", "--json", "-o", "out.json"],
                                   cwd=self.folder, stderr=subprocess.PIPE)
        while not any(name.endswith(".tmp") for name in os.listdir(self.folder)):
            self.assertIsNone(running.poll())  # it is reading the document
        running.send_signal(signal.SIGINT)
        self.assertIn(b"stopped", running.communicate(timeout=60)[1])
        self.assertEqual(running.returncode, 130)
        self.assertEqual(sorted(os.listdir(self.folder)), ["a.json", "out.json"])
        with open(os.path.join(self.folder, "out.json"), "rb") as file:
            self.assertEqual(file.read(), b"old")

    def test_a_case_that_is_not_carried_is_a_result(self):
        self.new("rectangle", "--units", "force=MN,length=m")
        self.change_task(cases=[{"N": -1.5e6}, {"N": -9e6}])
        table = self.run_velmo("solve", "a.json").stdout
        for text in ["FAILS", "1 carried, 1 not carried", "MN", "-1.5 "]:
            self.assertIn(text, table)
        self.run_velmo("solve", "a.json", "--strict", exit_code=1)
        self.assertIn("NOT carried", self.run_velmo("solve", "a.json", "--case", "2").stdout)

    def test_a_task_of_both_limit_states_has_two_tables(self):
        self.new("beam")
        def both(document):
            task = document["sections"][0]["tasks"][0]
            task.update(sls=True, loadTerm="long", creep=2.0)
            task["cases"] += [{"name": "empty"}, {"name": "pull", "N": 9e6}]
        self.change(both)
        table = self.run_velmo("solve", "a.json").stdout
        self.assertIn("ULS under loads", table)
        self.assertIn("SLS under loads", table)
        self.assertIn("1 cracked, 2 not cracked, 1 without a solution", table)
        service = table[table.index("SLS under loads"):].splitlines()
        rows = {line.split()[1]: line.split() for line in service if line[:6].strip().isdigit()}
        self.assertEqual(list(rows), ["pull", "sagging", "hogging", "empty"])  # the worst first
        self.assertIn("NO", rows["pull"])
        self.assertEqual(rows["empty"][-12:], ["-"] * 12)
        zeta, curvature, stiffness = (float(rows["sagging"][i]) for i in (7, 10, 12))
        self.assertTrue(0.0 < zeta < 1.0)
        self.assertIn(f"Widest crack: case 1, {rows['sagging'][8]} mm", table)
        self.assertAlmostEqual(stiffness * curvature / 1000.0, -280.0, delta=0.01)  # six digits
        self.run_velmo("solve", "a.json", "--cases", "1-3", "--strict")
        self.run_velmo("solve", "a.json", "--cases", "4", "--strict", exit_code=1)
        full = self.run_velmo("solve", "a.json", "--case", "1").stdout
        for text in ["Secant stiffness", "interpolated", "stress II", "force II", "zeta", "crack spacing"]:
            self.assertIn(text, full)
        self.assertIn("nothing applied", self.run_velmo("solve", "a.json", "--case", "3").stdout)
        shown = self.run_velmo("show", "a.json").stdout
        self.assertIn("long-term loads, creep coefficient 2", shown)
        result = json.loads(self.run_velmo("solve", "a.json", "--json").stdout)[0]["results"][0]
        self.assertIn("slsStressStrainSummary", result)
        self.assertAlmostEqual(result["crackWidth"], float(rows["sagging"][8]) / 1e3, delta=1e-9)
        self.assertIn("stressStrainSummary", result)

    def test_a_task_in_service_alone_has_one_table(self):
        self.new("beam")
        self.change_task(uls=False, sls=True, action="deformation",
                         cases=[{"eps": -1e-4, "kyy": -1e-3}])
        table = self.run_velmo("solve", "a.json").stdout
        self.assertNotIn("ULS", table)
        self.assertIn("SLS under deformations", table)

    def test_a_task_without_a_limit_state_says_so(self):
        self.new("beam")
        self.change_task(uls=False, sls=False)
        self.assertIn("neither ULS nor SLS", self.run_velmo("solve", "a.json").stdout)
        self.assertIn("no limit state", self.run_velmo("show", "a.json").stdout)

    def test_a_code_that_reduces_strength(self):
        self.new("circle", "--code", "ACI 318-19")
        shown = self.run_velmo("show", "a.json").stdout
        self.assertIn("Code: ACI 318-19\n", shown)
        self.assertIn("confined by ties", shown)
        self.change(lambda d: d["sections"][0].update(confinement="spiral"))
        self.change_task(phiFactors={"compressionStrain": 0.0021, "tensionStrain": 0.0051,
                                     "phiCompression": 0.7, "phiTension": 0.85})
        shown = self.run_velmo("show", "a.json").stdout
        self.assertIn("confined by a spiral", shown)
        self.assertIn("phi 0.7 up to a net tensile strain of 0.0021, 0.85 from 0.0051 on", shown)
        lines = self.run_velmo("solve", "a.json").stdout.splitlines()
        column = lines[2].split().index("phi")
        factors = [float(line.split()[column]) for line in lines if line[:6].strip().isdigit()]
        self.assertEqual(len(factors), 2)
        self.assertTrue(all(0.7 <= factor <= 0.85 for factor in factors))

    def test_components_of_steel_are_shown(self):
        self.new("rectangle")
        self.change(lambda d: d["sections"][0]["components"].append(
            {"name": "plate", "material": "steel", "grade": "S355",
             "geometry": {"shape": "rectangle", "width": 0.3, "depth": 0.01,
                          "centre": [0.0, 0.255]}}))
        self.assertIn("S355", self.run_velmo("show", "a.json").stdout)
        details = self.run_velmo("solve", "a.json", "--case", "1").stdout
        self.assertRegex(details, r"2 +steel +S355")
        self.change(lambda d: d["sections"][0]["components"].pop(0))
        self.assertNotIn("gross concrete", self.run_velmo("show", "a.json").stdout)
        self.run_velmo("solve", "a.json")

    def test_show_tells_what_is_there(self):
        self.new("box", "--title", "Viaduct", "--annex", "UK")
        shown = self.run_velmo("show", "a.json").stdout
        for text in ["Viaduct", "EN 1992-1-1:2004", "C30/37", "B500B", "box", "2 waiting"]:
            self.assertIn(text, shown)
        self.change(lambda d: d["sections"][0]["components"][0]["bars"].append({"area": 1e308}))
        self.assertIn("reinforcement - %", self.run_velmo("show", "a.json").stdout)

    def test_convert_makes_a_document_or_names_what_it_could_not_read(self):
        examples = os.path.join(os.path.dirname(os.path.abspath(__file__)), "../../examples")
        with open(os.path.join(examples, "round-column.velmo"), "rb") as file:
            old = file.read()
        self.write("old", old)
        done = self.run_velmo("convert", "old", "-o", "a.json")
        self.assertIn("bars        22, 21 of them in 2 groups", done.stdout)
        self.assertEqual(done.stderr, "")
        self.run_velmo("validate", "a.json")
        self.run_velmo("check", "a.json")
        self.run_velmo("convert", "a.json", "-o", "b.json", exit_code=2)
        self.write("old", old.replace(b"SHAPE", b"FORM").replace(b"FORCE", b"STRENGTH"))
        done = self.run_velmo("convert", "old", "-o", "b.json", exit_code=2)
        self.assertIn("could not be read:\nUNITS\nSECTIONS\n  line 14, UNITS: ", done.stderr)
        self.assertEqual(sorted(os.listdir(self.folder)), ["a.json", "old"])


if __name__ == "__main__":
    unittest.main()

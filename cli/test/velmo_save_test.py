#!/usr/bin/env python3
"""Saves documents where it goes wrong: killed on the way, no space, no permission.

usage: velmo_save_test.py VELMO [--kills N]     N: how often a save is killed, 50 without it
"""

import json
import os
import pathlib
import random
import resource
import signal
import stat
import subprocess
import sys
import tempfile
import time
import unittest

VELMO = os.path.abspath(sys.argv.pop(1))
KILLS = 50
if "--kills" in sys.argv:
    at = sys.argv.index("--kills")
    KILLS = int(sys.argv[at + 1])
    del sys.argv[at:at + 2]
NOBODY = 65534


def set_title(title, document="d.json"):
    return [VELMO, "set", document, "--title", title]


class Saving(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.file = self.folder / "d.json"
        self.run_velmo([VELMO, "new", "d.json", "--template", "rectangle"])
        self.run_velmo(set_title("old"))
        self.old = self.file.read_bytes()

    def run_velmo(self, arguments, status=0, **options):
        done = subprocess.run(arguments, cwd=self.folder, capture_output=True, text=True,
                              timeout=60, **options)
        self.assertEqual(done.returncode, status, done.stdout + done.stderr)
        return done.stderr

    def names(self):
        return sorted(entry.name for entry in self.folder.iterdir())

    def assert_nothing_changed(self):
        self.assertEqual(self.file.read_bytes(), self.old)
        self.assertEqual(self.names(), ["d.json"])

    def as_user(self):
        """Options that run a command with the rights of a user like any other."""
        if os.geteuid() != 0:
            return {}
        os.chown(self.folder, NOBODY, NOBODY)
        os.chown(self.file, NOBODY, NOBODY)
        return {"user": NOBODY, "group": NOBODY, "extra_groups": []}

    def test_killed_on_the_way_the_old_or_the_new_document_is_there(self):
        document = json.loads(self.old)
        task = document["sections"][0]["tasks"][0]
        task["cases"] = [{"name": f"case {i}", "N": -i} for i in range(4000)]
        self.file.write_text(json.dumps(document))
        texts = []
        for title in ["a" * 20000, "b"]:
            start = time.monotonic()
            self.run_velmo(set_title(title))
            length = time.monotonic() - start
            texts.append(self.file.read_bytes())
        moments = random.Random(20261123)
        seen = [0, 0]
        for kill in range(KILLS):
            title = ["a" * 20000, "b"][kill % 2]
            save = subprocess.Popen(set_title(title), cwd=self.folder, stdout=subprocess.DEVNULL,
                                    stderr=subprocess.DEVNULL)
            time.sleep(moments.uniform(0.3, 1.1) * length)
            save.send_signal(signal.SIGKILL)
            save.wait()
            there = self.file.read_bytes()
            self.assertIn(there, texts)
            seen[texts.index(there) == kill % 2] += 1
        print(f"{KILLS} saves killed: {seen[0]} times the old document, {seen[1]} times the new")

    def test_no_space(self):
        def small_files():
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (4096, 4096))

        error = self.run_velmo(set_title("new"), 2, preexec_fn=small_files, restore_signals=False)
        self.assertIn("disk full", error)
        self.assert_nothing_changed()
        self.assertIn("disk full", self.run_velmo([VELMO, "new", "/dev/full", "--force"], 2))

    def test_no_space_on_the_disk(self):
        size = f"size={len(self.old) // 1024 + 8}k"
        mounted = subprocess.run(["mount", "-t", "tmpfs", "-o", size, "tmpfs", self.folder],
                                 capture_output=True, check=False).returncode == 0
        if not mounted:
            self.skipTest("only root mounts a small disk")
        self.addCleanup(subprocess.run, ["umount", self.folder], check=True)
        self.file.write_bytes(self.old)
        self.assertIn("disk full", self.run_velmo(set_title("new"), 2))
        self.assert_nothing_changed()

    def test_links_permissions_and_owners_stay(self):
        (self.folder / "link.json").symlink_to("d.json")
        self.file.chmod(0o640)
        if os.geteuid() == 0:
            os.chown(self.file, NOBODY, NOBODY)
        before = self.file.stat()
        self.run_velmo(set_title("new", "link.json"))
        self.assertTrue((self.folder / "link.json").is_symlink())
        self.assertIn(b'"new"', self.file.read_bytes())
        after = self.file.stat()
        for of in ["st_mode", "st_uid", "st_gid"]:
            self.assertEqual(getattr(after, of), getattr(before, of), of)
        self.assertEqual(self.names(), ["d.json", "link.json"])

    def test_a_folder_that_takes_no_file_is_written_in_place(self):
        user = self.as_user()
        self.folder.chmod(0o555)
        before = self.file.stat().st_ino
        self.run_velmo(set_title("new"), **user)
        self.assertIn(b'"new"', self.file.read_bytes())
        self.assertEqual(self.file.stat().st_ino, before)
        self.assertIn("denied", self.run_velmo([VELMO, "new", "e.json"], 2, **user))
        self.folder.chmod(0o755)
        self.assertEqual(self.names(), ["d.json"])

    def test_a_document_that_may_not_be_written_stays(self):
        user = self.as_user()
        self.file.chmod(stat.S_IRUSR)
        self.assertIn("denied", self.run_velmo(set_title("new"), 2, **user))
        self.assert_nothing_changed()
        self.assertIn("does the folder exist", self.run_velmo([VELMO, "new", "no/e.json"], 2))
        self.assertIn("directory", self.run_velmo([VELMO, "new", ".", "--force"], 2))
        self.assert_nothing_changed()


if __name__ == "__main__":
    unittest.main()

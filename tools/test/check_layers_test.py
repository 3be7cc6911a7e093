"""Seeds violations into small trees and expects check_layers to find exactly those."""

import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent))
sys.dont_write_bytecode = True
import check_layers

GOOD = {
    "model/oxutil/json.h": "#include <rapidjson/document.h>\n",
    "model/oxnumeric/overlay.cpp": "#include <geos_c.h>\n",
    "model/oxnumeric/test/a_test.cpp": "#include <gtest/gtest.h>\n#include <fstream>\n",
    "model/oxnumeric/section/a.h": '#include "model/oxnumeric/Vec.h"\n',
    "model/oxdata/materials/a.cpp": '#include "model/oxdata/a.h"\n#include "model/oxutil/text.h"\n',
    "model/oxdata/a.cpp": '#include <sstream>\n#include "model/oxutil/json.h"\n',
    "legacy/a.cpp": '#include "materials/a.h"\n#include "model/vldata/document/a.h"\n',
    "dxf_import/a.h": '#include "model/oxnumeric/Vec.h"\n',
    "bridge/a.cpp": '#include "dxf_import/a.h"\n#include "app/VelmoApp.h"\n',
    "cli/main.cpp": '#include <iostream>\n#include <CLI/CLI.hpp>\n#include "plot/a.h"\n',
    "build/dev/generated.cpp": '#include "nowhere.h"\n',
}

BAD = [  # file, its text, what the message must say
    ("model/vldata/a.h", '#include "model/vlsol/Solver.h"\n', "model/vldata -> model/vlsol"),
    ("model/oxnumeric/b.h", '\n#include "model/oxnumeric/section/a.h"\n',
     "model/oxnumeric -> model/oxnumeric/section"),
    ("reports/csv/a.cpp", '#include "bridge/a.h"\n', "reports/csv -> bridge"),
    ("materials/a.cpp", '#  include "legacy/a.h"\n', "materials -> legacy"),
    ("model/vldata/test/a_test.cpp", '#include "app/VelmoApp.h"\n', "model/vldata -> app"),
    ("dxf_import/b.h", '#include "model/oxnumeric/polygon.h"\n', "dxf_import -> model/oxnumeric"),
    ("results/a.cpp", '#include "a.h"\n', "from the repository root"),
    ("new_folder/a.cpp", "", "not in the table"),
    ("model/oxdata/codes/ec2/a.cpp", "#include <sstream>\n", "numbers only"),
    ("model/oxdata/materials/b.h", "#include <rapidjson/fwd.h>\n", "numbers only"),
    ("model/oxnumeric/section/b.h", '#include "model/oxutil/json.h"\n', "numbers only"),
    ("app/a.cpp", "#include <CLI/CLI.hpp>\n", "only cli"),
    ("app/b.cpp", "#include <gtest/gtest.h>\n", "only test"),
    ("app/c.h", "#include <iostream>\n", "<iosfwd>"),
    ("model/vlsol/a.cpp", "#include <geos_c.h>\n", "only model/oxnumeric"),
    ("model/oxnumeric/second.cpp", "#include <geos_c.h>\n", "overlay.cpp is the one file"),
    ("cli/a.cpp", "#include <cairo/cairo.h>\n", "only plot"),
]


def found_in(files):
    with tempfile.TemporaryDirectory() as folder:
        for name, text in files.items():
            path = Path(folder) / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text)
        return check_layers.check(Path(folder))


class CheckLayers(unittest.TestCase):
    def test_accepts_what_points_down(self):
        self.assertEqual(found_in(GOOD), [])

    def test_finds_each_seeded_violation_and_nothing_else(self):
        for name, text, message in BAD:
            with self.subTest(name):
                found = found_in({**GOOD, name: text})
                self.assertEqual(len(found), 1, found)
                self.assertIn(message, found[0])
                self.assertTrue(found[0].startswith(f"{name}:{text.count(chr(10)) or 1}:"), found)


if __name__ == "__main__":
    unittest.main()

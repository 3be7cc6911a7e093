#!/usr/bin/env python3
"""Installs the library, builds examples/embed against it in each way there is, and looks at what it exports.

usage: package_test.py CMAKE COMPILER NM BUILD_FOLDER
"""

import os
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
EXAMPLE = ROOT / "examples" / "embed"
CMAKE, COMPILER, NM, BUILD = sys.argv[1:5]


def run(*command, **environment):
    done = subprocess.run([str(c) for c in command], capture_output=True, text=True,
                          env={**os.environ, **environment})
    if done.returncode:
        sys.exit(f"{' '.join(map(str, command))}\n{done.stdout}{done.stderr}")
    return done.stdout


def solve(program, **environment):
    lines = run(program, **environment).splitlines()
    assert [line.split()[0] for line in lines] == ["wind", "impact"], lines
    return lines


def with_cmake(folder, prefix, shared):
    run(CMAKE, "-S", EXAMPLE, "-B", folder, f"-DCMAKE_PREFIX_PATH={prefix}", f"-DCMAKE_CXX_COMPILER={COMPILER}",
        f"-DBUILD_SHARED_LIBS={'ON' if shared else 'OFF'}")
    run(CMAKE, "--build", folder)
    program = folder / "column"
    assert ("libvelmologic.so" in run("ldd", program)) == shared, "linked with the other library"
    return solve(program)


def with_pkg_config(folder, prefix):
    """Nothing without pkg-config."""
    if not shutil.which("pkg-config"):
        print("pkg-config is not installed: the file for it is not tried")
        return None
    library = next(prefix.rglob("libvelmologic.so")).parent
    found = {"PKG_CONFIG_PATH": str(library / "pkgconfig")}
    flags = run("pkg-config", "--cflags", "--libs", "velmologic", **found).split()
    program = folder / "column"
    run(COMPILER, "-std=c++20", EXAMPLE / "column.cpp", "-o", program, *flags)
    return solve(program, LD_LIBRARY_PATH=str(library))


def exported(prefix):
    library = next(prefix.rglob("libvelmologic.so"))
    return [line.split(maxsplit=2)[2] for line in run(NM, "-D", "-C", "--defined-only", library).splitlines()]


def check_exports(names):
    stray = [name for name in names if "Orlix::" not in name or "Orlix::Numeric" in name.split("(")[0]]
    assert not stray, f"not meant for others: {stray[:10]}"
    for wanted in ("Orlix::VelmoApp::New()", "Orlix::VlSol::Solver::SolveTask"):
        assert any(name.startswith(wanted) for name in names), f"{wanted} is not exported"


with tempfile.TemporaryDirectory() as scratch:
    scratch = Path(scratch)
    prefix = scratch / "prefix"
    run(CMAKE, "--install", BUILD, "--prefix", prefix)
    (scratch / "pc").mkdir()
    results = [with_cmake(scratch / "static", prefix, False), with_cmake(scratch / "shared", prefix, True),
               with_pkg_config(scratch / "pc", prefix)]
    assert all(r is None or r == results[0] for r in results), results
    check_exports(exported(prefix))
    print(*results[0], sep="\n")

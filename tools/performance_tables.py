#!/usr/bin/env python3
"""Prints the tables of docs/performance.md.

usage: performance_tables.py PATH_OF_VELMO [--quick]

Every figure is the best of three runs of `velmo bench`, or of `velmo solve --json` on a document that is made here
from examples/hollow-box-pier.json.
"""

import json
import os
import random
import subprocess
import sys
import tempfile
import time
from pathlib import Path

RUNS = 3
EXAMPLE = Path(__file__).resolve().parent.parent / "examples" / "hollow-box-pier.json"
STAGES = ["solve ULS", "solve SLS", "results as JSON", "both and JSON"]


def bench(velmo, **options):
    """The fastest of some runs, by their whole time."""
    arguments = [word for name, value in options.items() for word in ("--" + name, str(value))]
    runs = [json.loads(subprocess.run([velmo, "bench", "--json", *arguments], check=True,
                                      capture_output=True).stdout)[0] for _ in range(RUNS)]
    return min(runs, key=lambda run: run["seconds"]["both and JSON"])


def row(*cells):
    print("| " + " | ".join(str(cell) for cell in cells) + " |")


def head(title, *cells):
    print(f"\n{title}\n")
    row(*cells)
    row(*["---:"] * len(cells))


def microseconds(run):
    return [f"{run['seconds'][stage] / run['cases'] * 1e6:.2f}" for stage in STAGES]


def table(title, velmo, name, values, **options):
    head(title, name, *[stage + " [us a case]" for stage in STAGES], "peak memory [MB]")
    for value in values:
        run = bench(velmo, **options, **{name: value})
        row(value, *microseconds(run), f"{run['memory']:.0f}")


def box_document(path, count):
    """The pier with `count` cases for both limit states; written case by case, since the memory of this process would
    count as that of the programs it starts."""
    document = json.loads(EXAMPLE.read_text())
    task = document["sections"][0]["tasks"][0]
    task.update(sls=True, cases=[])
    document["sections"] = document["sections"][:1]
    document["sections"][0]["tasks"] = [task]
    before, after = json.dumps(document, indent=4).split('"cases": []')
    numbers = random.Random(1)
    with path.open("w") as file:
        file.write(before + '"cases": [')
        for i in range(count):
            case = {"name": f"LC{i + 1}", "N": numbers.uniform(-6e7, -1e7), "Myy": numbers.uniform(-1.8e7, 1.8e7),
                    "Mzz": numbers.uniform(-1.8e7, 1.8e7)}
            file.write((",\n" if i else "\n") + json.dumps(case))
        file.write("]" + after)


def solve(velmo, document, out, threads):
    """Elapsed and processor time [s] and peak memory [MB] of the fastest run."""
    best = None
    for _ in range(RUNS):
        start = time.perf_counter()
        process = subprocess.Popen([velmo, "solve", document, "--section", "1", "--task", "1", "--json", "-o", out],
                                   env={**os.environ, "OMP_NUM_THREADS": str(threads)})
        _, status, usage = os.wait4(process.pid, 0)
        if status != 0:
            sys.exit(f"velmo solve failed with status {status}")
        run = (time.perf_counter() - start, usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024)
        best = run if best is None else min(best, run)
    return best


def program_table(velmo, counts):
    head("Hollow box, both limit states, from the document to the file of results:", "cases", "threads",
         "elapsed [s]", "processor [s]", "peak memory [MB]", "results [MB]")
    with tempfile.TemporaryDirectory() as folder:
        for count in counts:
            document, out = Path(folder) / "box.json", Path(folder) / "out.json"
            box_document(document, count)
            for threads in (1, 2):
                elapsed, processor, memory = solve(velmo, document, out, threads)
                row(count, threads, f"{elapsed:.2f}", f"{processor:.2f}", f"{memory:.0f}",
                    f"{out.stat().st_size / 1e6:.1f}")


def main():
    velmo = str(Path(sys.argv[1]).resolve())
    part = 10 if "--quick" in sys.argv[2:] else 1
    threads = os.cpu_count()
    program_table(velmo, [count for count in (1, 100, 10_000, 100_000, 1_000_000) if count <= 1_000_000 // part])
    table("Hollow box, by the number of cases:", velmo, "cases",
          [count for count in (1, 100, 10_000, 100_000, 1_000_000) if count <= 1_000_000 // part],
          section="box", threads=threads)
    table("Hollow box, by the number of threads:", velmo, "threads", range(1, threads + 1), section="box",
          cases=100_000 // part)
    table("Polygon of 48 vertices, by the number of bars:", velmo, "bars", (0, 12, 48, 192, 768), section="polygon",
          threads=threads, cases=10_000 // part)
    table("Polygon with 24 bars, by the number of vertices:", velmo, "vertices", (4, 12, 48, 192, 768),
          section="polygon", threads=threads, cases=10_000 // part)


if __name__ == "__main__":
    main()

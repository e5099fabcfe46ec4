#!/usr/bin/env python3
"""Mutation check: applies each small fault of mutants.txt in turn to the
source tree, rebuilds BUILD_DIR, runs the test suite (without fuzzing, which
rebuilds the library with another compiler and is random, and without the
install check, which builds outside programs), and reports
whether some test failed (caught) or all passed (missed).

Usage: tools/mutation/run.py SOURCE_DIR BUILD_DIR [ctest args...]
With KLO_BUILD_LOCK=FILE each build and test run holds flock(FILE), so that
other builds on the machine take turns with it.
The source tree is restored after each mutant, also on interruption."""
import os, pathlib, re, signal, subprocess, sys, time

here = pathlib.Path(__file__).parent
src, build = pathlib.Path(sys.argv[1]), sys.argv[2]
extra = sys.argv[3:]


def mutants():
    for line in (here / "mutants.txt").read_text().splitlines():
        if line.strip() and not line.startswith("#"):
            path, old, new = (p.strip() for p in re.split(r" \|(?: |$)", line))
            yield path, old, new


def run(cmd):
    lock = os.environ.get("KLO_BUILD_LOCK")
    cmd = ["flock", lock] + cmd if lock else cmd
    return subprocess.run(cmd, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)


# A stop by signal still restores the source tree (the finally below).
signal.signal(signal.SIGTERM, lambda *_: sys.exit("stopped"))
rows = []
for n, (path, old, new) in enumerate(mutants(), 1):
    f = src / path
    text = f.read_text()
    if text.count(old) != 1:
        sys.exit(f"mutant {n}: '{old}' occurs {text.count(old)} times in {path}")
    f.write_text(text.replace(old, new))
    start = time.time()
    try:
        b = run(["cmake", "--build", build, "-j2"])
        if b.returncode != 0:
            verdict, first = "does not build", ""
        else:
            t = run(["ctest", "--test-dir", build, "-j2", "-E", "^(Fuzz|Install)\\.", "--stop-on-failure",
                     "--timeout", "300"] + extra)
            failed = [l for l in t.stdout.splitlines() if "***Failed" in l or "(Failed)" in l
                      or "***Exception" in l or "***Timeout" in l or "(Subprocess aborted)" in l]
            verdict = "caught" if t.returncode != 0 else "missed"
            first = failed[0].split(":", 1)[-1].split("...")[0].strip() if failed else ""
    finally:
        f.write_text(text)
    rows.append((n, path, old, new or "(line removed)", verdict, first, time.time() - start))
    print(f"{n:2d} {verdict:15s} {path}: '{old}' -> '{new or '(removed)'}'  {first}", flush=True)

caught = sum(r[4] == "caught" for r in rows)
print(f"caught {caught} of {len(rows)}")
run(["cmake", "--build", build, "-j2"])

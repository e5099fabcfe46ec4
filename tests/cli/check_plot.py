"""PlotFile=: the CSV of each kind of run holds its columns and ends at the
optimum; the SVG of a MIP parses and draws two series; a PNG is a PNG."""
import csv
import subprocess
import sys
import xml.etree.ElementTree as ET

program, instances, here, work = sys.argv[1:5]


def run(name, model, *settings):
    done = subprocess.run([program, "OutputFlag=0", *settings, "PlotFile=" + name, model],
                          cwd=work, capture_output=True, text=True)
    assert done.returncode == 0, done.stdout + done.stderr
    assert "Wrote " + name in done.stdout, done.stdout
    return work + "/" + name


# name, model, settings, columns, the last row's values (by column) at the optimum
CASES = [
    ("mip.csv", instances + "/p0033.mps.gz", [], ["time_s", "incumbent", "bound", "gap_percent"],
     {"incumbent": 3089, "bound": 3089, "gap_percent": 0}),
    ("simplex.csv", here + "/max_with_constant.lp", ["Method=0"], ["iteration", "objective"],
     {"objective": 15.8}),
    ("barrier.csv", here + "/max_with_constant.lp", ["Method=2"],
     ["iteration", "primal_objective", "dual_objective"],
     {"primal_objective": 15.8, "dual_objective": 15.8}),
]
for name, model, settings, columns, last in CASES:
    with open(run(name, model, *settings)) as f:
        rows = list(csv.DictReader(f))
    assert rows and list(rows[0].keys()) == columns, (name, rows[:1])
    axis = [float(r[columns[0]]) for r in rows]
    assert axis == sorted(axis) and axis[0] >= 0, (name, axis)
    for column, value in last.items():
        assert abs(float(rows[-1][column]) - value) <= 1e-6 * (1 + abs(value)), (name, rows[-1])

svg = ET.parse(run("mip.svg", instances + "/p0033.mps.gz")).getroot()
strokes = {p.get("style").split("stroke:")[1].split(";")[0]
           for p in svg.iter("{http://www.w3.org/2000/svg}path")
           if "stroke-width:2;" in (p.get("style") or "")}
assert len(strokes) == 2, strokes

with open(run("mip.png", instances + "/p0033.mps.gz"), "rb") as f:
    assert f.read(8) == b"\x89PNG\r\n\x1a\n"
print("plot files: ok")

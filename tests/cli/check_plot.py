"""PlotFile= on a small MIP: the CSV holds both series, ending at the
solver's summary; the SVG parses and draws two series; the PNG is a PNG."""
import csv
import subprocess
import sys
import xml.etree.ElementTree as ET

program, model, work = sys.argv[1:4]


def run(name):
    done = subprocess.run([program, "OutputFlag=0", "PlotFile=" + name, model], cwd=work,
                          capture_output=True, text=True)
    assert done.returncode == 0, done.stdout + done.stderr
    assert "Wrote " + name in done.stdout, done.stdout
    return work + "/" + name


with open(run("run.csv")) as f:
    rows = list(csv.DictReader(f))
assert list(rows[0].keys()) == ["time_s", "incumbent", "bound", "gap_percent"], rows[0]
times = [float(r["time_s"]) for r in rows]
assert times == sorted(times) and times[0] >= 0, times
last = rows[-1]
assert float(last["incumbent"]) == 3089 and float(last["bound"]) == 3089, last
assert float(last["gap_percent"]) == 0, last
for r in rows:  # a minimisation: the bound never passes the incumbent
    if r["incumbent"] and r["bound"]:
        assert float(r["bound"]) <= float(r["incumbent"]) + 1e-6, r

svg = ET.parse(run("run.svg")).getroot()
strokes = {p.get("style").split("stroke:")[1].split(";")[0]
           for p in svg.iter("{http://www.w3.org/2000/svg}path")
           if "stroke-width:2;" in (p.get("style") or "")}
assert len(strokes) == 2, strokes

with open(run("run.png"), "rb") as f:
    assert f.read(8) == b"\x89PNG\r\n\x1a\n"
print("plot files: ok")

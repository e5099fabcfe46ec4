#!/bin/sh
# Times reading and solving every shared instance through klo (the klo_cl
# command-line solver) and through the engine's own command-line program
# (clp for LPs, cbc for MIPs, from Debian's coinor-clp and coinor-cbc) with
# the same settings: dual simplex with presolve for LPs; for MIPs Cbc's
# defaults with klo's default gaps and integrality tolerance.  Prints the
# median wall time of each over the repeats, their ratio, and the geometric
# mean of the ratios. The two programs run alternately, repeats times each.
#
# usage: bench/compare_engines.sh [build-dir] [instances-dir] [repeats]
# Use a release build (cmake -DCMAKE_BUILD_TYPE=Release), not a sanitised one.
set -e
build=${1:-build}
instances=${2:-../shared/instances}
repeats=${3:-3}
klo_cl=$build/tools/klo_cl
[ -x "$klo_cl" ] || { echo "no $klo_cl: build the project first" >&2; exit 1; }
command -v clp >/dev/null && command -v cbc >/dev/null ||
  { echo "clp and cbc are needed (./setup.sh installs them)" >&2; exit 1; }

# Wall time in seconds of one run of "$@".
wall_time() {
  start=$(date +%s.%N)
  "$@" >/dev/null 2>&1 || { echo "failed: $*" >&2; exit 1; }
  end=$(date +%s.%N)
  awk -v a="$start" -v b="$end" 'BEGIN { print b - a }'
}

median() { sort -g | awk '{ t[NR] = $1 } END { print t[int((NR + 1) / 2)] }'; }

rows=$(mktemp)
trap 'rm -f "$rows" "$rows.klo" "$rows.eng"' EXIT
printf '%-10s %-4s %10s %10s %7s\n' instance kind klo engine ratio
tail -n +2 "$instances/index.csv" | while IFS=, read -r name kind file rest; do
  path=$instances/$file
  if [ "$kind" = LP ]; then
    set -- clp "$path" -log 0 -presolve on -dualsimplex -quit
  else
    set -- cbc "$path" -log 0 -timeMode elapsed -allowableGap 1e-06 \
      -ratioGap 0.0001 -integerTolerance 1e-06 -solve -quit
  fi
  # Alternate the two programs so that a change in the machine's speed
  # during the run affects both alike.
  : >"$rows.klo"
  : >"$rows.eng"
  for _ in $(seq "$repeats"); do
    wall_time "$klo_cl" OutputFlag=0 "$path" >>"$rows.klo"
    wall_time "$@" >>"$rows.eng"
  done
  t_klo=$(median <"$rows.klo")
  t_eng=$(median <"$rows.eng")
  awk -v n="$name" -v k="$kind" -v a="$t_klo" -v b="$t_eng" \
    'BEGIN { printf "%-10s %-4s %10.3f %10.3f %7.3f\n", n, k, a, b, a / b }'
done | tee "$rows"
awk '{ s[$2] += log($5); n[$2]++; t += log($5); m++ }
     END { for (k in n) printf "geometric mean of the %s ratios: %.3f over %d instances\n", k, exp(s[k] / n[k]), n[k]
           printf "geometric mean of all ratios: %.3f over %d instances\n", exp(t / m), m }' "$rows"

#!/bin/sh
# Times reading and solving every shared instance through klo (the klo_cl
# command-line solver) and through the engine's own command-line program
# (clp for LPs, cbc for MIPs, from Debian's coinor-clp and coinor-cbc).
#  - LPs: klo's default path against `clp FILE -solve` (the program's own
#    choice of method) and `clp FILE -dualsimplex` (dual simplex with
#    presolve), with the iterations of each.
#  - MIPs: against Cbc's defaults with klo's default gaps and integrality
#    tolerance.
# Prints the median wall time of each over the repeats, the ratios, and the
# geometric means of the ratios, over all LPs and over the LPs that take
# either program more than 0.05 s.  The programs run in turn, repeats times
# each, so that a change in the machine's speed affects them alike.
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

. "$(dirname "$0")/timing.sh"

# Median wall time of repeats runs of "$@", the runs alternating with the
# other programs' through the files given in $times.
time_into() {
  file=$1
  shift
  wall_time "$@" >>"$file"
}

# Iterations of one run: klo_cl's summary line, or clp's final line.
klo_iterations() { "$klo_cl" "$1" | awk '/^Simplex iterations/ { print $3 }'; }
clp_iterations() {
  clp "$1" -log 1 "$2" -quit | sed -n 's/.* - \([0-9]*\) iterations.*/\1/p' | tail -n 1
}

rows=$(mktemp)
trap 'rm -f "$rows" "$rows".*' EXIT
printf '%-10s %-4s %9s %9s %9s %7s %7s %7s %7s %7s\n' instance kind klo solve dual \
  klo/slv klo/dul it.klo it.slv it.dul
tail -n +2 "$instances/index.csv" | while IFS=, read -r name kind file rest; do
  path=$instances/$file
  : >"$rows.klo"
  : >"$rows.solve"
  : >"$rows.dual"
  for _ in $(seq "$repeats"); do
    time_into "$rows.klo" "$klo_cl" OutputFlag=0 "$path"
    if [ "$kind" = LP ]; then
      time_into "$rows.solve" clp "$path" -log 0 -solve -quit
      time_into "$rows.dual" clp "$path" -log 0 -presolve on -dualsimplex -quit
    else
      time_into "$rows.solve" cbc "$path" -log 0 -timeMode elapsed -allowableGap 1e-06 \
        -ratioGap 0.0001 -integerTolerance 1e-06 -solve -quit
    fi
  done
  t_klo=$(median <"$rows.klo")
  t_solve=$(median <"$rows.solve")
  if [ "$kind" = LP ]; then
    t_dual=$(median <"$rows.dual")
    iters="$(klo_iterations "$path") $(clp_iterations "$path" -solve) $(clp_iterations "$path" -dualsimplex)"
  else
    t_dual=$t_solve
    iters="- - -"
  fi
  awk -v n="$name" -v k="$kind" -v a="$t_klo" -v b="$t_solve" -v c="$t_dual" -v i="$iters" \
    'BEGIN { split(i, it, " ");
             printf "%-10s %-4s %9.4f %9.4f %9.4f %7.3f %7.3f %7s %7s %7s\n",
                    n, k, a, b, c, a / b, a / c, it[1], it[2], it[3] }'
done | tee "$rows"
awk '{ s[$2] += log($6); n[$2]++; t += log($6); m++
       if ($2 == "LP") { d += log($7); nd++ }
       if ($2 == "LP" && ($3 > 0.05 || $4 > 0.05)) { h += log($6); hd += log($7); nh++ } }
     END { for (k in n) printf "geometric mean of klo / %s over the %d %ss: %.3f\n",
                                k == "LP" ? "clp -solve" : "cbc", n[k], k, exp(s[k] / n[k])
           if (nd) printf "geometric mean of klo / clp -dualsimplex over the %d LPs: %.3f\n", nd, exp(d / nd)
           if (nh) printf "over the %d LPs taking either program more than 0.05 s: klo / clp -solve %.3f, klo / clp -dualsimplex %.3f\n",
                          nh, exp(h / nh), exp(hd / nh)
           printf "geometric mean of all %d ratios to the engines'"'"' own choice: %.3f\n", m, exp(t / m) }' "$rows"

#!/bin/sh
# klo against Clp's own program on the convex QPs of instances/qp: each
# instance solved by `klo_cl FILE` and `clp FILE -barrier`, in turn,
# repeats times each; prints the median wall times, their ratio, and
# whether each program reached the published optimum (1e-6 relative).  The
# geometric mean of the ratios is taken over the instances both get right;
# the instances only one gets right are listed.
#
# usage: bench/compare_qp.sh [build-dir] [instances-dir] [repeats]
# Use a release build, not a sanitised one.
set -e
build=${1:-build}
instances=${2:-../shared/instances}/qp
repeats=${3:-3}
klo_cl=$build/tools/klo_cl
[ -x "$klo_cl" ] || { echo "no $klo_cl: build the project first" >&2; exit 1; }
command -v clp >/dev/null || { echo "clp is needed (./setup.sh installs it)" >&2; exit 1; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

. "$(dirname "$0")/timing.sh"
# 1 when the objective in $work/out is the published one.
right() {
  obj=$(sed -n "$1" "$work/out" | tail -n 1)
  awk -v o="$obj" -v w="$2" 'BEGIN { s = (w < 0 ? -w : w); s = s < 1 ? 1 : s; d = o - w
                                     print (o != "" && (d < 0 ? -d : d) <= 1e-6 * s) ? 1 : 0 }'
}

printf '%-10s %9s %9s %7s %4s %4s\n' instance klo clp klo/clp kloR clpR
tail -n +2 "$instances/index.csv" | while IFS=, read -r name kind file rows cols ints optimum; do
  # Clp's program reads gzip files by their extension; klo_cl reads them as given.
  zcat "$instances/$file" >"$work/$name.mps"
  : >"$work/klo.t"
  : >"$work/clp.t"
  for _ in $(seq "$repeats"); do
    run_timed "$klo_cl" "$instances/$file" >>"$work/klo.t"
    ok_klo=$(right 's/^Objective  *\([-0-9.e+]*\).*/\1/p' "$optimum")
    grep -q '^Status  *optimal' "$work/out" || ok_klo=0
    run_timed clp "$work/$name.mps" -barrier >>"$work/clp.t"
    ok_clp=$(right 's/^Optimal objective  *\([-0-9.e+]*\).*/\1/p' "$optimum")
  done
  awk -v n="$name" -v a="$(median <"$work/klo.t")" -v b="$(median <"$work/clp.t")" \
    -v r1="$ok_klo" -v r2="$ok_clp" \
    'BEGIN { printf "%-10s %9.4f %9.4f %7.3f %4d %4d\n", n, a, b, a / b, r1, r2 }'
done | tee "$work/rows"
awk '$5 == 1 && $6 == 1 { s += log($4); n++ }
     $5 == 1 && $6 == 0 { onlyK = onlyK " " $1 }
     $5 == 0 && $6 == 1 { onlyC = onlyC " " $1 }
     { k += $5; c += $6; m++ }
     END { printf "right: klo %d of %d, clp -barrier %d of %d\n", k, m, c, m
           if (n) printf "geometric mean of klo / clp -barrier over the %d both get right: %.3f\n", n, exp(s / n)
           printf "only klo right:%s\nonly clp right:%s\n", onlyK ? onlyK : " none", onlyC ? onlyC : " none" }' "$work/rows"

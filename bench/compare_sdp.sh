#!/bin/sh
# klo against CSDP's own program on the SDPLIB instances of instances/sdp:
# each instance solved by `klo_cl FILE` and `csdp FILE`, in turn, repeats
# times each; prints the median wall times, their ratio, and whether each
# program got the published answer (the optimum within the index's
# relative tolerance; for infeasible and unbounded instances, that status).
# The geometric mean of the ratios is taken over the instances both get
# right; the instances only one gets right are listed.
#
# usage: bench/compare_sdp.sh [build-dir] [instances-dir] [repeats]
# Use a release build, not a sanitised one.
set -e
build=${1:-build}
instances=${2:-../shared/instances}/sdp
repeats=${3:-3}
klo_cl=$build/tools/klo_cl
[ -x "$klo_cl" ] || { echo "no $klo_cl: build the project first" >&2; exit 1; }
command -v csdp >/dev/null || { echo "csdp is needed (./setup.sh installs it)" >&2; exit 1; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

. "$(dirname "$0")/timing.sh"
run_limit=900
# 1 when the objective $1 is within relative $3 of the published $2.
near() {
  awk -v o="$1" -v w="$2" -v t="$3" 'BEGIN { s = (w < 0 ? -w : w); s = s < 1 ? 1 : s; d = o - w
                                            print (o != "" && (d < 0 ? -d : d) <= t * s) ? 1 : 0 }'
}
kloRight() {
  case $1 in
    INFEASIBLE) grep -q '^Status  *infeasible' "$work/out" && echo 1 || echo 0 ;;
    UNBOUNDED) grep -q '^Status  *\(unbounded\|infeasible or unbounded\)' "$work/out" && echo 1 || echo 0 ;;
    *) grep -q '^Status  *optimal' "$work/out" || { echo 0; return; }
       near "$(sed -n 's/^Objective  *\([-0-9.e+]*\).*/\1/p' "$work/out" | tail -n 1)" "$2" "$3" ;;
  esac
}
csdpRight() {
  case $1 in
    INFEASIBLE) grep -q 'primal infeasible' "$work/out" && echo 1 || echo 0 ;;
    UNBOUNDED) grep -q 'dual infeasible' "$work/out" && echo 1 || echo 0 ;;
    *) grep -q '^Success: SDP solved' "$work/out" || { echo 0; return; }
       near "$(sed -n 's/^Primal objective value: *\([-0-9.e+]*\).*/\1/p' "$work/out")" "$2" "$3" ;;
  esac
}

printf '%-10s %9s %9s %9s %4s %4s\n' instance klo csdp klo/csdp kloR csdpR
tail -n +2 "$instances/index.csv" | while IFS=, read -r name kind file rows size optimum reltol; do
  # csdp reads plain files; klo_cl reads them as given.
  zcat "$instances/$file" >"$work/$name.dat-s"
  : >"$work/klo.t"
  : >"$work/csdp.t"
  for _ in $(seq "$repeats"); do
    run_timed "$klo_cl" "$instances/$file" >>"$work/klo.t"
    ok_klo=$(kloRight "$kind" "$optimum" "$reltol")
    run_timed csdp "$work/$name.dat-s" >>"$work/csdp.t"
    ok_csdp=$(csdpRight "$kind" "$optimum" "$reltol")
  done
  awk -v n="$name" -v a="$(median <"$work/klo.t")" -v b="$(median <"$work/csdp.t")" \
    -v r1="$ok_klo" -v r2="$ok_csdp" \
    'BEGIN { printf "%-10s %9.4f %9.4f %9.3f %4d %4d\n", n, a, b, a / b, r1, r2 }'
done | tee "$work/rows"
awk '$5 == 1 && $6 == 1 { s += log($4); n++ }
     $5 == 1 && $6 == 0 { onlyK = onlyK " " $1 }
     $5 == 0 && $6 == 1 { onlyC = onlyC " " $1 }
     { k += $5; c += $6; m++ }
     END { printf "right: klo %d of %d, csdp %d of %d\n", k, m, c, m
           if (n) printf "geometric mean of klo / csdp over the %d both get right: %.3f\n", n, exp(s / n)
           printf "only klo right:%s\nonly csdp right:%s\n", onlyK ? onlyK : " none", onlyC ? onlyC : " none" }' "$work/rows"

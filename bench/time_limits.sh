#!/bin/sh
# How closely "MaxTime" is kept: solves each shared instance that does not
# finish first under several limits, repeats times each, and prints the
# solve time klo_cl reports (the optimize call alone) against the allowance
# of 5% plus 0.05 s.  Runs that finish before the limit are not counted.
#
# usage: bench/time_limits.sh [build-dir] [instances-dir] [repeats] [limits]
# Use a release build, not a sanitised one.
set -e
build=${1:-build}
instances=${2:-../shared/instances}
repeats=${3:-5}
limits=${4:-"0.05 0.1 0.3 1"}
klo_cl=$build/tools/klo_cl
[ -x "$klo_cl" ] || { echo "no $klo_cl: build the project first" >&2; exit 1; }

printf '%-10s %6s %6s %8s %8s %s\n' instance limit stops worst allowed verdict
over=0
for file in "$instances"/*.mps.gz; do
  name=$(basename "$file" .mps.gz)
  for limit in $limits; do
    times=$(i=0; while [ $i -lt "$repeats" ]; do
      "$klo_cl" "MaxTime=$limit" "$file" 2>&1 |
        awk '/^Status/ && /time limit/ { hit = 1 } /^Time / { t = $2 } END { if (hit) print t }'
      i=$((i + 1)); done)
    [ -n "$times" ] || continue
    worst=$(echo "$times" | sort -g | tail -1)
    stops=$(echo "$times" | wc -l)
    verdict=$(awk -v w="$worst" -v l="$limit" 'BEGIN { print (w <= 1.05 * l + 0.05) ? "ok" : "OVER" }')
    [ "$verdict" = ok ] || over=$((over + 1))
    printf '%-10s %6s %6s %8s %8.4f %s\n' "$name" "$limit" "$stops" "$worst" \
      "$(awk -v l="$limit" 'BEGIN { print 1.05 * l + 0.05 }')" "$verdict"
  done
done
echo "limits exceeded: $over"

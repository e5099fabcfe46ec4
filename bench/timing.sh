# Shared by the comparison scripts (sourced, not run).

# Seconds of one run of "$@" (at most $run_limit, default 600), its output
# kept in $work/out.
run_timed() {
  start=$(date +%s.%N)
  timeout "${run_limit:-600}" "$@" >"$work/out" 2>&1 || true
  end=$(date +%s.%N)
  awk -v a="$start" -v b="$end" 'BEGIN { print b - a }'
}

# The median of the numbers on standard input.
median() { sort -g | awk '{ t[NR] = $1 } END { print t[int((NR + 1) / 2)] }'; }

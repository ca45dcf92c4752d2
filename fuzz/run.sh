#!/usr/bin/env bash
# Runs each fuzzer of a build folder for some seconds, from its seeds in fuzz/corpus/NAME.
set -euo pipefail
build=$1
seconds=$2
here="$(dirname "$0")"
for fuzzer in "$build"/*_fuzz; do
    name=$(basename "$fuzzer")
    mkdir -p "$build/corpus/$name" "$here/corpus/$name"
    echo "== $name, $seconds seconds"
    "$fuzzer" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
        -artifact_prefix="$build/" "$build/corpus/$name" "$here/corpus/$name" 2>"$build/$name.log" ||
        { tail -40 "$build/$name.log" >&2; exit 1; }
    grep -E '^stat::(number_of_executed_units|peak_rss_mb)' "$build/$name.log"
done

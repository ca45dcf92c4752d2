#!/usr/bin/env bash
# Packs the sample descriptor and shows what the library makes of it.
set -euo pipefail
cd "$(dirname "$0")/.."
ovmodel=build/release/ovmodel
database=examples/tt200/tt200.db

step() { printf '\n\033[1m$ %s\033[0m\n' "$*"; }
run() {
    step "$@"
    "$@"
}

run "$ovmodel" pack examples/tt200/tt200.sql -o "$database" --force
run "$ovmodel" types "$database"
run "$ovmodel" info "$database" "TT200 HART" --language 9
run "$ovmodel" text "$database" 2101
run "$ovmodel" text "$database" 7101
run "$ovmodel" tree "$database" "TT200 HART" --path 0/12 --language 9
run "$ovmodel" get "$database" "TT200 HART" 0/12/1201 0/12/1203 --language 9
run "$ovmodel" set "$database" "TT200 HART" 0/12/1201=5 --language 9
run "$ovmodel" set "$database" "TT200 HART" 1/21/2102=°F --save build/fahrenheit.json --language 9
run "$ovmodel" load "$database" "TT200 HART" build/fahrenheit.json --language 9
run "$ovmodel" image "$database" "TT200 HART" examples/tt200/device_image.csv

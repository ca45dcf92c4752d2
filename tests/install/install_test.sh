#!/usr/bin/env bash
# Installs a build into a scratch prefix and uses it from there as hosts do.
#   install_test.sh BUILD SOURCE SAMPLE SCRATCH
set -euo pipefail
build=$1 source=$2 sample=$3 scratch=$4
prefix=$scratch/prefix

fail() {
    echo "install_test: $*" >&2
    exit 1
}
# The block of README.md that begins with the line "```$1".
snippet() {
    awk -v head="\`\`\`$1" '$0 == head { found = 1; next } found && /^```$/ { exit } found' "$source/README.md"
}
# Configures and builds the project in $1 against the installed package.
build_project() {
    cmake -S "$1" -B "$1/build" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_C_COMPILER_LAUNCHER="$launcher" \
        -DCMAKE_CXX_COMPILER_LAUNCHER="$launcher" >"$1.log" 2>&1 || { cat "$1.log"; fail "cannot configure $1"; }
    cmake --build "$1/build" >"$1.log" 2>&1 || { cat "$1.log"; fail "cannot build $1"; }
}
# Fails unless the output of the command behind "--" has the text.
expect() {
    local text=$1 output
    shift 2
    output=$("$@" 2>&1) || fail "'$*' ends with status $?: $output"
    [[ $output == *"$text"* ]] || fail "'$*' does not say '$text' but: $output"
}
refuse() {
    local status=0 wanted=$1
    shift 2
    "$@" >/dev/null 2>&1 || status=$?
    [ "$status" -eq "$wanted" ] || fail "'$*' ends with status $status, not $wanted"
}

launcher=$(command -v ccache || true)
rm -rf "$scratch"
mkdir -p "$scratch/first"
cmake --install "$build" --prefix "$prefix" >/dev/null

snippet 'cmake CMakeLists.txt' >"$scratch/first/CMakeLists.txt"
snippet 'cpp first.cpp' >"$scratch/first/first.cpp"
build_project "$scratch/first"
expect "Two-channel temperature transmitter" -- "$scratch/first/build/first" "$sample" "TT200 HART"

cp -r "$source/examples/host_cpp" "$source/examples/host_c" "$scratch"
build_project "$scratch/host_cpp"
build_project "$scratch/host_c"
host_cpp=$scratch/host_cpp/build/host_cpp
talk() { printf '%s\n' "$@" | "$host_cpp" "$sample" "TT200 HART"; }
expect "0/12  Communication" -- talk list
expect "* new value: Polling address = 5" -- talk "set 0/12/1201 5" "show 0/12"
expect "'99' is refused; 0/12/1201 stays" -- talk "set 0/12/1201 99"
expect "* now TT200" -- talk "language 7"
refuse 1 -- talk "show 0/99"
refuse 1 -- talk "dance"
refuse 1 -- "$host_cpp" "$sample" "TT999"
refuse 2 -- "$host_cpp"

arguments=("$sample" "TT200 HART" 0 12 1201 5)
expect "Polling address is now 5" -- "$scratch/host_c/build/host_c" "${arguments[@]}"
refuse 1 -- "$scratch/host_c/build/host_c" "$sample" "TT200 HART" 0 12 nowhere 5
refuse 1 -- "$scratch/host_c/build/host_c" "$sample" TT9 0 12 1201 5
refuse 2 -- "$scratch/host_c/build/host_c"
export PKG_CONFIG_PATH
PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name ov_model_c.pc)")
flags=$(pkg-config --cflags --libs ov_model_c)
# shellcheck disable=SC2086  # flags are words
cc -std=c11 "$source/examples/host_c/host.c" $flags -o "$scratch/by_pkg_config"
LD_LIBRARY_PATH=$(pkg-config --variable=libdir ov_model_c) \
    expect "1 values changed" -- "$scratch/by_pkg_config" "${arguments[@]}"

# shellcheck disable=SC2046
c++ "$scratch/first/first.cpp" $(pkg-config --cflags --libs ov_model) -o "$scratch/first_by_pkg_config"
LD_LIBRARY_PATH=$(pkg-config --variable=libdir ov_model) \
    expect "Two-channel temperature transmitter" -- "$scratch/first_by_pkg_config" "$sample" "TT200 HART"

installed=$prefix/bin/ovmodel
expect "ovmodel 3." -- "$installed" --version
expect "TT200 HART" -- "$installed" types "$sample"

examples=$prefix/share/ov_model/examples
"$installed" pack "$examples/tt200/tt200.sql" -o "$scratch/own.db" >/dev/null
expect "Lower alarm limit" -- env -u OV_MODEL_LIBRARY PYTHONPATH="$prefix/lib/python3/dist-packages" \
    PYTHONDONTWRITEBYTECODE=1 "$examples/python/tree_table.py" "$scratch/own.db" "TT200 HART"
echo "the installed library serves hosts in C, C++ and Python"

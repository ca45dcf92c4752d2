#!/usr/bin/env bash
# What bash offers for the last of the words: complete.sh TOOL WORDS...
set -euo pipefail
tool=$1
# shellcheck source=/dev/null
source "$(dirname "$0")/../../tools/ovmodel/share/ovmodel.bash"
ovmodel() { "$tool" "$@"; }
shift
COMP_WORDS=("$@")
COMP_CWORD=$(($# - 1))
_ovmodel
printf '%s ' ${COMPREPLY[@]+"${COMPREPLY[@]}"} | sed 's/^ $//'

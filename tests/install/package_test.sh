#!/usr/bin/env bash
# Makes the Debian package of a build, unpacks it and uses what is in it.
#   package_test.sh BUILD SCRATCH
set -euo pipefail
build=$1 scratch=$2 root=$2/root

fail() {
    echo "package_test: $*" >&2
    exit 1
}

rm -rf "$scratch"
mkdir -p "$scratch"
# Stored, not compressed: this package is not kept.
cpack --config "$build/CPackConfig.cmake" -G DEB -B "$scratch" -D CPACK_DEBIAN_COMPRESSION_TYPE=none \
    >"$scratch/cpack.log" 2>&1 || { cat "$scratch/cpack.log"; fail "no package"; }
package=$(echo "$scratch"/*.deb)
[[ $(dpkg-deb -f "$package" Package) == ov-model ]] || fail "$package is not named ov-model"
[[ $(dpkg-deb -f "$package" Depends) == *libicu*libpcre2-16*libsqlite3* ]] || fail "its needs are $(dpkg-deb -f "$package" Depends)"
dpkg-deb -x "$package" "$root"

for file in bin/ovmodel include/ov_model/ov_model.h include/ov_model/contract/module.h share/man/man1/ovmodel.1 \
    share/bash-completion/completions/ovmodel lib/libov_model_contract.a lib/cmake/OV_Model/OV_ModelConfig.cmake; do
    [ -f "$root/usr/$file" ] || fail "it has no $file"
done
"$root/usr/bin/ovmodel" pack "$root/usr/share/ov_model/examples/tt200/tt200.sql" -o "$scratch/tt200.db" >/dev/null
types=$(env -u OV_MODEL_LIBRARY PYTHONPATH="$root/usr/lib/python3/dist-packages" PYTHONDONTWRITEBYTECODE=1 python3 -c '
import sys, ov_model
module = ov_model.create("CBase_Module")
module.SetSourcePath(sys.argv[1])
print(*module.Types(), sep=", ")' "$scratch/tt200.db")
[[ $types == "TT200 HART, "* ]] || fail "Python sees the types '$types'"
echo "$(basename "$package") serves"

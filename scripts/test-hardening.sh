#!/usr/bin/env bash
# The optimised library and viewer are hardened, on Windows the library: scripts/test-hardening.sh
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
status=0

# expect <file> <what> <report> <pattern>: the report on the file has a line of that pattern.
expect() {
    grep -qE -- "$4" <<<"$3" && return
    echo "$1: no $2"
    status=1
}

# refuse <file> <what> <report> <pattern>: it has none.
refuse() {
    grep -qE -- "$4" <<<"$3" || return 0
    echo "$1: $2"
    status=1
}

build=${KIVO_BUILD:-build-release}
for file in "$build/KivoFunctionPlotter/libKivoFunctionPlotter.so" "$build/viewer/kivo-viewer"; do
    symbols=$(nm --dynamic --undefined-only "$file")
    segments=$(readelf --program-headers --wide "$file")
    expect "$file" "stack protector" "$symbols" '__stack_chk_fail'
    expect "$file" "checked library calls" "$symbols" '__[a-z]+_chk@'
    expect "$file" "read-only relocations" "$segments" 'GNU_RELRO'
    expect "$file" "binding at the start" "$(readelf --dynamic --wide "$file")" 'BIND_NOW|FLAGS.* NOW'
    expect "$file" "stack header" "$segments" 'GNU_STACK'
    refuse "$file" "the stack is executable" "$segments" 'GNU_STACK.* RWE '
    expect "$file" "address that is chosen when it is loaded" "$(readelf --file-header "$file")" 'Type: +DYN'
done

file=build-mingw/KivoFunctionPlotter/libKivoFunctionPlotter.dll
[ -e "$file" ] || exit $status # not built for Windows
characteristics=$(x86_64-w64-mingw32-objdump --private-headers "$file")
expect "$file" "address that is chosen when it is loaded" "$characteristics" 'DYNAMIC_BASE'
expect "$file" "64-bit choice of the address" "$characteristics" 'HIGH_ENTROPY_VA'
expect "$file" "stack without code" "$characteristics" 'NX_COMPAT'
expect "$file" "stack protector" "$(x86_64-w64-mingw32-nm "$file")" '__stack_chk_fail'
exit $status

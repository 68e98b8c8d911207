#!/usr/bin/env bash
# Searches for inputs that break something: scripts/fuzz.sh [seconds for each target, 1800] [formula|reader|session|plotter]...
# Wants clang. What is found is left in build-fuzz/findings and makes the script fail; inputs that reach code
# which no other one reaches are merged into the corpus that the tests replay.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/packages.sh
. scripts/sanitizers.sh
seconds=${1:-1800}
targets=("${@:2}")
[ ${#targets[@]} -gt 0 ] || targets=(formula reader session plotter)

install_packages "${kivo_run_packages[@]}" libgtest-dev libgmock-dev libxcb-xtest0-dev clang libclang-rt-14-dev
cmake --preset fuzz
cmake --build --preset fuzz --target kivo-fuzz-plotter kivo-fuzz-reader kivo-fuzz-formula kivo-fuzz-session
unset DISPLAY WAYLAND_DISPLAY

# What the search begins with, beside the corpus: the files that the readers are for.
seeds=$(mktemp -d)
trap 'rm -rf "$seeds"' EXIT
mkdir "$seeds/reader" "$seeds/formula" "$seeds/session" "$seeds/plotter"
for file in viewer/tests/data/*; do
    for kind in 0 1 2; do
        { printf '%b' "\\x0$kind\\0"; head -c 2000 "$file"; } >"$seeds/reader/$kind-$(basename "$file")"
    done
done
printf '%s\n' '' '' 'sin(x) * cos(y) / (1 + x^2)' >"$seeds/formula/waves"
printf '%s\n' '-1:1:5' '0:1e3:9' 'x > 0 ? sqrt(x) : ln(y)' >"$seeds/formula/ranges"

fuzz() { # target seconds
    local corpus=viewer/tests/fuzz/corpus/$1 findings="build-fuzz/findings/$1-" new="build-fuzz/new-$1"
    [ "$1" != plotter ] || corpus=KivoFunctionPlotter/tests/fuzz/corpus/plotter
    mkdir -p "$corpus" build-fuzz/findings "$new"
    "build-fuzz/tests/kivo-fuzz-$1" -max_total_time="$2" -max_len=2048 -len_control=0 -timeout=10 -rss_limit_mb=4096 \
        -print_final_stats=1 -artifact_prefix="$findings" "$new" "$corpus" "$seeds/$1" 2>"build-fuzz/$1.log" || {
        tail -n 60 "build-fuzz/$1.log"
        return 1
    }
    # A small set that reaches the same branches, however often.
    local smallest="build-fuzz/smallest-$1"
    rm -rf "$smallest" && mkdir "$smallest"
    "build-fuzz/tests/kivo-fuzz-$1" -set_cover_merge=1 -use_counters=0 -max_len=2048 -artifact_prefix="$findings" \
        "$smallest" "$new" "$corpus" "$seeds/$1" 2>>"build-fuzz/$1.log"
    rm -rf "$corpus" && mv "$smallest" "$corpus"
    echo "$1: $(ls "$corpus" | wc -l) inputs kept of $(sed -n 's/.*number_of_executed_units: *//p' "build-fuzz/$1.log" | head -n 1)"
}

for target in "${targets[@]}"; do
    fuzz "$target" "$seconds"
done

#!/usr/bin/env bash
# Runs all benchmarks in turn and prints one table of ratios: KivoFunctionPlotter/benchmarks/compare.sh [--write].
# With --write the tables and the plot in docs/ are replaced as well. Other libraries take part where they are installed:
#   apt-get install libvtk9-dev libqwtplot3d-qt5-dev libqt5opengl5-dev python3-contourpy
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
. scripts/packages.sh
install_packages "${kivo_run_packages[@]}" "${kivo_benchmark_packages[@]}"

build=build-benchmarks
if ! { cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DKIVO_BUILD_BENCHMARKS=ON \
        -DKIVO_BUILD_TESTS=OFF -DKIVO_BUILD_EXAMPLES=OFF -DKIVO_BUILD_VIEWER=OFF && cmake --build "$build"; } >"$build.log" 2>&1; then
    cat "$build.log" >&2
    exit 1
fi
rm -rf "$build/results"
mkdir -p "$build/results"
scripts/with-display.sh KivoFunctionPlotter/benchmarks/measure.sh "$build/benchmarks" "$build/results"
/usr/bin/python3 KivoFunctionPlotter/benchmarks/report.py "$build/results" "$@"

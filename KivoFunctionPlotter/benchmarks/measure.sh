#!/usr/bin/env bash
# The measurements of compare.sh, which need a display: KivoFunctionPlotter/benchmarks/measure.sh PROGRAMS RESULTS, two folders.
set -euo pipefail
programs=$1
results=$2

# The same heap for every program: freed memory is kept, so that neither frames nor new data wait for the kernel to clear
# pages.
export MALLOC_TRIM_THRESHOLD_=$((1 << 30)) MALLOC_MMAP_THRESHOLD_=$((1 << 30))

# run NAME PROGRAM [OPTION]...: the results go to NAME.json; a program that is not there is left out.
run() {
    local name=$1 program=$programs/kivo-$2
    shift 2
    [ -x "$program" ] || return 0
    echo "$(date +%T) $name" >&2
    "$program" --benchmark_out="$results/$name.json" --benchmark_out_format=json --benchmark_min_time=0.1 "$@" >/dev/null 2>&1
}

# Programs in turn, in several rounds: what slows the machine down for a while meets all of them. What takes longest is in
# the first rounds only.
for round in 1 2 3 4 5; do
    run "kivo-$round" benchmarks \
        --benchmark_filter='^(SetData|MeshArrays|FillMeshArrays|Recolor|RecolorPale|FillColors|Contours|ZContours|SetContourCount|Trace|ReadPoints)/[12]000/'
    run "start-$round" benchmarks --benchmark_filter='^First|^SmallFrame'
    run "kivo-frames-1000-$round" benchmarks --benchmark_repetitions=3 --benchmark_filter='^(Frame.*|CulledFrame|MovedFrame)/1000/'
    run "bare-frames-1000-$round" bare-benchmarks --benchmark_repetitions=3 --benchmark_filter='^Frame.*/1000/|^SmallFrame|^EmptyFrame'
    [ "$round" -le 3 ] || continue
    run "kivo-frames-2000-$round" benchmarks --benchmark_filter='^(Frame.*|CulledFrame|MovedFrame)/2000/'
    run "bare-frames-2000-$round" bare-benchmarks --benchmark_filter='^Frame.*/2000/'
    run "vtk-$round" vtk-benchmarks --benchmark_filter='-PeakMemory'
    run "qwtplot3d-$round" qwtplot3d-benchmarks --benchmark_filter='^Frame.*/1000'
    if /usr/bin/python3 -c 'import contourpy' 2>/dev/null; then
        /usr/bin/python3 "$(dirname "$0")/contourpy_benchmark.py" 1000 2000 >"$results/contourpy-$round.json"
    fi
done

# How cost grows; memory, by processes that do nothing else; frames and new data with the heap as
# glibc has it.
run growth benchmarks --benchmark_repetitions=5 \
    --benchmark_filter='^(SetData|MeshArrays|FillMeshArrays|Recolor|FillColors|Contours|Trace|ReadPoints)/[0-9]*/|^ContoursByLevels'
run growth-frames benchmarks --benchmark_filter='^(Frame|FrameWithLines)/[0-9]*/'
run qwtplot3d-large qwtplot3d-benchmarks --benchmark_filter='^Frame.*/2000'
run memory memory-benchmarks
for n in 1000 2000; do
    run "kivo-memory-$n" benchmarks --benchmark_filter="^PeakMemory/$n"
    run "vtk-memory-$n" vtk-benchmarks --benchmark_filter="^PeakMemory/$n"
    run "qwtplot3d-memory-$n" qwtplot3d-benchmarks --benchmark_filter="^PeakMemory/$n"
done
unset MALLOC_TRIM_THRESHOLD_ MALLOC_MMAP_THRESHOLD_
run heap benchmarks --benchmark_repetitions=3 --benchmark_filter='^(FrameWithLines|SetData)/[12]000'

"""The z contours of the test grid by contourpy in one thread. Prints results in the form of Google Benchmark's JSON.

contourpy_benchmark.py [n]...
"""
import json
import sys
import time

import contourpy
import numpy

LEVEL_COUNT = 20
REPETITIONS = 3


def test_grid(n):
    x, y = numpy.meshgrid(numpy.linspace(-1.0, 1.0, n), numpy.linspace(-1.0, 1.0, n))
    return x, y, (numpy.sin(6.0 * x) * numpy.cos(5.0 * y) * numpy.exp(-(x * x + y * y))).astype(numpy.float32)


def trace(grid, levels):
    generator = contourpy.contour_generator(*grid, name="serial")
    return [generator.lines(level) for level in levels]


def measure(n):
    grid = test_grid(n)
    z = grid[2]
    levels = z.min() + numpy.arange(1, LEVEL_COUNT + 1) * ((z.max() - z.min()) / (LEVEL_COUNT + 1))
    for repetition in range(REPETITIONS):
        wall, cpu = time.perf_counter(), time.process_time()
        lines = trace(grid, levels)
        yield {
            "name": f"ZContours/{n}",
            "run_type": "iteration",
            "repetition_index": repetition,
            "time_unit": "ms",
            "real_time": 1e3 * (time.perf_counter() - wall),
            "cpu_time": 1e3 * (time.process_time() - cpu),
            "z_segments": sum(len(line) - 1 for level in lines for line in level),
        }


json.dump({"benchmarks": [run for n in sys.argv[1:] for run in measure(int(n))]}, sys.stdout)

#!/usr/bin/env python3
"""Measures how long the viewer takes from a file to a picture: scripts/measure-picture.py [POINTS] [RUNS]

An ESRI grid of POINTS x POINTS points, 2000 without, is read, drawn and written as PNG, RUNS times, 9 without. KIVO_BUILD names
the build, build-test without it. The machine should do nothing else."""

import math
import os
import pathlib
import statistics
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent


def write_grid(path, points):
    waves = [math.sin(0.02 * i) for i in range(points)]
    with open(path, 'w', encoding='ascii') as file:
        file.write(f'ncols {points}\nnrows {points}\nxllcorner 0\nyllcorner 0\ncellsize 1\n')
        for wave in waves:
            file.write(' '.join(f'{100 * wave * other:.3f}' for other in waves) + '\n')


def seconds_of(command):
    start = time.monotonic()
    subprocess.run(command, check=True)
    return time.monotonic() - start


def main():
    points, runs = (int(text) for text in sys.argv[1:] + ['2000', '9'][len(sys.argv) - 1:])
    viewer = ROOT / os.environ.get('KIVO_BUILD', 'build-test') / 'viewer' / 'kivo-viewer'
    with tempfile.TemporaryDirectory() as folder:
        grid = f'{folder}/grid.asc'
        write_grid(grid, points)
        times = sorted(seconds_of([viewer, grid, '--picture', f'{folder}/picture.png']) for _ in range(runs))
        size = os.path.getsize(grid) / 1e6
    print(f'{points} x {points} points, {size:.0f} MB: {times[0]:.2f} to {times[-1]:.2f} s, '
          f'median {statistics.median(times):.2f} s of {runs}')


main()

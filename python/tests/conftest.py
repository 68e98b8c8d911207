"""What tests share: the viewer to compare with, a display, grids."""

import os
import pathlib
import struct
import subprocess
import sys
import zlib

import numpy as np
import pytest

ROOT = pathlib.Path(__file__).resolve().parents[2]


@pytest.fixture
def hill():
    """Heights, x and y that single precision holds exactly."""
    x = np.linspace(-3, 3, 61, dtype=np.float32)
    y = np.linspace(-2, 2, 41, dtype=np.float32)
    z = (np.sin(x) * np.cos(y)[:, None]).astype(np.float32)
    return z, x, y


def read_png(data):
    """The pixels of a PNG file whose rows have the filters 0 to 4, by another way than the one that wrote it."""
    assert data[:8] == b'\x89PNG\r\n\x1a\n'
    place, chunks = 8, []
    while place < len(data):
        length, kind = struct.unpack('>I4s', data[place:place + 8])
        body = data[place + 8:place + 8 + length]
        assert zlib.crc32(kind + body) == struct.unpack('>I', data[place + 8 + length:place + 12 + length])[0]
        chunks.append((kind, body))
        place += 12 + length
    assert chunks[-1][0] == b'IEND'
    return dict(chunks), b''.join(body for kind, body in chunks if kind == b'IDAT')


def pixels_of(path):
    """A picture file as an array, by Pillow."""
    from PIL import Image
    return np.asarray(Image.open(path).convert('RGBA'))


@pytest.fixture
def viewer(tmp_path):
    """Draws a grid with the viewer's options."""
    program = os.environ.get('KIVO_VIEWER')
    if not program:
        pytest.skip('KIVO_VIEWER names no viewer')

    def draw(z, x, y, *options):
        grid, picture = tmp_path / 'grid.csv', tmp_path / 'viewer.png'
        rows = [','.join([''] + [f'{value:.9g}' for value in x])]
        rows += [','.join([f'{value:.9g}'] + ['' if np.isnan(height) else f'{height:.9g}' for height in row])
                 for value, row in zip(y, z)]
        grid.write_text('\n'.join(rows) + '\n')
        environment = {name: value for name, value in os.environ.items() if name != 'DISPLAY'}
        for title in ('--title', '--x-title', '--y-title', '--z-title'):  # those of a file are not those of arrays
            options += () if title in options else (title, '')
        subprocess.run([program, str(grid), '--picture', str(picture), *options], check=True, env=environment)
        return pixels_of(picture)
    return draw


@pytest.fixture
def run_python():
    """Runs a program of its own and returns what it says; it must end well."""
    def run(code, *arguments, timeout=120):
        result = subprocess.run([sys.executable, '-X', 'faulthandler', '-c', code, *arguments], capture_output=True,
                                text=True, timeout=timeout)
        assert result.returncode == 0, result.stderr
        return result.stdout
    return run

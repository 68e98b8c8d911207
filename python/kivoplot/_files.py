"""Pictures as files: PNG by what Python brings, other formats by Pillow."""

from __future__ import annotations

import os
import struct
import zlib
from pathlib import Path
from typing import Union

import numpy as np
import numpy.typing as npt

PNG_LEVEL = 1  # pictures of plots are half as large with 6, in four times the time
OTHERS = {'.jpg': 'JPEG', '.jpeg': 'JPEG', '.pdf': 'PDF', '.tif': 'TIFF', '.tiff': 'TIFF', '.webp': 'WEBP'}


def _chunk(kind: bytes, data: bytes) -> bytes:
    return struct.pack('>I', len(data)) + kind + data + struct.pack('>I', zlib.crc32(data, zlib.crc32(kind)))


def png(image: npt.NDArray[np.uint8], dpi: float) -> bytes:
    """A picture of height x width x 4 as a PNG file; without alpha where all is opaque."""
    height, width, _ = image.shape
    channels = 3 if (image[..., 3] == 255).all() else 4
    pixels = np.ascontiguousarray(image[..., :channels]).reshape(height, width * channels)
    # Each row as the difference to the one above: what goes straight up, and all that is plain, becomes zeros.
    rows = np.empty((height, 1 + width * channels), dtype=np.uint8)
    rows[:, 0] = 2
    rows[0, 1:] = pixels[0]
    np.subtract(pixels[1:], pixels[:-1], out=rows[1:, 1:])
    meter = round(dpi / 0.0254)
    header = struct.pack('>IIBBBBB', width, height, 8, 2 if channels == 3 else 6, 0, 0, 0)
    return b''.join([b'\x89PNG\r\n\x1a\n', _chunk(b'IHDR', header), _chunk(b'pHYs', struct.pack('>IIB', meter, meter, 1)),
                     _chunk(b'IDAT', zlib.compress(rows.data, PNG_LEVEL)), _chunk(b'IEND', b'')])


def format_of(path: Union[str, 'os.PathLike[str]'], transparent: bool) -> str:
    """What the name ends in, as Pillow calls it."""
    ending = Path(path).suffix.lower()
    if ending == '.png':
        return 'PNG'
    if ending not in OTHERS:
        raise ValueError(f'path: {os.fspath(path)!r} ends in no format; expected .png, {", ".join(OTHERS)}')
    if transparent and OTHERS[ending] in ('JPEG', 'PDF'):
        raise ValueError(f'transparent: {OTHERS[ending]} files have no transparent ground; PNG files have')
    return OTHERS[ending]


def save(path: Union[str, 'os.PathLike[str]'], image: npt.NDArray[np.uint8], kind: str, dpi: float) -> None:
    """Writes a picture; what was there stays where that fails before the first byte."""
    if kind == 'PNG':
        Path(path).write_bytes(png(image, dpi))
        return
    pillow = _pillow(kind)
    picture = pillow.fromarray(image)
    if kind in ('JPEG', 'PDF'):
        picture = picture.convert('RGB')
    options = {'PDF': {'resolution': dpi, 'quality': 95}, 'JPEG': {'dpi': (round(dpi), round(dpi)), 'quality': 92}}
    picture.save(path, format=kind, **options.get(kind, {'dpi': (round(dpi), round(dpi))}))


def _pillow(kind: str):  # type: ignore[no-untyped-def]
    try:
        from PIL import Image
    except ImportError:
        raise ImportError(f'{kind} files need Pillow (Debian: python3-pil, elsewhere: pip install pillow); '
                          'PNG files need nothing') from None
    return Image

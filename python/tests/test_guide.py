"""The examples of docs/python.md run as written, and their pictures are those of the page. With KIVO_WRITE_PICTURES they are
drawn anew."""

import os
import re
import shutil
import subprocess
import sys

import numpy as np
import pytest

from conftest import ROOT, pixels_of

GUIDE = ROOT / 'docs' / 'python.md'
PICTURES = ROOT / 'docs' / 'pictures' / 'python'
README = ROOT / 'README.md'


def examples(page=GUIDE):
    return re.findall(r'<!-- python: (\S+) -->\n```python\n(.*?)```', page.read_text(), re.DOTALL)


def run(code, folder):
    result = subprocess.run([sys.executable, '-c', code], cwd=folder, capture_output=True, text=True, timeout=120)
    assert result.returncode == 0, result.stderr


def compare(drawn, name):
    if os.environ.get('KIVO_WRITE_PICTURES'):
        shutil.copy(drawn, PICTURES / name)
    found, wanted = pixels_of(drawn).astype(int), pixels_of(PICTURES / name).astype(int)
    assert found.shape == wanted.shape
    assert (np.abs(found - wanted).max(axis=2) > 40).mean() < 0.002  # renderers differ at edges


@pytest.mark.parametrize('name', ['plot.png', 'figure.png'])
def test_pictures(name, tmp_path):
    run(dict(examples())[name], tmp_path)
    compare(tmp_path / name, name)
    assert name != 'figure.png' or (tmp_path / 'figure.pdf').read_bytes().startswith(b'%PDF')


def test_readme_has_the_first_example():
    assert dict(examples(README))['plot.png'] == dict(examples())['plot.png']


def test_the_class(tmp_path):
    run(dict(examples())['class.png'] + 'assert image.shape == (300, 400, 4) and image.std() > 10', tmp_path)


@pytest.mark.skipif(not os.environ.get('DISPLAY'), reason='there is no display')
def test_the_program(tmp_path):
    """Its slider is moved, its window is looked at."""
    code = dict(examples())['window'].replace('application.exec()', '''
from PyQt6.QtCore import QPoint
from PyQt6.QtTest import QTest
QTest.qWaitForWindowExposed(window)
before = plot.image()
slider.setValue(40)
assert (plot.image() != before).any()
slider.setValue(0)
QTest.qWait(300)
for i in range(300):  # to where the surface is
    QTest.mouseMove(widget, widget.rect().center() + QPoint(i % 40, i % 30))
    QTest.qWait(20)
    if re.match(r"-?\\d", label.text()): break
assert re.match(r"-?\\d+\\.\\d+  -?\\d+\\.\\d+  -?\\d", label.text()), label.text()
assert window.grab().save("window.png")''').replace('import sys\n', 'import re, sys\n')
    run(code, tmp_path)
    if os.environ.get('KIVO_WRITE_PICTURES'):
        shutil.copy(tmp_path / 'window.png', PICTURES / 'window.png')
    assert pixels_of(tmp_path / 'window.png').shape[0] > 300

"""Builds the module for a wheel by CMake, with the library inside. With KIVO_BUILD it is a folder that is configured already."""

import os
import pathlib
import re
import subprocess
import sys

from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext

HERE = pathlib.Path(__file__).resolve().parent
CHECKOUT = HERE.parent


def version():
    return re.search(r'^ +VERSION ([\d.]+)$', (CHECKOUT / 'CMakeLists.txt').read_text(), re.MULTILINE).group(1)


class BuildByCMake(build_ext):
    def build_extension(self, extension):
        build = pathlib.Path(os.environ.get('KIVO_BUILD') or self.build_temp).resolve()
        if 'KIVO_BUILD' not in os.environ:
            switches = [f'-DKIVO_BUILD_{part}=OFF' for part in ('TESTS', 'EXAMPLES', 'VIEWER', 'CONTROLS')]
            subprocess.check_call(['cmake', '-S', CHECKOUT, '-B', build, '-DCMAKE_BUILD_TYPE=Release', '-DKIVO_BUILD_PYTHON=ON',
                                   f'-DPython_EXECUTABLE={sys.executable}', *switches])
        subprocess.check_call(['cmake', '--build', build, '--parallel', '--target', 'kivoplot_whole'])
        wanted = pathlib.Path(self.get_ext_fullpath(extension.name)).resolve()
        wanted.parent.mkdir(parents=True, exist_ok=True)
        self.copy_file(build / 'python' / 'wheel' / wanted.name, wanted)
        if not self.debug:
            subprocess.check_call(['strip', wanted])


setup(version=version(), packages=['kivoplot'], package_data={'kivoplot': ['py.typed', '*.pyi']},
      ext_modules=[Extension('kivoplot._kivoplot', [])], cmdclass={'build_ext': BuildByCMake})

#!/usr/bin/env python3
"""Writes the types of the compiled module: make-stub.py > kivoplot/_kivoplot.pyi, with the built package in PYTHONPATH.

pybind11 says the types of arguments in docstrings. Those that it knows as objects alone have their names here."""

import inspect
import re

import kivoplot._kivoplot as module

HEAD = '''# Made by tools/make-stub.py from the compiled module.
from __future__ import annotations

from collections.abc import Callable, Sequence
from typing import Any, Optional, overload

import numpy as np
import numpy.typing as npt

from ._records import Legend, PictureOptions, Style, Surface, View
'''

ARGUMENTS = {'format: object': 'format: Optional[Callable[[float, float], str]]', 'style: object': 'style: Style',
             'view: object': 'view: View', 'legend: object': 'legend: Legend', 'values: object': 'values: Surface',
             'surface: object': 'surface: Optional[Surface]', 'options: object': 'options: PictureOptions',
             'redraw: object': 'redraw: Optional[Callable[[], object]]', 'wake: object': 'wake: Optional[Callable[[int], object]]',
             'traced: object': 'traced: Optional[Callable[[Optional[tuple[float, float, float]]], object]]',
             'view_changed: object': 'view_changed: Optional[Callable[[], object]]',
             'failed: object': 'failed: Optional[Callable[[], object]]', 'request: object': 'request: Optional[Callable[[], object]]',
             'pixels: numpy.ndarray': 'pixels: npt.NDArray[np.uint8]', 'points: numpy.ndarray': 'points: npt.NDArray[np.float32]'}
RESULTS = {'get_style': 'Style', 'get_view': 'View', 'get_legend': 'Legend', 'get_surface': 'Surface',
           'draw': 'Optional[npt.NDArray[np.uint8]]'}


def typed(signature):
    """A signature of pybind11's as one of Python's."""
    name = signature[:signature.index('(')]
    arguments, _, result = signature.rpartition(' -> ')
    arguments = arguments.replace('numpy.ndarray[numpy.float32]', 'npt.ArrayLike')
    for old, new in ARGUMENTS.items():
        arguments = re.sub(rf'\b{re.escape(old)}(?![\w\[])', new, arguments)
    arguments = re.sub(r'\bself: [\w.]+', 'self', arguments)
    arguments = re.sub(r'List\[(\w+)(?:\[\d+\])?\]', r'Sequence[\1]', arguments).replace('*args', '*args: Any')
    result = RESULTS.get(name, result).replace('numpy.ndarray[numpy.uint8]', 'npt.NDArray[np.uint8]')
    result = re.sub(r'List\[(\w+)(\[\d+\])?\]', r'list[\1]', result)
    text = f'{arguments} -> {result}'.replace('Tuple[', 'tuple[').replace('kivoplot._kivoplot.', '')
    return text.replace(' -> object', ' -> Any')


def signatures(name, function):
    text = function.__doc__ or ''
    found = re.findall(rf'^(?:\d+\. )?({name}\(.*\) -> .*)$', text, re.MULTILINE)
    return [typed(signature) for signature in found]


def definitions(name, function, indent):
    found = signatures(name, function)
    for signature in found:
        if len(found) > 1:
            yield f'{indent}@overload'
        yield f'{indent}def {signature}: ...'


def property_lines(name, value):
    yield '    @property'
    yield f'    def {name}(self) -> int: ...'
    if value.fset:
        yield f'    @{name}.setter'
        yield f'    def {name}(self, value: int) -> None: ...'


def class_lines(name, kind):
    base = '(RuntimeError)' if issubclass(kind, RuntimeError) else '(FunctionPlotter)' if name == 'PlotView' else ''
    lines = []
    for member, value in vars(kind).items():
        if isinstance(value, property):
            lines.extend(property_lines(member, value))
        elif callable(value) and (not member.startswith('_') or member in ('__init__', '__enter__', '__exit__')):
            lines.extend(definitions(member, value, '    '))
    if name in ('Window', 'KeptContext'):
        lines.insert(0, '    def __init__(self, *args: Any, **kwargs: Any) -> None: ...')
    return [f'class {name}{base}:' + ('' if lines else ' ...'), *lines]


def main():
    lines = [HEAD, '__version__: str']
    for name, value in vars(module).items():
        if isinstance(value, int) and not name.startswith('_'):
            lines.append(f'{name}: int')
    for name, value in vars(module).items():
        if inspect.isclass(value):
            lines += ['', '', *class_lines(name, value)]
    for name, value in vars(module).items():
        if inspect.isbuiltin(value):
            lines += ['', '', *definitions(name, value, '')]
    print('\n'.join(lines))


if __name__ == '__main__':
    main()

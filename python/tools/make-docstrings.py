#!/usr/bin/env python3
"""Makes docstrings of the comments in the installed headers: make-docstrings.py HEADER... > Docstrings.h

Each declaration at the top level of a header or in the public part of a class gives an entry of its name and its comment, in
the order of the headers, so that overloads stand together. Names of members are written as in Python."""

import pathlib
import re
import sys

KEYWORDS = {'if', 'for', 'return', 'while', 'switch', 'sizeof', 'alignas', '__attribute__', 'defined'}


def python_name(name):
    return re.sub(r'(?<=[a-z0-9])(?=[A-Z])|(?<=[A-Z])(?=[A-Z][a-z])', '_', name).lower()


def declarations(text):
    """Yields (name, comment) in the order of the text."""
    comment, pending, name = [], '', None
    for line in text.splitlines():
        stripped = line.strip()
        if re.match(r'(protected|private):', stripped):
            comment = []
        if stripped.startswith('/// ') or stripped == '///':
            comment.append(stripped[4:])
            continue
        code, _, trailing = line.partition('///<')
        if not code.strip() and trailing:  # goes on with the comment of the line before
            if name:
                yield name, None, trailing.strip()
            continue
        code = re.sub(r'//.*', '', code).strip()
        if not code:
            continue
        pending = f'{pending} {code}'.strip()
        if not re.search(r'[;{}:]$|\{.*\}', pending) and not pending.startswith('#'):
            continue
        found = re.match(r'(?:template <.*?> )?(?:class|struct|enum(?: class)?) (?:KIVO_API )?(\w+)(?: : \w+)? \{', pending)
        if not found and not re.match(r'[#}]|using |friend |namespace |public|protected|private', pending):
            found = re.search(r'([~\w]+)\s*\(', pending)
        name = found.group(1) if found else None
        if name and name not in KEYWORDS:
            yield name, '\n'.join(comment), trailing.strip()
            comment = []
        elif pending != '{':
            comment = []
        pending = ''


def entries(headers):
    """[name, text] of each declaration. One without a comment has that of the one before: they stand together."""
    found = []
    for header in headers:
        for name, comment, trailing in declarations(pathlib.Path(header).read_text(encoding='utf-8')):
            if comment is None:
                if found:
                    found[-1][1] += ' ' + trailing
            else:
                text = '\n'.join(part for part in (comment, trailing) if part)
                found.append([name, text or (found[-1][1] if found else '')])
    return found


def in_python(text, names):
    """Words of C++ as those of Python."""
    text = re.sub(r'CKivoFunctionPlotter::', '', text)
    text = re.sub(r'\bSKivo(\w+)::(\w+)', lambda m: f'{m.group(1)}.{python_name(m.group(2))}', text)
    text = re.sub(r'\bS?Kivo(Style|View|Surface|Legend|PictureOptions|LegendNumbers|PixelOrder|FrameResult)\b', r'\1', text)
    text = re.sub(r'\b(?!On[A-Z]\w*\.\.\.)([A-Z]\w*[a-z]\w*)\b(\(\))?',
                  lambda m: python_name(m.group(1)) + (m.group(2) or '') if m.group(1) in names else m.group(0), text)
    text = re.sub(r'@param\s+(\w+)', lambda m: f'{python_name(m.group(1))}:', text)
    text = text.replace('@return', 'Returns').replace('@throws', 'Raises')
    return text.replace('std::bad_alloc', 'MemoryError').replace('std::length_error', 'ValueError')


# Those whose negative numbers are values.
VALUES = {'TracedSurface', 'GetMeasureGroupIndexByName', 'Renderscene', 'RenderMovedScene'}
EXCEPTIONS = {'-3': 'ValueError', '-2': 'IndexError', '-1': 'kivoplot.Error'}


def results_in_python(name, text):
    """Numbers that say why something could not be done, as the exceptions that stand for them."""
    start = text.find('Returns ')
    if start < 0 or name in VALUES:
        return text
    before, results = text[:start], text[start:]
    results = re.sub(r'(?<![\w.])-[123](?![\d.])', lambda m: EXCEPTIONS[m.group(0)], results)
    results = re.sub(r'^Returns 0(;|,)\s+(or )?', 'Raises ', results)
    return (before + re.sub(r'^Returns (0|as \w+)$', lambda m: '' if m.group(1) == '0' else m.group(0), results)).strip()


def docstring(name, text, names):
    text = results_in_python(name, in_python(text, names))
    text = '\n'.join(line for line in text.splitlines() if not re.match(r'plotter:', line))
    return text[:1].upper() + text[1:]


def main():
    found = entries(sys.argv[1:])
    # Words that are names of members and of other things, too, stay.
    names = {name for name, _ in found if re.search(r'[a-z][A-Z]', name)}
    order = sorted(range(len(found)), key=lambda i: (found[i][0], i))
    print('// Made by tools/make-docstrings.py from the installed headers.\n#pragma once\n')
    print('namespace KivoPython {\n\nstruct Docstring {\n    const char* name;\n    const char* text;\n};\n')
    print('constexpr Docstring docstrings[] = {')
    for i in order:
        name, text = found[i]
        print(f'    {{"{name}", R"~({docstring(name, text, names)})~"}},')
    print('};\n\n} // namespace KivoPython')


if __name__ == '__main__':
    main()

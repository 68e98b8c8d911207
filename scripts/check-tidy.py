#!/usr/bin/env python3
"""Runs clang-tidy with the project's rules on every source of the optimised build: scripts/check-tidy.py [--changed]

With --changed only on those that differ from main, or from the commit before where this is main. KIVO_BUILD names the build,
build-release without it.

Reading the headers of a source takes longer than judging it by the cheaper rules. Sources are therefore read ten at a time:
behind one another or, where their names are all in unnamed namespaces, each in a namespace of its own. A group that does not
compile says nothing of its members: they are read one by one then."""

import concurrent.futures
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
GROUP = 10
# What lies outside of the group's own file is shown, and searched for paths, which headers of the system never are.
OF_MEMBERS = [r'--header-filter=.*\.cpp$', '--extra-arg=-Xclang', '--extra-arg=-analyzer-opt-analyze-headers',
              '--extra-arg=-Wno-shadow']
# What other sources of a group would meet, and what can't be in a namespace.
REACHES_OUT = re.compile(r'^#\s*(define|undef)|\bmain\(|\bLLVMFuzzer|\boperator (new|delete)\b', re.MULTILINE)
NAMED = re.compile(r'^\s*(namespace \w|extern "C"|#\s*if)', re.MULTILINE)


def git(*words):
    return subprocess.run(['git', *words], cwd=ROOT, check=True, capture_output=True, text=True).stdout.split()


def changed():
    head = git('rev-parse', 'HEAD')[0]
    try:
        base = git('merge-base', 'HEAD', 'main')[0]
        if base == head:
            base = git('rev-parse', 'HEAD~1')[0]
    except subprocess.CalledProcessError:  # no main, or nothing before
        base = head
    return set(git('diff', '--name-only', base) + git('ls-files', '--others', '--exclude-standard'))


def compilations(build):
    """The compiler's database, a source once, without the precompiled headers, which only the compiler that made them
    understands, and without what turns another compiler's warnings into errors: the rules decide which count."""
    ours = {str(ROOT / name) for name in git('ls-files', '--cached', '--others', '--exclude-standard', '--', '*.cpp')}
    database = {}
    for entry in json.loads((build / 'compile_commands.json').read_text()):
        if entry['file'] in ours:
            command = re.sub(r' -Winvalid-pch -include \S+| -Werror(?= )', '', entry['command'])
            database[entry['file']] = {**entry, 'command': command}
    return database


def rules_of(source):
    return next(folder / '.clang-tidy' for folder in pathlib.Path(source).parents if (folder / '.clang-tidy').exists())


def group_of(source):
    """What is read together with the source: the folder of its rules, and whether it is put into a namespace; or itself."""
    text = pathlib.Path(source).read_text()
    return (source, False) if REACHES_OUT.search(text) else (str(rules_of(source).parent), not NAMED.search(text))


def group(name, path, entries, in_namespaces):
    """Writes a source that holds those of the entries, to be compiled by its name with the options of all."""
    lines, options = {}, {}
    for entry in entries:
        words = re.sub(r' -o \S+ -c \S+$', '', entry['command'])
        options.update(dict.fromkeys(re.findall(r' (?:-isystem )?(?:\\.|[^ \\])+', words)))
        options[' -I' + os.path.dirname(entry['file'])] = None
        if in_namespaces:
            lines.update(dict.fromkeys(re.findall(r'^#include .*', pathlib.Path(entry['file']).read_text(), re.MULTILINE)))
    for i, entry in enumerate(entries):
        body = f'#include "{entry["file"]}" // NOLINT(bugprone-suspicious-include)'
        lines[f'namespace file{i} {{\n{body}\n}}' if in_namespaces else body] = None
    path.write_text('\n'.join([*lines, '']))
    compiler = entries[0]['command'].split()[0]
    return {'file': name, 'directory': entries[0]['directory'], 'command': f'{compiler}{"".join(options)} -c {name}'}


def jobs(database, place, alone):
    """What each run of clang-tidy reads: a source, and the members of a group; puts what it needs into the place."""
    members = {}
    for source in sorted(database):
        members.setdefault((source, False) if alone else group_of(source), []).append(database[source])
    entries, files, work = list(database.values()), [], []
    for (where, in_namespaces), all_members in members.items():
        for start in range(0, len(all_members), GROUP):
            some = all_members[start:start + GROUP]
            if len(some) == 1:
                work.append((some[0]['file'], []))
                continue
            path = place / f'group{len(work)}.cpp'
            name = f'{where}/{path.name}'  # there it is judged by the rules of the folder
            entries.append(group(name, path, some, in_namespaces))
            files.append({'name': name, 'type': 'file', 'external-contents': str(path)})
            work.append((name, [entry['file'] for entry in some]))
    (place / 'compile_commands.json').write_text(json.dumps(entries))
    (place / 'overlay.yaml').write_text(json.dumps({'version': 0, 'roots': files}))
    return sorted(work, key=lambda job: -len(job[1]))


def check(place, job):
    source, members = job
    words = ['clang-tidy', '-p', str(place), f'--vfsoverlay={place}/overlay.yaml', '--quiet', '--warnings-as-errors=*']
    run = subprocess.run([*words, *(OF_MEMBERS if members else []), source],
                         capture_output=True, text=True)
    if members and 'clang-diagnostic-error' in run.stdout:
        return all([check(place, (member, [])) for member in members])
    if run.returncode:
        print(run.stdout + run.stderr, flush=True)
    return run.returncode == 0


def main():
    database = compilations(ROOT / os.environ.get('KIVO_BUILD', 'build-release'))
    only_changed = sys.argv[1:] == ['--changed']
    if only_changed:
        names = {str(ROOT / name) for name in changed()}
        database = {source: entry for source, entry in database.items() if source in names}
    elif sys.argv[1:]:
        sys.exit(__doc__)
    with tempfile.TemporaryDirectory() as place:
        place = pathlib.Path(place)
        work = jobs(database, place, only_changed)
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
            passed = list(pool.map(lambda job: check(place, job), work))
    sys.exit(0 if all(passed) else 1)


if __name__ == '__main__':
    main()

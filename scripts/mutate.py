#!/usr/bin/env python3
"""Tries how strong the tests are: scripts/mutate.py [--seed N] [--count N] [--wide] FILE...

Makes one small mistake at a time in one of the sources of KivoFunctionPlotter/src that are named, builds the tests of
its layer with it and runs them until one fails. Lists what no test notices, each with a diff. The sources stay
untouched: the mistakes are made in copies, in build-mutants. Mistakes that do not compile, or that the compiler turns
into the same program, are not counted. The tests' time is limited by what they take without a mistake.
"""

import argparse
import bisect
import dataclasses
import difflib
import json
import os
import pathlib
import random
import re
import shlex
import signal
import subprocess
import sys
import tempfile
import time

sys.dont_write_bytecode = True
import mutations  # noqa: E402  beside this file

ROOT = pathlib.Path(__file__).resolve().parent.parent
SRC = ROOT / "KivoFunctionPlotter" / "src"

CHECKED = ["-fsanitize=address,undefined", "-fno-sanitize-recover=all", "-fno-omit-frame-pointer"]

@dataclasses.dataclass(frozen=True)
class Stage:
    """A run of a test program."""

    program: str
    filter: str = "*"
    in_x11: bool = False
    is_checked: bool = False  # the mistaken source is compiled for the sanitizers

    @property
    def name(self):
        return " ".join([self.program, *(["in X11"] if self.in_x11 else []), *(["checked"] if self.is_checked else [])])


COMPUTING = Stage("kivo-computing-tests")
PLOTTER = Stage("kivo-plotter-tests")
CALLS = Stage("kivo-call-tests")
WINDOW_SYSTEM = Stage("kivo-window-system-tests", in_x11=True)

# What runs for a layer, near tests first.
STAGES = {
    "computing": [COMPUTING, PLOTTER, CALLS],
    "drawing": [PLOTTER, CALLS],
    "parts": [PLOTTER, COMPUTING, CALLS],
    "plotter": [PLOTTER, COMPUTING, CALLS],
    "window_system": [WINDOW_SYSTEM, PLOTTER, CALLS],
}
# What runs besides for survivors, when asked: in X11 windows, long, and with an eye on the source's memory.
WIDE_STAGES = {
    layer: [Stage("kivo-plotter-tests", "-*/Offscreen", in_x11=True), Stage("kivo-load-tests"),
            *(dataclasses.replace(stage, is_checked=True) for stage in stages)]
    for layer, stages in STAGES.items()
}
# The tests of a program run quickest first, in parts up to these shares of its time. Those of the last part run only in
# a layer's own program and, when asked, for survivors.
SHARES = (0.1, 0.35, 1.0)


def run(command, folder, seconds=None, environment=None):
    """Runs a command in a group of its own, which ends with it. Returns its status, or None after a time-out, and what
    it has printed."""
    process = subprocess.Popen(command, cwd=folder, env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                               stderr=subprocess.STDOUT, text=True, errors="replace", start_new_session=True)
    try:
        output, _ = process.communicate(timeout=seconds)
        return process.returncode, output
    except subprocess.TimeoutExpired:
        return None, ""
    finally:
        try:
            os.killpg(process.pid, signal.SIGKILL)
        except ProcessLookupError:
            pass
        process.wait()


def must(command, folder=ROOT):
    status, output = run(command, folder)
    if status != 0:
        sys.exit(f"failed: {shlex.join(command)}\n{output}")
    return output


class Workshop:
    """The build folder, where everything is as it is, and a bench for one source after another with a mistake in it."""

    def __init__(self, folder, bench):
        self._folder, self._bench = folder, bench
        must(["cmake", "-S", str(ROOT), "-B", str(folder), "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release",
              "-DCMAKE_EXPORT_COMPILE_COMMANDS=ON", "-DKIVO_BUILD_EXAMPLES=OFF", "-DKIVO_BUILD_VIEWER=OFF"])
        stages = [stage for table in (STAGES, WIDE_STAGES) for layer in table.values() for stage in layer]
        programs = sorted({stage.program for stage in stages})
        must(["cmake", "--build", str(folder), "--target", *programs])
        commands = json.loads((folder / "compile_commands.json").read_text())
        self._compilers = {entry["file"]: shlex.split(entry["command"]) for entry in commands}
        self._linkers = {program: self._find_linker(program) for program in programs}
        self._environments = {is_checked: self._environment(is_checked) for is_checked in (False, True)}

    def _find_linker(self, program):
        commands = must(["ninja", "-C", str(self._folder), "-t", "commands", f"tests/{program}"])
        return shlex.split(commands.rstrip().splitlines()[-1].split("&&")[1])

    def _environment(self, is_checked):
        settings = ". scripts/sanitizers.sh; " if is_checked else ""
        text = must(["bash", "-c", f"{settings}env -0"])
        variables = dict(line.split("=", 1) for line in text.split("\0") if line)
        for name in ("DISPLAY", "WAYLAND_DISPLAY"):
            variables.pop(name, None)
        return {**variables, "KIVO_TEST_OUTPUT": str(self._bench), "GTEST_COLOR": "no"}

    def compile(self, source, text, is_checked=False):
        """Compiles a source with another text. Returns the object's path, or None where that fails."""
        copy = self._bench / source.name
        copy.write_text(text)
        command = list(self._compilers[str(source)])
        if pathlib.Path(command[0]).name == "ccache":
            del command[0]
        made = self._bench / (source.name + ".o")
        original = command[command.index("-o") + 1]
        command = [word for word in command if word not in ("-Werror", "-MD", "-D_FORTIFY_SOURCE=2")]
        command[command.index("-o") + 1] = str(made)
        command[command.index("-c") + 1] = str(copy)
        command += ["-w", "-O1", "-iquote", str(source.parent), *(CHECKED if is_checked else [])]
        return (made, original) if run(command, self._folder)[0] == 0 else None

    def link(self, program, made, is_checked):
        """Links a test program with one object in place of the one it has. Returns its path, or None."""
        path = self._bench / program
        mutant, original = made
        command = [str(mutant) if word == original else word for word in self._linkers[program]]
        command[command.index("-o") + 1] = str(path)
        status, _ = run([*command, *(CHECKED if is_checked else []), "-fuse-ld=gold"], self._folder)
        return path if status == 0 else None

    def parts(self, stage):
        """The tests of a stage, quickest first, cut at SHARES of its time: lists of names."""
        seconds = self._times(stage)
        total, passed, parts = sum(seconds.values()), 0.0, [[] for _ in SHARES]
        for name in sorted(seconds, key=seconds.get):
            passed += seconds[name]
            parts[bisect.bisect_left(SHARES[:-1], passed / max(total, 0.001))].append(name)
        return parts

    def _times(self, stage):
        """The seconds that each test takes without a mistake, measured once for a program: it must pass."""
        program = self._folder / "tests" / stage.program
        record = self._folder / f"times of {stage.name}.json"
        if not record.exists() or record.stat().st_mtime < program.stat().st_mtime:
            status, output = self._run(stage, program, stage.filter, None)
            if status != 0:
                sys.exit(f"fails without any mistake: {stage.name}\n{output}")
            found = re.findall(r"^\[       OK \] (\S+) \((\d+) ms\)", output, re.MULTILINE)
            record.write_text(json.dumps({name: int(time) / 1000 for name, time in found}, indent=0))
        return json.loads(record.read_text())

    def test(self, stage, program, tests):
        """Runs some tests of a stage, with patience for a busy machine. Returns what failed first, or nothing."""
        times = self._times(stage)
        limit = 30 + 10 * sum(times[name] for name in tests)
        status, output = self._run(stage, program, ":".join(tests), limit)
        if status == 0:
            return ""
        if status is None:
            return "a time-out"
        failed = re.findall(r"^\[  FAILED  \] ([\w/.]+)", output, re.MULTILINE)
        begun = re.findall(r"^\[ RUN      \] ([\w/.]+)", output, re.MULTILINE)
        return (failed[:1] or begun[-1:] or ["the start of the program"])[0]

    def _run(self, stage, program, tests, seconds):
        command = [str(program), f"--gtest_filter={tests}", "--gtest_fail_fast"]
        if stage.in_x11:
            command.insert(0, str(ROOT / "scripts" / "with-display.sh"))
        return run(command, self._folder, seconds, self._environments[stage.is_checked])


class Trial:
    """The mutants of one source."""

    def __init__(self, workshop, source, is_wide):
        self._workshop = workshop
        self._source = source
        self._text = source.read_text()
        layer = source.relative_to(SRC).parts[0]
        near, *others = STAGES[layer]
        self._runs = [(near, part) for part in workshop.parts(near)]
        self._runs += [(stage, part) for stage in others for part in workshop.parts(stage)[:-1]]
        if is_wide:
            self._runs += [(stage, workshop.parts(stage)[-1]) for stage in others]
            # In one piece: leaks are told from those of a driver only while other tests keep that loaded.
            self._runs += [(stage, sum(workshop.parts(stage), [])) for stage in WIDE_STAGES[layer]]
        self._killers = {}  # of each stage, the last first
        made = workshop.compile(source, self._text)
        if not made:
            sys.exit(f"does not compile without any mistake: {source}")
        self._same_object = made[0].read_bytes()

    def judge(self, mutation):
        """How the mutant ends: 'not compiled', 'the same program', 'survived', or by whom it is killed."""
        text = mutation.apply(self._text)
        made = self._workshop.compile(self._source, text)
        if made and made[0].read_bytes() == self._same_object:
            return "the same program"
        before = None
        for stage, tests in self._runs:
            if stage.is_checked and not (before and before.is_checked):
                made = self._workshop.compile(self._source, text, is_checked=True)
            if stage != before:
                program = made and self._workshop.link(stage.program, made, stage.is_checked)
                if not program:
                    return "not compiled"
                known = self._killers.setdefault(stage, [])[:4]
                failed = known and self._workshop.test(stage, program, known)
            before = stage
            failed = failed or self._workshop.test(stage, program, tests)
            if failed:
                self._learn(stage, failed)
                return f"killed by {failed} in {stage.name}"
        return "survived"

    def _learn(self, stage, test):
        """A test that kills comes first for the next mutant. It must pass where there is no mistake."""
        known = self._killers[stage]
        if stage.is_checked or "." not in test or test in known:
            return
        made = self._workshop.compile(self._source, self._text, stage.is_checked)
        program = self._workshop.link(stage.program, made, stage.is_checked)
        if self._workshop.test(stage, program, [test]):
            sys.exit(f"fails without any mistake: {test} in {stage.name}")
        known.insert(0, test)

    def diff(self, mutation):
        name = self._source.relative_to(ROOT).as_posix()
        lines = difflib.unified_diff(self._text.splitlines(True), mutation.apply(self._text).splitlines(True),
                                     f"a/{name}", f"b/{name}", n=1)
        return "".join(lines)


def draw(sources, seed):
    """Yields (source, line, mutation), by lines of all sources, in an order that the seed decides."""
    generator = random.Random(seed)
    queues = {source: mutations.draw(source.read_text(), generator) for source in sources}
    lines = {source: source.read_text().count("\n") for source in sources}
    while queues:
        names = sorted(queues)
        source = generator.choices(names, [lines[name] for name in names])[0]
        try:
            yield (source, *next(queues[source]))
        except StopIteration:
            del queues[source]


def parse_arguments():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("files", nargs="+", metavar="FILE", type=pathlib.Path, help="a .cpp of KivoFunctionPlotter/src")
    parser.add_argument("--seed", type=int, default=1, help="decides which mistakes are made (default: 1)")
    parser.add_argument("--count", type=int, default=20, help="of mistakes that compile (default: 20)")
    parser.add_argument("--wide", action="store_true",
                        help="run what survives in X11 windows, under load and under the sanitizers, too")
    arguments = parser.parse_args()
    arguments.files = [file.resolve() for file in arguments.files]
    for file in arguments.files:
        if file.suffix != ".cpp" or SRC not in file.parents or not file.is_file():
            parser.error(f"no source of the library: {file}")
    return arguments


def judge_all(arguments, workshop):
    """Prints how each mutant ends. Returns how many were killed, have survived, and make the same program."""
    trials, killed, survived, same = {}, 0, 0, 0
    for source, line, mutation in draw(arguments.files, arguments.seed):
        if killed + survived == arguments.count:
            break
        if source not in trials:
            trials[source] = Trial(workshop, source, arguments.wide)
        begin = time.monotonic()
        verdict = trials[source].judge(mutation)
        if verdict == "not compiled":
            continue
        print(f"{source.relative_to(SRC)}:{line}: {mutation.kind}: {verdict} ({time.monotonic() - begin:.0f} s)",
              flush=True)
        same += verdict == "the same program"
        killed += verdict.startswith("killed")
        if verdict == "survived":
            survived += 1
            print(trials[source].diff(mutation), flush=True)
    return killed, survived, same


def main():
    arguments = parse_arguments()
    folder = ROOT / "build-mutants"
    folder.mkdir(exist_ok=True)
    with tempfile.TemporaryDirectory(prefix="bench-", dir=folder) as bench:
        killed, survived, same = judge_all(arguments, Workshop(folder, pathlib.Path(bench)))
    print(f"{killed} killed, {survived} survived; {same} more make the same program")
    return 1 if survived else 0


if __name__ == "__main__":
    sys.exit(main())

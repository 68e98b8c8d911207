"""Makes tables of the results that compare.sh has gathered, and with --write puts them and the plot into docs/.

report.py FOLDER [--write]

Times are medians. A ratio is made in each round from the medians of that round, and the median of the rounds is shown,
so that what slows the machine down for a while falls out.
"""
import collections
import json
import math
import pathlib
import platform
import re
import statistics
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
PAGE = ROOT / "docs" / "performance.md"
PLOT = ROOT / "docs" / "pictures" / "growth.svg"
BEGIN, END = "<!-- measured: begin -->", "<!-- measured: end -->"

# Which program wrote a file of results.
PROGRAMS = {"growth": "growth", "heap": "heap", "bare": "bare", "vtk": "vtk", "qwtplot3d": "qwtplot3d",
            "contourpy": "contourpy"}

Comparison = collections.namedtuple("Comparison", "job ours peer theirs limit")

# The plotter's job, what stands beside it, and the greatest ratio that is wanted, if any.
COMPARISONS = [
    Comparison("New data, whole", "SetData", "VTK: load and 60 contours", ["vtk:Load", "vtk:Contours"], 1 / 25),
    Comparison("Mesh arrays alone", "MeshArrays", "filling them", ["kivo:FillMeshArrays"], 3),
    Comparison("Recolour", "Recolor", "filling the colours", ["kivo:FillColors"], 3),
    Comparison("Recolour, pale colours", "RecolorPale", "filling the colours", ["kivo:FillColors"], 3),
    Comparison("60 contours", "Contours", "VTK: Flying Edges", ["vtk:FlyingEdges"], 1 / 3),
    Comparison("60 contours", "Contours", "VTK: contour filter", ["vtk:Contours"], None),
    Comparison("60 contours of a plot", "SetContourCount", "VTK: Flying Edges", ["vtk:FlyingEdges"], None),
    Comparison("20 z contours", "ZContours", "contourpy", ["contourpy:ZContours"], None),
    Comparison("Trace", "Trace", "reading the points", ["kivo:ReadPoints"], 4),
    Comparison("Trace", "Trace", "VTK: cell picker", ["vtk:Pick"], 1 / 150),
    Comparison("Frame with lines", "FrameWithLines", "bare client arrays", ["bare:FrameWithLines"], 1.05),
    Comparison("Frame with lines", "FrameWithLines", "VTK: edges, axes, bar", ["vtk:FrameWithLines"], 1),
    Comparison("Frame with lines", "FrameWithLines", "QwtPlot3D: mesh, axes, legend", ["qwtplot3d:FrameWithLines"], 1),
    Comparison("Frame without lines", "Frame", "bare client arrays", ["bare:Frame"], 1.05),
    Comparison("Frame without lines, small triangles culled", "CulledFrame", "with all of them", ["kivo:Frame"], None),
    Comparison("Frame of a drag", "MovedFrame", "a whole one with lines", ["kivo:FrameWithLines"], 1 / 10),
    Comparison("Frame of a drag", "MovedFrame", "VTK: quadric level of detail", ["vtk:MovedFrame"], None),
    Comparison("Frame with lines", "FrameWithLines", "the same, heap as glibc has it", ["heap:FrameWithLines"], None),
    Comparison("New data, whole", "SetData", "the same, heap as glibc has it", ["heap:SetData"], None),
]
SIZES = (1000, 2000)
GROWTH = {"SetData": "new data", "MeshArrays": "mesh arrays", "Recolor": "recolour", "Contours": "60 contours",
          "Trace": "trace", "Frame": "frame", "FrameWithLines": "frame with lines"}
GROWTH_OF_BOUNDS = {"FillMeshArrays": "filling the mesh arrays", "FillColors": "filling the colours",
                    "ReadPoints": "reading the points"}


class Results:
    """Medians by program, name and round; a round is None for what is measured once."""

    def __init__(self, folder):
        self.context = {}
        self.load_at_start = 0.0
        self.counters = {}
        samples = collections.defaultdict(list)
        for path in sorted(folder.glob("*.json")):
            last = path.stem.rpartition("-")[2]
            turn = int(last) if last.isdigit() and "memory" not in path.stem else None
            program = PROGRAMS.get(path.stem.split("-")[0], "kivo")
            content = json.loads(path.read_text())
            self.context.update(content.get("context", {}))
            if path.stem == "kivo-1":
                self.load_at_start = content["context"]["load_avg"][0]
            for entry in content["benchmarks"]:
                if entry.get("run_type") != "iteration":
                    continue
                name = re.sub(r"/(process_time|real_time|manual_time|iterations:\d+|repeats:\d+)", "", entry["name"])
                if entry.get("error_occurred"):
                    sys.exit(f"{path.name}: {name}: {entry['error_message']}")
                samples[program, name, turn].append((entry["real_time"], entry["cpu_time"]))
                self.counters[program, name] = entry
        self.medians = collections.defaultdict(dict)
        for (program, name, turn), times in samples.items():
            self.medians[program, name][turn] = tuple(statistics.median(column) for column in zip(*times))

    def rounds(self, source):
        """The (wall, CPU) milliseconds of "program:name" in each round; empty where the program took no part."""
        return self.medians.get(tuple(source.split(":")), {})

    def median(self, source):
        """The (wall, CPU) milliseconds over all rounds."""
        return tuple(statistics.median(column) for column in zip(*self.rounds(source).values()))

    def counter(self, source, counter):
        return self.counters.get(tuple(source.split(":")), {}).get(counter)


def ratio_of(results, ours, theirs):
    """(wall, CPU) of ours / theirs as medians over the rounds."""
    peers = [results.rounds(peer) for peer in theirs]
    ratios = []
    for turn, own in results.rounds(ours).items():
        parts = [peer.get(turn, peer.get(None)) for peer in peers]
        if all(parts):
            ratios.append([own[i] / sum(part[i] for part in parts) for i in range(2)])
    return tuple(statistics.median(column) for column in zip(*ratios))


def ratio_text(ratio):
    if ratio >= 0.2:
        return f"{ratio:.2f}"
    return f"1/{1 / ratio:.0f}" if ratio < 0.1 else f"1/{1 / ratio:.1f}"


def time_text(milliseconds):
    digits = max(0, 2 - math.floor(math.log10(milliseconds))) if milliseconds < 100 else 0
    return f"{milliseconds:,.{digits}f}"


def verdict(value, limit):
    if limit is None:
        return ""
    text = f"1/{1 / limit:.0f}" if limit < 1 else f"{limit:g}"
    return f"{text} {'met' if value <= limit else 'missed'}"


def table(header, rows):
    lines = ["| " + " | ".join(header) + " |", "|---" * len(header) + "|"]
    return lines + ["| " + " | ".join(row) + " |" for row in rows]


def comparison_rows(results):
    for n in SIZES:
        for comparison in COMPARISONS:
            ours = f"kivo:{comparison.ours}/{n}"
            theirs = [f"{peer}/{n}" for peer in comparison.theirs]
            if not all(results.rounds(source) for source in [ours, *theirs]):
                continue
            own, peer = results.median(ours), [sum(column) for column in zip(*map(results.median, theirs))]
            wall, cpu = ratio_of(results, ours, theirs)
            # Limits hold at n = 1000.
            limit = comparison.limit if n == SIZES[0] else None
            yield [comparison.job, str(n), time_text(own[0]), time_text(own[1]), comparison.peer, time_text(peer[0]),
                   time_text(peer[1]), ratio_text(wall), ratio_text(cpu),
                   verdict(wall, limit)]


def difference_rows(results):
    for job, ours, beside, peer, limit in (
            ("Frame of 50 x 40 points, everything shown", "kivo:SmallFrame", "an empty frame", "bare:EmptyFrame", 3),
            ("the same", "kivo:SmallFrame", "its surface and lines by bare arrays", "bare:SmallFrame", None),
            ("First picture from process start", "kivo:FirstPicture", "first OpenGL context", "kivo:FirstContext", 100)):
        own, other = results.rounds(ours), results.rounds(peer)
        difference = statistics.median(own[turn][0] - other[turn][0] for turn in own)
        yield [job, time_text(results.median(ours)[0]), beside, time_text(results.median(peer)[0]),
               time_text(difference), verdict(difference, limit)]


def memory_rows(results):
    for n in SIZES:
        heap = {name: results.counter(f"kivo:Memory/{n}", f"{name}_bytes")
                for name in ("retained", "peak", "contour", "growth")}
        peaks = [results.counter(f"{program}:PeakMemory/{n}", "resident_bytes")
                 for program in ("kivo", "vtk", "qwtplot3d")]
        yield [str(n), f"{heap['retained']:.1f}", f"{heap['peak']:.1f}", f"{heap['contour']:.1f}",
               f"{heap['growth']:.0f}", f"{results.counter(f'kivo:TraceAllocations/{n}', 'allocations'):.0f}",
               *("" if peak is None else f"{peak:.0f}" for peak in peaks)]


def level_rows(results):
    names = sorted((name for program, name in results.medians
                    if program == "growth" and name.startswith("ContoursByLevels")), key=lambda name: int(name.split("/")[2]))
    for name in names:
        segments = results.counter(f"growth:{name}", "segments")
        wall = results.median(f"growth:{name}")[0]
        yield [str(3 * int(name.split("/")[2])), f"{segments:,.0f}", time_text(wall), f"{1e6 * wall / segments:,.0f}"]


def growth_series(results, jobs):
    """For each job: its label, sizes n and nanoseconds per point."""
    for job, label in jobs.items():
        sizes = sorted(int(name.split("/")[1]) for program, name in results.medians
                       if program == "growth" and name.startswith(job + "/"))
        if sizes:
            yield label, sizes, [1e6 * results.median(f"growth:{job}/{n}")[0] / n**2 for n in sizes]


def check_segments(results):
    """All programs have to find the same contours."""
    for n in SIZES:
        for counter in ("z_segments", "segments"):
            found = {f"{program}:{name}": entry[counter] for (program, name), entry in results.counters.items()
                     if counter in entry and name.endswith(f"/{n}")}
            if len(set(found.values())) > 1:
                sys.exit(f"The programs find different contours: {found}")


def processor_name():
    found = re.search(r"model name\s*: (.*)", pathlib.Path("/proc/cpuinfo").read_text())
    return found[1] if found else platform.machine()


def report(results):
    context = results.context
    lines = [f"{context['date'][:10]}, {processor_name()}, {context['num_cpus']} cores at {context['mhz_per_cpu']} MHz, "
             f"load average {results.load_at_start:.1f} at the start, {context['renderer']}, window of 800 x 600 pixels. "
             "Times in milliseconds.", ""]
    lines += table(["Job", "n", "plotter", "CPU", "beside", "time", "CPU", "ratio", "of CPU", "limit"],
                   comparison_rows(results))
    lines += ["", *table(["Job", "plotter", "beside", "time", "difference", "limit"], difference_rows(results))]
    lines += ["", "Bytes for each point on top of the host's array, by the heap's own count; contours apart in the first two "
              "columns. The last columns are the growth of the whole process, renderer included, to its peak.", ""]
    lines += table(["n", "retained", "at most during new data", "contours", "growth in all over 3 data changes",
                    "allocations by a trace", "resident with a frame", "VTK", "QwtPlot3D"], memory_rows(results))
    lines += ["", "Contours at n = 1000 by the number of levels of all axes together.", ""]
    lines += table(["levels", "segments", "ms", "ns a segment"], level_rows(results))
    series = list(growth_series(results, {**GROWTH, **GROWTH_OF_BOUNDS}))
    rows = [[label, *(f"{cost:.3g}" for cost in costs)] for label, _, costs in series]
    sizes = series[0][1]
    lines += ["", "Nanoseconds for each point of n x n.", ""]
    return lines + table(["Job", *(f"n = {n}" for n in sizes)], rows)


def draw_growth(results, path):
    import matplotlib
    matplotlib.use("svg")
    matplotlib.rcParams["svg.hashsalt"] = "kivo"  # the same names in every file
    from matplotlib import pyplot

    figure, (times, costs) = pyplot.subplots(1, 2, figsize=(11, 5), layout="constrained")
    for jobs, style in ((GROWTH, "-"), (GROWTH_OF_BOUNDS, ":")):
        for label, sizes, per_point in growth_series(results, jobs):
            times.plot(sizes, [1e-6 * cost * n**2 for n, cost in zip(sizes, per_point)], style, marker=".", label=label)
            reference = per_point[sizes.index(1000)]
            costs.plot(sizes, [cost / reference for cost in per_point], style, marker=".")
    for axes in times, costs:
        axes.set_xscale("log", base=2)
        axes.set_xticks(sizes, [str(n) for n in sizes])
        axes.set_xlabel("n, for grids of n x n points")
    times.set_yscale("log")
    times.set_ylabel("milliseconds")
    times.legend(fontsize="small")
    costs.axhspan(0.75, 1.25, color="0.92")
    costs.set_ylim(bottom=0)
    costs.set_ylabel("time for each point, relative to n = 1000")
    figure.savefig(path, metadata={"Date": None})


def main():
    results = Results(pathlib.Path(sys.argv[1]))
    check_segments(results)
    lines = report(results)
    print("\n".join(lines))
    if "--write" in sys.argv[2:]:
        before, _, rest = PAGE.read_text().partition(BEGIN)
        after = rest.partition(END)[2]
        PAGE.write_text(before + "\n".join([BEGIN, "", *lines, "", END]) + after)
        draw_growth(results, PLOT)


main()

"""Runs the benchmarks of a build and shows each figure beside its baseline and its goal.

    figures.py [--show | --smoke] BUILD

Without --show the table goes into docs/performance.md as well. --smoke runs everything once with
tiny sizes and fails when a benchmark does.
"""

import json
import os
import pathlib
import platform
import shutil
import subprocess
import sys
import tempfile
import time

sys.dont_write_bytecode = True  # leave nothing beside the scripts
import page  # noqa: E402

TOP = pathlib.Path(__file__).resolve().parent.parent

SMALL, MIDDLE, LARGE = 1000, 250_000, 1_000_000
REPETITIONS = 7
STARTS = 40

# What is measured against what. Times are those of the processor unless they are called "elapsed".
# title, benchmark, baseline, most times the baseline
RATIOS = [
    ("Select inputs, log off", "select", "selectBaseline", 1.5),
    ("Select inputs, log at DEBUG", "selectWithLog", "selectBaseline", None),
    ("Select the same inputs again", "selectAgain", "select", 2),
    ("Select outputs", "selectOutputs", "selectBaseline", None),
    ("Select the same outputs again", "selectOutputsAgain", "selectOutputs", 2),
    ("Progress of a selection", "progressOfSelect", "select", 0.01),
    ("Apply, Velmar, elapsed", "apply/Velmar", "applyBaseline/Velmar", 1.5),
    ("Apply, Ombra, elapsed", "apply/Ombra", "applyBaseline/Ombra", 1.5),
    ("Apply, Velmar", "apply/Velmar", "applyBaseline/Velmar", None),
    ("Apply, Ombra", "apply/Ombra", "applyBaseline/Ombra", None),
    ("Load the control file", "loadControlFile", "loadControlFileBaseline", 1.5),
    ("Quick findings", "findFaults", "loadControlFile", 4),
    ("Check", "checkStudy", "loadControlFile", 4),
    ("Preview", "previewApply", "applyInMemory", None),
    ("Open the model", "openModel", "openModelBaseline", None),
    ("Replace 100 numbers in the model's file", "patchModel", "patchModelBaseline", 2),
]
# The same work on four times the rows: linear work takes four times as long, and somewhat longer
# where the rows no longer fit into the processor's cache.
GROWING = [
    ("Select inputs", "select"),
    ("Select the same inputs again", "selectAgain"),
    ("Select outputs", "selectOutputs"),
    ("Select the same outputs again", "selectOutputsAgain"),
    ("Remove half of the rows", "removeSelected"),
    ("Apply, Velmar", "apply/Velmar"),
    ("Apply, Ombra", "apply/Ombra"),
    ("Load the control file", "loadControlFile"),
    ("Quick findings", "findFaults"),
    ("Check", "checkStudy"),
    ("Preview", "previewApply"),
]
MOST_GROWTH = 6
# title, benchmark, at least so many MB/s
SPEEDS = [
    ("Load the control file", "loadControlFile", 300),
    ("Open the model", "openModel", 150),
]
# title, argument of bench_memory, unit, at most
MEMORY = [
    ("Memory of a row beyond its text", "rows", "bytes", 200),
    ("The same while rows are selected", "rowsAtPeak", "bytes", 200),
    ("Peak while a model is opened, for each byte of its file", "model", "bytes", 2.5),
    ("Preview, beyond the rows", "preview", "MB", 64),
]


class Figures:
    """The least time of all repetitions, in seconds, by benchmark and size."""

    def __init__(self, report):
        self.cpu, self.elapsed, self.bytes = {}, {}, {}
        for run in report["benchmarks"]:
            if run["run_type"] != "iteration":
                continue
            if run.get("error_occurred"):
                sys.exit(f"{run['name']}: {run['error_message']}")
            *name, size, _ = run["name"].split("/")
            key = "/".join(name), int(size)
            assert run["time_unit"] == "ms"
            for kind, field in ((self.cpu, "cpu_time"), (self.elapsed, "real_time")):
                kind[key] = min(kind.get(key, float("inf")), run[field] / 1000)
            self.bytes[key] = run.get("bytes")


def run_benchmarks(program, folder, sizes, repetitions):
    """Mixes the repetitions of all benchmarks, so that a busy moment hits no single one."""
    out = folder / "figures.json"
    subprocess.run(
        [program, f"--benchmark_filter=/({'|'.join(map(str, sizes))})/",
         f"--benchmark_repetitions={repetitions}", "--benchmark_enable_random_interleaving=true",
         "--benchmark_format=json", f"--benchmark_out={out}"],
        check=True, cwd=folder, env=os.environ | {"TMPDIR": str(folder)},
        stdout=subprocess.DEVNULL)
    return Figures(json.loads(out.read_text()))


def elapsed(command, folder):
    start = time.monotonic()
    subprocess.run(command, check=True, cwd=folder, stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL, env=os.environ | {"TEMP": str(folder)})
    return time.monotonic() - start


def time_starts(build, folder, times):
    """The least time of a process that does nothing, and of one that replays the example."""
    for name in ("panel.neu", "panel.study"):
        shutil.copy(TOP / "examples" / name, folder)
    nothing = [build / "bench" / "bench_nothing"]
    replay = [build / "programs" / "velmar-study", "--quiet", "panel.study"]
    pairs = [(elapsed(nothing, folder), elapsed(replay, folder)) for _ in range(times)]
    return min(a for a, _ in pairs), min(b for _, b in pairs)


def time_text(seconds):
    milliseconds = seconds * 1000
    return f"{milliseconds:.0f} ms" if milliseconds >= 10 else f"{milliseconds:.2g} ms"


def row(title, size, value, baseline, ratio, goal, met):
    size_text = f"{size:,}".replace(",", " ") if size else ""
    answer = "" if met is None else "yes" if met else "**no**"
    return title, size_text, value, baseline, ratio, goal, answer


def ratio_rows(figures, size):
    for title, name, baseline, most in RATIOS:
        times = figures.elapsed if title.endswith("elapsed") else figures.cpu
        own, other = times[name, size], times[baseline, size]
        yield row(title, size, time_text(own), time_text(other), f"{own / other:.3g}",
                  "" if most is None else f"at most {most}",
                  None if most is None else own / other <= most)


def growth_rows(figures, small, large):
    for title, name in GROWING:
        own, other = figures.cpu[name, large], figures.cpu[name, small]
        yield row(f"{title}, against a quarter of the rows", large, time_text(own),
                  time_text(other), f"{own / other:.3g}", f"about 4, at most {MOST_GROWTH}",
                  own / other <= MOST_GROWTH)


def speed_rows(figures, size):
    for title, name, least in SPEEDS:
        speed = figures.bytes[name, size] / figures.cpu[name, size] / 1e6
        yield row(title, size, f"{speed:.0f} MB/s", "", "", f"at least {least} MB/s",
                  speed >= least)


def memory_rows(build, folder, size):
    for title, what, unit, most in MEMORY:
        result = subprocess.run([build / "bench" / "bench_memory", what, str(size)], check=True,
                                cwd=folder, capture_output=True, text=True)
        value = float(result.stdout)
        yield row(title, size, f"{value:.3g} {unit}", "", "", f"at most {most}", value <= most)


def start_rows(build, folder, times):
    nothing, replay = time_starts(build, folder, times)
    yield row("Start, replay of the example and end, elapsed", None, time_text(replay),
              time_text(nothing), f"{replay / nothing:.3g}", "", None)


def table(rows):
    head = ("What", "Size", "Figure", "Baseline", "Ratio", "Goal", "Met")
    widths = [max(len(line[i]) for line in [head, *rows]) for i in range(len(head))]
    line = lambda cells: "| " + " | ".join(c.ljust(w) for c, w in zip(cells, widths)) + " |"
    return "\n".join([line(head), line(["-" * width for width in widths]), *map(line, rows)])


def describe_machine():
    model = next((text.split(":")[1].strip() for text in open("/proc/cpuinfo", encoding="ascii")
                  if text.startswith("model name")), platform.machine())
    return (f"{os.cpu_count()} processors ({model}), {time.strftime('%Y-%m-%d')}, the least of "
            f"{REPETITIONS} repetitions. At the end {os.getloadavg()[1]:.1f} processes were at "
            "work on the machine on average; ours is one.")


def main():
    *options, build = sys.argv[1:]
    build = pathlib.Path(build).resolve()
    smoke = "--smoke" in options
    sizes = [SMALL] if smoke else [MIDDLE, LARGE]
    small, large = sizes[0], sizes[-1]
    with tempfile.TemporaryDirectory(dir=build, prefix="bench ") as name:
        folder = pathlib.Path(name)
        figures = run_benchmarks(build / "bench" / "velmar_bench", folder, sizes,
                                 1 if smoke else REPETITIONS)
        rows = [*ratio_rows(figures, large), *growth_rows(figures, small, large),
                *speed_rows(figures, large), *memory_rows(build, folder, large),
                *start_rows(build, folder, 1 if smoke else STARTS)]
    text = table(rows)
    if smoke:
        print(f"{len(rows)} figures were taken; of such sizes they say nothing.")
        return
    print(text)
    if not options:
        page.put("figures", f"{describe_machine()}\n\n{text}")


if __name__ == "__main__":
    main()
